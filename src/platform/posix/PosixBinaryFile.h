#pragma once

#include <cstdint>
#include <string>

#include "platform/BinaryFile.h"

namespace zefta {

/// A file behind a descriptor. The position is kept here, so that moving it costs no system call.
class PosixBinaryFile : public BinaryFile {
  public:
    /// Takes over the descriptor.
    PosixBinaryFile(int descriptor, std::string path);
    ~PosixBinaryFile() override;

    using BinaryFile::Write;
    std::size_t Read(std::span<std::byte> into) override;
    void Write(std::span<const std::byte> bytes) override;
    bool Seek(std::int32_t distance, SeekFrom from) override;
    std::int32_t Position() const override;
    std::int32_t Size() const override;
    void SetEnd() override;
    void Flush() override;

  private:
    std::int64_t LongSize() const;

    int descriptor_;
    std::int64_t position_ = 0;
    std::string path_;
};

}  // namespace zefta
