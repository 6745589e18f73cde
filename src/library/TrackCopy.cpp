#include "library/TrackCopy.h"

#include <utility>

#include "core/BlockCopy.h"
#include "core/Boxes.h"
#include "core/DeleteQuietly.h"
#include "core/Numbers.h"
#include "core/Steps.h"
#include "platform/RuntimeError.h"
#include "tags/TemporaryFile.h"

namespace zefta {

namespace {

constexpr std::int32_t Done = 0;
constexpr std::int32_t CannotOpenSource = 1;
constexpr std::int32_t CannotCreateTarget = 2;

/// What CopyWave would say of a file that is too long for its counter of blocks.
void CheckBlocks(std::int64_t size) {
    ToI16(size / WaveBlockSize);
}

/// Whether the first file has nothing that the second one does not begin with.
bool IsBeginningOf(BinaryFile& first, BinaryFile& second) {
    if (first.Size() > second.Size()) return false;
    while (true) {
        const std::string bytes = first.ReadBytes(WaveBlockSize);
        if (bytes.empty()) return true;
        if (second.ReadBytes(static_cast<std::int32_t>(bytes.size())) != bytes) return false;
    }
}

/// What a copy of the same track that was killed left behind goes; any other file of that name is somebody's.
void DropUnfinishedCopy(FileSystem& files, const std::string& source, const std::string& target) {
    const std::string path = TemporaryFile::PathFor(target);
    const auto unfinished = files.FileExists(path) ? files.OpenRead(path) : nullptr;
    if (!unfinished) return;
    const auto whole = files.OpenReadOnly(source);
    if (whole && IsBeginningOf(*unfinished, *whole)) DeleteQuietly(files, path);
}

}  // namespace

TrackCopier::TrackCopier(App& app, WaveFile& wave, std::unordered_set<std::string> kept)
    : app_(app), wave_(wave), kept_(std::move(kept)) {}

/// What has the name already has to be a file that may be written.
bool TrackCopier::MayBeWritten(const std::string& target) const {
    if (app_.files.FolderExists(target) || IsKept(target)) return false;
    return !app_.files.FileExists(target) || app_.files.OpenRead(target) != nullptr;
}

std::int32_t TrackCopier::TryToCopy(const std::string& source, const std::string& target) {
    FileSystem& files = app_.files;
    if (!files.OpenReadOnly(source)) return CannotOpenSource;
    if (!MayBeWritten(target)) return CannotCreateTarget;
    if (IsPreview(app_)) {
        CheckBlocks(files.FileSize(source));
        return Done;
    }
    const std::string real = files.FollowLinks(target);
    if (!IsKept(TemporaryFile::PathFor(real))) DropUnfinishedCopy(files, source, real);
    TemporaryFile copy(files, real, TemporaryFile::OldFile::Keep);
    if (!copy.File()) return CannotCreateTarget;
    copy.Close();
    const std::int32_t code = wave_.CopyWave(source, copy.Path());
    if (code == Done) copy.TakePlace();
    return code;
}

/// A failure names the track in the place of the file beside it.
std::int32_t TrackCopier::CopyOrFail(const std::string& source, const std::string& target) {
    try {
        return TryToCopy(source, target);
    } catch (const RuntimeError& error) {
        TellStep(app_, "refused: " + source + ": " + error.Text());
        throw RuntimeError(error.Kind(), target);
    }
}

bool TrackCopier::Copy(const std::string& source, const std::string& target) {
    std::int32_t code = Done;
    if (CheckRuntimeError(app_, [&] { code = CopyOrFail(source, target); })) return false;
    if (code == CannotOpenSource) {
        TellStep(app_, "refused: " + source + ": can't be opened");
        ShowWarning(app_, app_.messages.GetMessage(1006, app_.ansi.ToText(source)));
    } else if (code == CannotCreateTarget) {
        TellStep(app_, "refused: " + source + ": " + target + " can't be created");
        ShowWarning(app_, app_.messages.GetMessage(1007, app_.ansi.ToText(target)));
    } else {
        TellStep(app_, "copy: " + source + " -> " + target);
    }
    return code == Done;
}

}  // namespace zefta
