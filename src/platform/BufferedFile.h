#pragma once

#include <cstdint>
#include <memory>

#include "platform/BinaryFile.h"

namespace zefta {

/// A file for reading that is seen through windows: one at its start, one at its end and one that moves
/// between them. Readers may take it byte by byte; the system is asked once a window. Content that another
/// program changes meanwhile may be seen old or new.
///
/// Writing, ending and flushing fail with RuntimeError 70.
class BufferedFile : public BinaryFile {
  public:
    /// Lengths of the windows in bytes; none of them is filled before something in it is asked for.
    struct Windows {
        std::int32_t head;
        std::int32_t tail;
    };

    BufferedFile(std::unique_ptr<BinaryFile> file, Windows windows);

    using BinaryFile::Write;
    std::size_t Read(std::span<std::byte> into) override;
    void Write(std::span<const std::byte> bytes) override;
    bool Seek(std::int32_t distance, SeekFrom from) override;
    std::int32_t Position() const override { return position_; }
    std::int32_t Size() const override { return size_; }
    bool IsReadOnly() const override { return file_->IsReadOnly(); }
    void SetEnd() override;
    void Flush() override;

  private:
    struct Window {
        std::unique_ptr<std::byte[]> bytes;
        std::int32_t capacity = 0;
        std::int32_t start = 0;
        std::int32_t length = 0;

        bool Holds(std::int32_t position) const { return position >= start && position - start < length; }
    };

    /// The window that holds the position, filled; null when the read is better made without one.
    Window* WindowAt(std::int32_t position, std::size_t wanted);
    void Fill(Window& window, std::int32_t start, std::int32_t length);
    std::size_t ReadDirect(std::span<std::byte> into);

    std::unique_ptr<BinaryFile> file_;
    std::int32_t size_;
    std::int32_t position_ = 0;
    Windows lengths_;
    Window head_;
    Window tail_;
    Window middle_;
};

}  // namespace zefta
