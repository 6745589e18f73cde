#include "library/ScanCount.h"

#include "core/Numbers.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::int32_t FoldersMessage = 32016;
constexpr std::int32_t FilesMessage = 32017;
constexpr double Kibi = 1024;

}  // namespace

void ScanCount::AddFile(std::int64_t bytes) {
    PassFile();
    ++files_;
    try {
        bytes_ = Add(bytes_, ToI32(bytes));
    } catch (const RuntimeError&) {
        // The scan goes on with the sum so far.
    }
}

std::string ScanCount::CountText(Messages& messages) const {
    if (hasMetFiles_) return messages.GetMessage(FilesMessage, std::to_string(files_));
    return folders_ > 0 ? messages.GetMessage(FoldersMessage, std::to_string(folders_)) : std::string();
}

std::string ScanCount::SizeText() const {
    if (!hasMetFiles_) return {};
    const std::int32_t kilobytes = ToI32(bytes_ / Kibi);
    // The mask of the number has no place for a zero.
    return (kilobytes == 0 ? std::string() : GroupedText(kilobytes)) + " K";
}

}  // namespace zefta
