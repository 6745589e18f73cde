#include "app/JobTable.h"

#include <algorithm>

#include "app/Manual.h"
#include "core/LanguageFile.h"
#include "encoding/Decode.h"
#include "encoding/Encode.h"
#include "wave/WaveTrim.h"

namespace zefta {

namespace {

constexpr Job Jobs[] = {
    {1, "/rename", false, nullptr},     {2, "/rename2", false, nullptr},
    {3, "/autorename", false, nullptr}, {4, "/change", false, nullptr},
    {5, "/copy", false, nullptr},       {6, "/encode", false, EncodeJob},
    {7, "/decode", false, DecodeJob},   {8, "/makelist", false, nullptr},
    {9, "/setup", true, nullptr},       {10, "/help", false, OpenManual},
    {13, "/agent", false, nullptr},     {14, "/compress_audio_cd", true, nullptr},
    {15, "/fixheader", false, nullptr}, {16, "/wavetrim", false, WaveTrimJob},
    {17, "/split", false, nullptr},     {19, "/crop", false, nullptr},
    {20, "/makezfc", false, nullptr},   {21, "/lng", false, WriteLanguageTemplate},
};

}  // namespace

const Job* FindJob(std::int32_t code) {
    const auto found =
        std::find_if(std::begin(Jobs), std::end(Jobs), [&](const Job& job) { return job.code == code; });
    return found == std::end(Jobs) ? nullptr : found;
}

}  // namespace zefta
