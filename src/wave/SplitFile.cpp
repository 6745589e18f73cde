#include "wave/SplitFile.h"

#include <memory>

#include "core/Boxes.h"
#include "core/DeleteQuietly.h"
#include "core/Numbers.h"
#include "platform/Paths.h"
#include "wave/ByteRange.h"

namespace zefta {

namespace {

constexpr std::int32_t CannotOpen = 1006;
constexpr std::int32_t CannotCreate = 1007;

void WarnOfFile(App& app, std::int32_t message, const std::string& path) {
    ShowWarning(app, app.messages.GetMessage(message, app.ansi.ToText(path)));
}

/// Whether both are names of one file, be it by a link: the stamp tells one content on the disk from another.
bool IsOneFile(const FileSystem& files, const std::string& a, const std::string& b) {
    return files.FileExists(a) && files.FileExists(b) && files.ContentStamp(a) == files.ContentStamp(b);
}

/// One of the two new files.
struct Part {
    std::string path;
    std::unique_ptr<BinaryFile> file;
};

class Splitting {
  public:
    Splitting(App& app, const FolderAndMask& place)
        : app_(app),
          source_(JoinPath(place.folder, place.mask)),
          begin_{JoinPath(place.folder, "b_" + place.mask), nullptr},
          end_{JoinPath(place.folder, "e_" + place.mask), nullptr} {}

    void Run(std::int32_t offset) {
        const auto source = app_.files.OpenReadOnly(source_);
        if (!source) return WarnOfFile(app_, CannotOpen, source_);
        const std::int32_t rest = Subtract(source->Size(), offset);
        CheckByteCount(offset);
        CheckByteCount(rest);
        if (!Create(begin_, end_) || !Create(end_, begin_)) return;
        try {
            CopyBytes(app_, *source, *begin_.file, offset);
            source->Seek(offset, SeekFrom::Start);
            CopyBytes(app_, *source, *end_.file, rest);
        } catch (...) {
            Drop(begin_);
            Drop(end_);
            throw;
        }
    }

  private:
    bool Create(Part& part, const Part& other) {
        const bool isTaken = IsOneFile(app_.files, part.path, source_) ||
                             (other.file && IsOneFile(app_.files, part.path, other.path));
        if (!isTaken) part.file = app_.files.OpenCreate(part.path);
        if (!part.file) WarnOfFile(app_, CannotCreate, part.path);
        return part.file != nullptr;
    }

    void Drop(Part& part) {
        part.file.reset();
        DeleteQuietly(app_.files, part.path);
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
