#include "library/FolderAhead.h"

#include <algorithm>
#include <new>
#include <system_error>

#include "library/FolderWay.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

/// About as many as a window shows at first. The toolkit, which starts meanwhile, needs the processor more
/// than the rest of the rows do.
constexpr std::size_t MostFiles = 32;

}  // namespace

FolderAhead::FolderAhead(const FileReading& reading, const std::string& folder)
    : reading_(reading), folder_(WithoutDoubledSeparators(reading.files.ToNativePath(folder))) {
    if (!IsAbsolutePath(folder_)) return;
    try {
        result_ = std::async(std::launch::async, [this] { return Read(); });
    } catch (const std::system_error&) {
        // The machine has no thread to give: the window reads by itself.
    }
}

FolderAhead::~FolderAhead() {
    isWanted_ = false;
}

FolderAhead::Reading FolderAhead::Read() const {
    Reading reading;
    reading.stamp = reading_.files.ContentStamp(folder_);
    reading.folder.contents = ContentsOf(reading_.files, folder_, reading_.ansi);
    ReadFiles(reading.folder);
    return reading;
}

void FolderAhead::ReadFiles(ReadFolder& folder) const {
    const std::size_t count = std::min(MostFiles, folder.contents.entries.size());
    folder.files.reserve(count);
    for (std::size_t i = 0; i < count && isWanted_; ++i)
        folder.files.push_back(ReadListedFile(reading_, folder_, folder.contents.entries[i]));
}

std::optional<ReadFolder> FolderAhead::Take(const std::string& folder) {
    isWanted_ = false;
    if (folder != folder_ || !result_.valid()) return std::nullopt;
    try {
        Reading reading = result_.get();
        if (reading.stamp != reading_.files.ContentStamp(folder_)) return std::nullopt;
        return std::move(reading.folder);
    } catch (const RuntimeError&) {
        // The window tries for itself, and tells.
    } catch (const std::bad_alloc&) {
    }
    return std::nullopt;
}

}  // namespace zefta
