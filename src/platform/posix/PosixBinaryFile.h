#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <utility>

#include "platform/BinaryFile.h"
#include "platform/posix/OpenFolder.h"

namespace zefta {

/// A file behind a descriptor. The position is kept here, so that moving it costs no system call.
class PosixBinaryFile : public BinaryFile {
  public:
    /// Takes over the descriptor of a file that has this status.
    PosixBinaryFile(int descriptor, const struct stat& status, std::string path);
    /// Takes over the descriptor and asks for the status.
    PosixBinaryFile(int descriptor, const std::string& path);
    ~PosixBinaryFile() override;

    using BinaryFile::Write;
    std::size_t Read(std::span<std::byte> into) override;
    void Write(std::span<const std::byte> bytes) override;
    bool Seek(std::int32_t distance, SeekFrom from) override;
    std::int32_t Position() const override;
    std::int32_t Size() const override;
    bool IsReadOnly() const override { return (status_.st_mode & S_IWUSR) == 0; }
    void SetEnd() override;
    void Flush() override;

    const struct stat& StatusAtOpening() const { return status_; }

    /// The folder in which it was made, so that work on its name need not open that again. Null where it was
    /// not kept.
    const OpenFolder* Folder() const { return folder_.get(); }
    void KeepFolder(std::unique_ptr<const OpenFolder> folder) { folder_ = std::move(folder); }

  private:
    int descriptor_;
    struct stat status_;
    /// Kept up by what is written here, so that asking for it costs no system call.
    std::int64_t size_;
    std::int64_t position_ = 0;
    std::string path_;
    std::unique_ptr<const OpenFolder> folder_;
};

}  // namespace zefta
