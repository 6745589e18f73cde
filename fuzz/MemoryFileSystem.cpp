#include "fuzz/MemoryFileSystem.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/RuntimeError.h"

namespace zefta::fuzz {

namespace {

class MemoryFile : public BinaryFile {
  public:
    explicit MemoryFile(MemoryFileSystem::Content content) : content_(std::move(content)) {}

    using BinaryFile::Write;

    std::size_t Read(std::span<std::byte> into) override {
        const std::size_t start = std::min(position_, content_->size());
        const std::size_t count = std::min(into.size(), content_->size() - start);
        const auto bytes = std::as_bytes(std::span(*content_)).subspan(start, count);
        std::copy(bytes.begin(), bytes.end(), into.begin());
        position_ += count;
        return count;
    }

    void Write(std::span<const std::byte> bytes) override {
        if (bytes.empty()) return;
        const std::size_t end = position_ + bytes.size();
        if (end > LargestFile) throw RuntimeError(ErrorNumber::DiskFull);
        if (content_->size() < end) content_->resize(end);
        std::copy(bytes.begin(), bytes.end(),
                  std::as_writable_bytes(std::span(*content_)).subspan(position_).begin());
        position_ = end;
    }

    bool Seek(std::int32_t distance, SeekFrom from) override {
        const std::size_t start = from == SeekFrom::Start     ? 0
                                  : from == SeekFrom::Current ? position_
                                                              : content_->size();
        const std::int64_t target = static_cast<std::int64_t>(start) + distance;
        if (target < 0) return false;
        if (target > std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
        position_ = static_cast<std::size_t>(target);
        return true;
    }

    std::int32_t Position() const override { return static_cast<std::int32_t>(position_); }
    std::int32_t Size() const override { return static_cast<std::int32_t>(content_->size()); }
    bool IsReadOnly() const override { return false; }
    void SetEnd() override {
        if (position_ > LargestFile) throw RuntimeError(ErrorNumber::DiskFull);
        content_->resize(position_);
    }
    void Flush() override {}

  private:
    /// The disk of this machine is small.
    static constexpr std::size_t LargestFile = 64 << 20;

    MemoryFileSystem::Content content_;
    std::size_t position_ = 0;
};

std::unique_ptr<BinaryFile> Open(MemoryFileSystem::Content content) {
    return content ? std::make_unique<MemoryFile>(std::move(content)) : nullptr;
}

}  // namespace

std::string MemoryFileSystem::Get(const std::string& path) const {
    const auto found = files.find(path);
    return found == files.end() ? std::string() : *found->second;
}

MemoryFileSystem::Content MemoryFileSystem::Find(const std::string& path) const {
    const auto found = files.find(path);
    return found == files.end() ? nullptr : found->second;
}

void MemoryFileSystem::DeleteFile(const std::string& path, Force) {
    if (files.erase(path) == 0) throw RuntimeError(ErrorNumber::FileNotFound, path);
}

void MemoryFileSystem::MoveFile(const std::string& source, const std::string& target) {
    if (!files.contains(source)) throw RuntimeError(ErrorNumber::FileNotFound, source);
    if (files.contains(target)) throw RuntimeError(ErrorNumber::FileAlreadyExists, target);
    files[target] = std::exchange(files[source], nullptr);
    files.erase(source);
}

void MemoryFileSystem::ReplaceFile(const std::string& replacement, const std::string& target) {
    DeleteFile(target, Force::Yes);
    MoveFile(replacement, target);
}

std::unique_ptr<BinaryFile> MemoryFileSystem::OpenRead(const std::string& path) {
    return Open(Find(path));
}

std::unique_ptr<BinaryFile> MemoryFileSystem::OpenReadOnly(const std::string& path) {
    return Open(Find(path));
}

std::unique_ptr<BinaryFile> MemoryFileSystem::OpenCreate(const std::string& path) {
    Put(path, "");
    return Open(Find(path));
}

std::unique_ptr<BinaryFile> MemoryFileSystem::OpenNew(const std::string& path) {
    return files.contains(path) ? nullptr : OpenCreate(path);
}

std::int64_t MemoryFileSystem::FileSize(const std::string& path) const {
    const Content content = Find(path);
    if (!content) throw RuntimeError(ErrorNumber::FileNotFound, path);
    return static_cast<std::int64_t>(content->size());
}

std::vector<FolderEntry> MemoryFileSystem::List(const std::string&) const {
    std::vector<FolderEntry> entries;
    for (const auto& [name, content] : files) entries.push_back({name, false});
    return entries;
}

}  // namespace zefta::fuzz
