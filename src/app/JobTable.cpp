#include "app/JobTable.h"

#include <algorithm>

#include "app/Manual.h"
#include "cd/MakeCDInfo.h"
#include "core/Agent.h"
#include "core/LanguageFile.h"
#include "encoding/Decode.h"
#include "encoding/Encode.h"
#include "library/ChangeTagsWalkers.h"
#include "library/CopyPlaylist.h"
#include "library/Playlist.h"
#include "library/RenameJobs.h"
#include "wave/CropFile.h"
#include "wave/FixHeader.h"
#include "wave/SplitFile.h"
#include "wave/WaveTrim.h"

namespace zefta {

namespace {

constexpr Job Jobs[] = {
    // clang-format off
    // code, option, needs a display, can be previewed, worker, window
    {1,  "/rename",            false, true,  RenameJob},
    {2,  "/rename2",           false, true,  RenameWithPlaylistsJob},
    {3,  "/autorename",        false, true,  RenameByPlaylistsJob},
    {4,  "/change",            false, true,  ChangeTagsJob},
    {5,  "/copy",              false, true,  CopyPlaylistJob},
    {6,  "/encode",            false, false, EncodeJob},
    {7,  "/decode",            false, false, DecodeJob},
    {8,  "/makelist",          false, true,  MakePlaylist},
    {9,  "/setup",             true,  false, nullptr, &Windows::RunOptions},
    {10, "/help",              false, false, OpenManual},
    {13, "/agent",             false, false, StartAgent},
    {14, "/compress_audio_cd", true,  false, nullptr, &Windows::RunCompressCD},
    {15, "/fixheader",         false, false, FixHeaderJob},
    {16, "/wavetrim",          false, false, WaveTrimJob},
    {17, "/split",             false, false, SplitFileJob},
    {19, "/crop",              false, false, CropFileJob},
    {20, "/makezfc",           false, true,  MakeCDInfoJob},
    {21, "/lng",               false, false, WriteLanguageTemplate},
    // clang-format on
};

}  // namespace

const Job* FindJob(std::int32_t code) {
    const auto found =
        std::find_if(std::begin(Jobs), std::end(Jobs), [&](const Job& job) { return job.code == code; });
    return found == std::end(Jobs) ? nullptr : found;
}

}  // namespace zefta
