#include "wave/CropFile.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

#include "core/Boxes.h"
#include "core/DeleteQuietly.h"
#include "core/FileKind.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "wave/ByteRange.h"
#include "wave/TagWriters.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t CannotOpen = 1007;
constexpr std::int32_t NothingToDo = 1008;
/// Shown for a new file that can't be created. Kept: its text does not speak of that.
constexpr std::int32_t CannotCreate = NothingToDo;
constexpr std::int32_t NotFound = 1009;
constexpr std::int32_t ReadError = 1010;

/// A path that has no second spelling in its folder: once the file has moved away, a file that is another one
/// would be taken for it.
void RefuseTwins(const FileSystem& files, const std::string& path) {
    const std::string name = NamePart(path);
    const std::vector<FolderEntry> entries = files.List(FolderPart(path));
    const auto names = std::count_if(entries.begin(), entries.end(), [&](const FolderEntry& entry) {
        return EqualsIgnoringCase(entry.name, name);
    });
    if (names > 1) throw RuntimeError(ErrorNumber::FileAlreadyExists, path);
}

/// The new file, until it takes the name of the old one: "~1" and so on in front of that name, since the end
/// of a name tells the kind of the file to the writers of tags. Gone again when it is dropped before.
class SideFile {
  public:
    SideFile(FileSystem& files, const std::string& target) : files_(files) {
        constexpr int MostTries = 9;
        for (int number = 1; number <= MostTries && !file_; ++number) {
            path_ = JoinPath(FolderPart(target), "~" + std::to_string(number) + NamePart(target));
            file_ = files_.OpenNew(path_);
        }
        pending_ = file_ != nullptr;
    }
    ~SideFile() {
        file_.reset();
        if (pending_) DeleteQuietly(files_, path_);
    }
    SideFile(const SideFile&) = delete;
    SideFile& operator=(const SideFile&) = delete;

    /// Null when it can't be created, and once it is closed.
    BinaryFile* File() const { return file_.get(); }
    const std::string& Path() const { return path_; }
    void Close() { file_.reset(); }

    void MoveTo(const std::string& target) {
        files_.MoveFile(path_, target);
        pending_ = false;
    }

  private:
    FileSystem& files_;
    std::string path_;
    std::unique_ptr<BinaryFile> file_;
    bool pending_ = false;
};

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
        if (!source) return Warn(CannotOpen, path_ + ".bak");
        start = std::max(start, 0);
        if (end < 1) end = source->Size();
        CheckByteCount(end - start);
        if (const auto message = Keep(*source, {start, end})) Warn(*message, path_);
    }

  private:
    /// The message of what went wrong, if anything did.
    std::optional<std::int32_t> Keep(BinaryFile& source, Range range) {
        SideFile fresh(app_.files, real_);
        if (!fresh.File()) return CannotCreate;
        source.Seek(range.start, SeekFrom::Start);
        // A range that ends before it begins can't be read either; an empty file is not what anybody wanted.
        const bool isWhole =
            range.end >= range.start && CopyBytes(app_, source, *fresh.File(), range.end - range.start);
        if (!isWhole) return ReadError;
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

    void TakeNames(SideFile& fresh) {
        if (app_.files.FileExists(backup_)) app_.files.DeleteFile(backup_, Force::No);
        app_.files.MoveFile(real_, backup_);
        try {
            fresh.MoveTo(real_);
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
