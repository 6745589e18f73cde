#include "platform/BufferedFile.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/RuntimeError.h"

namespace zefta {

BufferedFile::BufferedFile(std::unique_ptr<BinaryFile> file, Windows windows)
    : file_(std::move(file)), size_(file_->Size()), lengths_(windows) {
    lengths_.head = std::clamp(windows.head, 0, LongestWindow);
    lengths_.tail = std::clamp(windows.tail, 0, LongestWindow);
}

std::size_t BufferedFile::Read(std::span<std::byte> into) {
    std::size_t done = 0;
    while (done < into.size() && position_ < size_) {
        const auto rest = into.subspan(done);
        const auto bytes = BytesHere(rest.size());
        if (!bytes) return done + ReadDirect(rest);
        if (bytes->empty()) break;
        const std::size_t count = std::min(rest.size(), bytes->size());
        std::copy_n(bytes->begin(), count, rest.begin());
        done += count;
        position_ += static_cast<std::int32_t>(count);
    }
    return done;
}

std::string_view BufferedFile::View(std::int32_t position, std::int32_t count) {
    Seek(position, SeekFrom::Start);
    const auto wanted = static_cast<std::size_t>(std::clamp(count, 0, std::max(size_ - position, 0)));
    if (wanted == 0) return {};
    const auto bytes = BytesHere(wanted);
    if (!bytes || bytes->size() < wanted) return gathered_ = ReadBytes(count);
    position_ += static_cast<std::int32_t>(wanted);
    return {reinterpret_cast<const char*>(bytes->data()), wanted};
}

std::optional<std::span<const std::byte>> BufferedFile::BytesHere(std::size_t wanted) {
    const std::int32_t headEnd = std::min(lengths_.head, size_);
    if (position_ < headEnd) return BytesOf(head_, 0, headEnd);
    const std::int32_t tailStart = std::max(headEnd, size_ - lengths_.tail);
    if (position_ >= tailStart) return BytesOf(tail_, tailStart, size_ - tailStart);
    // What goes on behind the window is fetched whole with a new one.
    const bool holdsAll = middle_.start + middle_.length >=
                          std::min<std::int64_t>(tailStart, position_ + static_cast<std::int64_t>(wanted));
    if (middle_.Holds(position_) && holdsAll) return BytesOf(middle_, middle_.start, middle_.length);
    if (wanted >= static_cast<std::size_t>(MiddleLength)) return std::nullopt;
    middle_.length = 0;
    return BytesOf(middle_, position_, std::min(MiddleLength, tailStart - position_));
}

template <std::size_t Capacity>
std::span<const std::byte> BufferedFile::BytesOf(Window<Capacity>& window, std::int32_t start,
                                                 std::int32_t length) {
    if (window.length == 0) {
        window.start = start;
        file_->Seek(start, SeekFrom::Start);
        const auto place = std::span(window.bytes).first(static_cast<std::size_t>(length));
        window.length = static_cast<std::int32_t>(file_->Read(place));
    }
    if (!window.Holds(position_)) return {};
    return std::span<const std::byte>(window.bytes)
        .first(static_cast<std::size_t>(window.length))
        .subspan(static_cast<std::size_t>(position_ - window.start));
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

void BufferedFile::Write(std::span<const std::byte> bytes) {
    ChangeFromHere([&] { file_->Write(bytes); });
    position_ = file_->Position();
}

void BufferedFile::SetEnd() {
    ChangeFromHere([&] { file_->SetEnd(); });
}

/// What is in front of the position stays known. A change that fails may have been made in part.
template <typename Change>
void BufferedFile::ChangeFromHere(Change change) {
    head_.ForgetFrom(position_);
    middle_.ForgetFrom(position_);
    tail_.ForgetFrom(position_);
    file_->Seek(position_, SeekFrom::Start);
    try {
        change();
    } catch (const RuntimeError&) {
        TakeNewSize();
        throw;
    }
    TakeNewSize();
}

/// The windows at the start and at the end are other ones in a file of another size.
void BufferedFile::TakeNewSize() {
    const std::int32_t size = file_->Size();
    if (size == size_) return;
    size_ = size;
    if (head_.length < lengths_.head) head_.length = 0;
    middle_.length = 0;
    tail_.length = 0;
}

}  // namespace zefta
