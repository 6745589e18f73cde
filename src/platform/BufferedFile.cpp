#include "platform/BufferedFile.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::int32_t MiddleLength = 4096 + 64;

}  // namespace

BufferedFile::BufferedFile(std::unique_ptr<BinaryFile> file, Windows windows)
    : file_(std::move(file)), size_(file_->Size()), lengths_(windows) {}

std::size_t BufferedFile::Read(std::span<std::byte> into) {
    std::size_t done = 0;
    while (done < into.size() && position_ < size_) {
        const auto rest = into.subspan(done);
        const Window* window = WindowAt(position_, rest.size());
        if (window == nullptr) return done + ReadDirect(rest);
        if (!window->Holds(position_)) break;
        const std::int32_t offset = position_ - window->start;
        const auto count = std::min(rest.size(), static_cast<std::size_t>(window->length - offset));
        std::copy_n(window->bytes.get() + offset, count, rest.begin());
        done += count;
        position_ += static_cast<std::int32_t>(count);
    }
    return done;
}

BufferedFile::Window* BufferedFile::WindowAt(std::int32_t position, std::size_t wanted) {
    const std::int32_t headEnd = std::min(lengths_.head, size_);
    const std::int32_t tailStart = std::max(headEnd, size_ - lengths_.tail);
    if (position < headEnd) {
        if (head_.length == 0) Fill(head_, 0, headEnd);
        return &head_;
    }
    if (position >= tailStart) {
        if (tail_.length == 0) Fill(tail_, tailStart, size_ - tailStart);
        return &tail_;
    }
    if (middle_.Holds(position)) return &middle_;
    if (wanted >= static_cast<std::size_t>(MiddleLength)) return nullptr;
    Fill(middle_, position, std::min(MiddleLength, tailStart - position));
    return &middle_;
}

void BufferedFile::Fill(Window& window, std::int32_t start, std::int32_t length) {
    if (window.capacity < length) {
        window.bytes = std::make_unique_for_overwrite<std::byte[]>(static_cast<std::size_t>(length));
        window.capacity = length;
    }
    window.start = start;
    window.length = 0;
    file_->Seek(start, SeekFrom::Start);
    const std::span<std::byte> bytes(window.bytes.get(), static_cast<std::size_t>(length));
    window.length = static_cast<std::int32_t>(file_->Read(bytes));
}

std::size_t BufferedFile::ReadDirect(std::span<std::byte> into) {
    file_->Seek(position_, SeekFrom::Start);
    const std::size_t count = file_->Read(into);
    position_ += static_cast<std::int32_t>(count);
    return count;
}

bool BufferedFile::Seek(std::int32_t distance, SeekFrom from) {
    const std::int64_t start = from == SeekFrom::Start ? 0 : from == SeekFrom::Current ? position_ : size_;
    const std::int64_t target = start + distance;
    if (target < 0) return false;
    if (target > std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
    position_ = static_cast<std::int32_t>(target);
    return true;
}

void BufferedFile::Write(std::span<const std::byte>) {
    throw RuntimeError(ErrorNumber::PermissionDenied);
}

void BufferedFile::SetEnd() {
    throw RuntimeError(ErrorNumber::PermissionDenied);
}

void BufferedFile::Flush() {
    throw RuntimeError(ErrorNumber::PermissionDenied);
}

}  // namespace zefta
