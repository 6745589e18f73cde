#include "library/TrackCopy.h"

#include "core/Boxes.h"
#include "core/Steps.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::int32_t Done = 0;
constexpr std::int32_t CannotOpenSource = 1;
constexpr std::int32_t CannotCreateTarget = 2;

/// A copy under way, beside its target; gone when it is dropped before it took the place.
class HalfCopy {
  public:
    HalfCopy(FileSystem& files, const std::string& target) : files_(files), target_(target) {
        constexpr int NumberedNames = 9;
        for (int number = 0; number <= NumberedNames && path_.empty(); ++number) {
            const std::string path = JoinPath(FolderPart(target), NameOf(number));
            if (files_.OpenNew(path)) path_ = path;
        }
    }

    ~HalfCopy() {
        if (path_.empty()) return;
        try {
            files_.DeleteFile(path_, Force::Yes);
        } catch (const RuntimeError&) {
            // The failure that brought us here is the one to tell.
        }
    }

    HalfCopy(const HalfCopy&) = delete;
    HalfCopy& operator=(const HalfCopy&) = delete;

    /// "" when it can't be created.
    const std::string& Path() const { return path_; }

    void TakePlace() {
        if (files_.FileExists(target_)) {
            files_.ReplaceFile(path_, target_);
        } else {
            files_.MoveFile(path_, target_);
        }
        path_.clear();
    }

  private:
    static std::string NameOf(int number) {
        return "(copy" + (number == 0 ? std::string() : "~" + std::to_string(number)) + ").tmp";
    }

    FileSystem& files_;
    std::string target_;
    std::string path_;
};

/// What has the name already has to be a file that may be written.
bool MayBeWritten(FileSystem& files, const std::string& target) {
    if (files.FolderExists(target)) return false;
    return !files.FileExists(target) || files.OpenRead(target) != nullptr;
}

std::int32_t Copy(App& app, WaveFile& wave, const std::string& source, const std::string& target) {
    FileSystem& files = app.files;
    if (!files.OpenReadOnly(source)) return CannotOpenSource;
    if (files.FollowLinks(source) == files.FollowLinks(target) || !MayBeWritten(files, target))
        return CannotCreateTarget;
    if (IsPreview(app)) return Done;
    HalfCopy copy(files, files.FollowLinks(target));
    if (copy.Path().empty()) return CannotCreateTarget;
    const std::int32_t code = wave.CopyWave(source, copy.Path());
    if (code == Done) copy.TakePlace();
    return code;
}

/// Names the track in the place of the file beside it.
std::int32_t CopyOrFailFor(App& app, WaveFile& wave, const std::string& source, const std::string& target) {
    try {
        return Copy(app, wave, source, target);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Kind(), target);
    }
}

}  // namespace

bool CopyTrack(App& app, WaveFile& wave, const std::string& source, const std::string& target) {
    std::int32_t code = Done;
    if (CheckRuntimeError(app, [&] { code = CopyOrFailFor(app, wave, source, target); })) return false;
    if (code == CannotOpenSource) ShowWarning(app, app.messages.GetMessage(1006, app.ansi.ToText(source)));
    if (code == CannotCreateTarget) ShowWarning(app, app.messages.GetMessage(1007, app.ansi.ToText(target)));
    return code == Done;
}

}  // namespace zefta
