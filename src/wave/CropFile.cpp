#include "wave/CropFile.h"

#include <algorithm>
#include <memory>
#include <optional>

#include "core/Boxes.h"
#include "core/DeleteQuietly.h"
#include "core/FileKind.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "tags/TemporaryFile.h"
#include "wave/Backup.h"
#include "wave/ByteRange.h"
#include "wave/TagWriters.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t CannotOpenToCrop = 1007;
constexpr std::int32_t NothingToDo = 1008;
/// Shown for a new file that can't be created. Kept: its text does not speak of that.
constexpr std::int32_t CannotCreateCropped = NothingToDo;
constexpr std::int32_t NotFound = 1009;
constexpr std::int32_t ReadError = 1010;

/// From the first to before the second byte position.
struct Range {
    std::int32_t start;
    std::int32_t end;
};

class Cropping {
  public:
    Cropping(App& app, const std::string& path)
        : app_(app), path_(path), real_(app.files.FollowLinks(path)), backup_(real_ + ".bak") {}

    void Run(std::int32_t& start, std::int32_t& end) {
        RefuseTwins(app_.files, real_);
        RefuseTwins(app_.files, backup_);
        if (IsMP3File(path_)) tag_ = app_.defaultWaveFile->GetMP3FileInfo(path_);
        const auto source = app_.files.OpenRead(real_);
        if (!source) return Warn(CannotOpenToCrop, backup_);
        start = std::max(start, 0);
        if (end < 1) end = source->Size();
        // An empty file is not what anybody wanted.
        if (end <= start) return Warn(ReadError, path_);
        CheckByteCount(end - start);
        if (const auto message = Keep(*source, {start, end})) Warn(*message, path_);
    }

  private:
    /// The message of what went wrong, if anything did.
    std::optional<std::int32_t> Keep(BinaryFile& source, Range range) {
        // The writers of tags look at the end of the name.
        TemporaryFile fresh(app_.files, real_, TemporaryFile::OldFile::KeepWithEnding);
        if (!fresh.File()) return CannotCreateCropped;
        source.Seek(range.start, SeekFrom::Start);
        if (!CopyBytes(app_, source, *fresh.File(), range.end - range.start)) return ReadError;
        fresh.Close();
        Complete(fresh.Path());
        TakeNames(fresh);
        if (app_.state.NoBackup) DeleteQuietly(app_.files, backup_);
        return std::nullopt;
    }

    /// Attributes, tags, and all of it on the disk.
    void Complete(const std::string& freshPath) {
        app_.files.CopyAttributes(real_, freshPath);
        if (tag_) {
            tag_->Path = freshPath;
            WriteTags(*app_.defaultWaveFile, TagJob::Crop, *tag_);
        }
        const auto written = app_.files.OpenRead(freshPath);
        if (!written || (tag_ && tag_->Path.empty()))
            throw RuntimeError(ErrorNumber::PermissionDenied, freshPath);
        written->Flush();
    }

    void TakeNames(TemporaryFile& fresh) {
        if (app_.files.FileExists(backup_)) app_.files.DeleteFile(backup_, Force::No);
        app_.files.MoveFile(real_, backup_);
        try {
            fresh.TakePlace();
        } catch (...) {
            PutBack();
            throw;
        }
    }

    void PutBack() {
        try {
            app_.files.MoveFile(backup_, real_);
        } catch (const RuntimeError&) {
            // The failure that brought us here is the one to tell; the file has its backup name.
        }
    }

    void Warn(std::int32_t message, const std::string& path) {
        ShowWarning(app_, app_.messages.GetMessage(message, app_.ansi.ToText(path)));
    }

    App& app_;
    /// As the person named it.
    std::string path_;
    /// Where the file lies behind all links.
    std::string real_;
    std::string backup_;
    /// Of an MP3 file: the range may cut its tags off.
    std::optional<ID3Tag> tag_;
};

}  // namespace

void CropFile(App& app, const std::string& path, std::int32_t& start, std::int32_t& end) {
    if (start < 1 && end < 1) return ShowWarning(app, app.messages.GetMessage(NothingToDo));
    const FolderAndMask place = EnterFolderOf(app, path);
    const std::string file = JoinPath(place.folder, place.mask);
    if (app.files.FileExists(file)) return Cropping(app, file).Run(start, end);
    ShowWarning(app, app.messages.GetMessage(NotFound, app.ansi.ToText(file)));
}

void CropFileJob(App& app) {
    CropFile(app, app.state.FileSpec, app.state.CropStart, app.state.CropEnd);
}

}  // namespace zefta
