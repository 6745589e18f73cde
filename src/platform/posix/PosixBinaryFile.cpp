#include "platform/posix/PosixBinaryFile.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>
#include <utility>

#include "platform/CheckedPosition.h"
#include "platform/posix/SystemErrors.h"

namespace zefta {

namespace {

/// Repeats a call that a signal broke off.
template <typename Call>
auto Uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

struct stat StatusOf(int descriptor, const std::string& path) {
    struct stat status;
    if (fstat(descriptor, &status) == -1) ThrowSystemError(path);
    return status;
}

}  // namespace

PosixBinaryFile::PosixBinaryFile(int descriptor, const struct stat& status, std::string path)
    : descriptor_(descriptor), status_(status), size_(status.st_size), path_(std::move(path)) {}

PosixBinaryFile::PosixBinaryFile(int descriptor, const std::string& path)
    : PosixBinaryFile(descriptor, StatusOf(descriptor, path), path) {}

PosixBinaryFile::~PosixBinaryFile() {
    close(descriptor_);
}

std::size_t PosixBinaryFile::Read(std::span<std::byte> into) {
    std::size_t done = 0;
    while (done < into.size()) {
        const ssize_t count = Uninterrupted(
            [&] { return pread(descriptor_, into.data() + done, into.size() - done, position_); });
        if (count == -1) ThrowSystemError(path_);
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
        position_ += count;
    }
    return done;
}

void PosixBinaryFile::Write(std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count =
            Uninterrupted([&] { return pwrite(descriptor_, bytes.data(), bytes.size(), position_); });
        if (count == -1) ThrowSystemError(path_);
        position_ += count;
        size_ = std::max(size_, position_);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

bool PosixBinaryFile::Seek(std::int32_t distance, SeekFrom from) {
    const std::int64_t start = from == SeekFrom::Start ? 0 : from == SeekFrom::Current ? position_ : size_;
    const std::int64_t target = start + distance;
    if (target < 0) return false;
    position_ = CheckedPosition(target);
    return true;
}

std::int32_t PosixBinaryFile::Position() const {
    return CheckedPosition(position_);
}

std::int32_t PosixBinaryFile::Size() const {
    return CheckedPosition(size_);
}

void PosixBinaryFile::SetEnd() {
    if (Uninterrupted([&] { return ftruncate(descriptor_, position_); }) == -1) ThrowSystemError(path_);
    size_ = position_;
}

void PosixBinaryFile::Flush() {
    if (Uninterrupted([&] { return fsync(descriptor_); }) == -1) ThrowSystemError(path_);
}

}  // namespace zefta
