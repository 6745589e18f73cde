#include "wave/SplitFile.h"

#include <memory>
#include <optional>
#include <utility>

#include "core/Boxes.h"
#include "core/DeleteQuietly.h"
#include "core/Numbers.h"
#include "platform/Paths.h"
#include "tags/TemporaryFile.h"
#include "wave/ByteRange.h"

namespace zefta {

namespace {

constexpr std::int32_t CannotOpenToSplit = 1006;
constexpr std::int32_t CannotCreatePart = 1007;

void WarnOfFile(App& app, std::int32_t message, const std::string& path) {
    ShowWarning(app, app.messages.GetMessage(message, app.ansi.ToText(path)));
}

/// Whether both are names of one file, be it by a link: the stamp tells one content on the disk from another.
bool IsOneFile(const FileSystem& files, const std::string& a, const std::string& b) {
    return files.FileExists(a) && files.FileExists(b) && files.ContentStamp(a) == files.ContentStamp(b);
}

/// One of the two new files, built beside the place that it takes.
class Part {
  public:
    Part(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

    const std::string& Path() const { return path_; }
    bool IsReady() const { return fresh_ && fresh_->File(); }
    BinaryFile& File() { return *fresh_->File(); }

    /// A file of the name that is there keeps its content for now; one that is not there is made, empty.
    void Create() {
        const bool isThere = files_.FileExists(path_);
        if (!(isThere ? files_.OpenRead(path_) : files_.OpenCreate(path_))) return;
        real_ = files_.FollowLinks(path_);
        isNew_ = !isThere;
        fresh_.emplace(files_, real_, TemporaryFile::OldFile::Keep);
        if (!IsReady()) Drop();
    }

    void TakePlace() { fresh_->TakePlace(); }

    /// A part that was made goes; a file that was there stays.
    void Drop() {
        fresh_.reset();
        if (isNew_) DeleteQuietly(files_, real_);
    }

  private:
    FileSystem& files_;
    std::string path_;
    /// Behind all links.
    std::string real_;
    bool isNew_ = false;
    std::optional<TemporaryFile> fresh_;
};

class Splitting {
  public:
    Splitting(App& app, const FolderAndMask& place)
        : app_(app),
          source_(JoinPath(place.folder, place.mask)),
          begin_(app.files, JoinPath(place.folder, "b_" + place.mask)),
          end_(app.files, JoinPath(place.folder, "e_" + place.mask)) {}

    void Run(std::int32_t offset) {
        const auto source = app_.files.OpenReadOnly(source_);
        if (!source) return WarnOfFile(app_, CannotOpenToSplit, source_);
        const std::int32_t rest = Subtract(source->Size(), offset);
        CheckByteCount(offset);
        CheckByteCount(rest);
        if (!Create(begin_, end_) || !Create(end_, begin_)) return;
        try {
            CopyBytes(app_, *source, begin_.File(), offset);
            source->Seek(offset, SeekFrom::Start);
            CopyBytes(app_, *source, end_.File(), rest);
            begin_.TakePlace();
            end_.TakePlace();
        } catch (...) {
            begin_.Drop();
            end_.Drop();
            throw;
        }
    }

  private:
    bool Create(Part& part, const Part& other) {
        const bool isTaken = IsOneFile(app_.files, part.Path(), source_) ||
                             (other.IsReady() && IsOneFile(app_.files, part.Path(), other.Path()));
        if (!isTaken) part.Create();
        if (!part.IsReady()) WarnOfFile(app_, CannotCreatePart, part.Path());
        return part.IsReady();
    }

    App& app_;
    std::string source_;
    Part begin_;
    Part end_;
};

}  // namespace

void SplitFile(App& app, const std::string& path, std::int32_t offset) {
    Splitting(app, EnterFolderOf(app, path)).Run(offset);
}

void SplitFileJob(App& app) {
    SplitFile(app, app.state.FileSpec, app.state.SplitOffset);
}

}  // namespace zefta
