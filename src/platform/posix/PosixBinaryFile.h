#pragma once

#include <cstdint>
#include <string>
#include <sys/stat.h>

#include "platform/BinaryFile.h"

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

  private:
    int descriptor_;
    struct stat status_;
    /// Kept up by what is written here, so that asking for it costs no system call.
    std::int64_t size_;
    std::int64_t position_ = 0;
    std::string path_;
};

}  // namespace zefta
