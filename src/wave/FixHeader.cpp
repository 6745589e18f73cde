#include "wave/FixHeader.h"

#include <memory>
#include <string_view>

#include "core/Boxes.h"
#include "core/ByteCodec.h"
#include "core/FileWalk.h"
#include "core/Strings.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr std::int32_t NotAValidFile = 1002;
constexpr std::int32_t CannotOpenToMend = 1003;
/// The field SamplesPerSec of the "fmt " chunk, where that comes first.
constexpr std::int32_t RatePosition = 24;

}  // namespace

void FixHeader(App& app, const std::string& path) {
    const auto file = app.files.OpenRead(path);
    if (!file) return ShowWarning(app, app.messages.GetMessage(CannotOpenToMend));
    const std::string rate = ByteCodec::FromLong(app.state.Frequency);
    file->Seek(RatePosition, SeekFrom::Start);
    file->Write(std::string_view(rate).substr(0, 2));
}

void FixHeaderJob(App& app) {
    if (!MatchesMask(app.state.FileSpec, "*.wav"))
        return ShowWarning(app, app.messages.GetMessage(NotAValidFile));
    WalkFiles(app, [&](const std::string& folder, const std::string& name) {
        FixHeader(app, JoinPath(folder, name));
    });
}

}  // namespace zefta
