#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/BinaryFile.h"

namespace zefta {

/// A file that is read through windows: one at its start, one at its end and one that moves between them.
/// Readers may take it byte by byte; the system is asked once a window. Content that another program changes
/// meanwhile may be seen old or new. What is written goes to the file at once.
class BufferedFile : public BinaryFile {
  public:
    static constexpr std::int32_t LongestWindow = 8192;

    /// Lengths of the windows in bytes, at most LongestWindow; none of them is filled before something in it
    /// is asked for.
    struct Windows {
        std::int32_t head;
        std::int32_t tail;
    };

    BufferedFile(std::unique_ptr<BinaryFile> file, Windows windows);

    /// Up to count bytes from a position on, in the place where they are kept; valid until the next read. The
    /// position of the file moves as with Read.
    std::string_view View(std::int32_t position, std::int32_t count);

    using BinaryFile::Write;
    std::size_t Read(std::span<std::byte> into) override;
    void Write(std::span<const std::byte> bytes) override;
    bool Seek(std::int32_t distance, SeekFrom from) override;
    std::int32_t Position() const override { return position_; }
    std::int32_t Size() const override { return size_; }
    bool IsReadOnly() const override { return file_->IsReadOnly(); }
    void SetEnd() override;
    void Flush() override { file_->Flush(); }

  private:
    static constexpr std::int32_t MiddleLength = 4096 + 64;

    /// A place for bytes that is part of the object: a reader that opens thousands of files one after the
    /// other asks for no memory. Not cleared, since it is filled before it is read.
    template <std::size_t Capacity>
    struct Window {
        Window() {}

        std::int32_t start = 0;
        std::int32_t length = 0;
        std::array<std::byte, Capacity> bytes;

        bool Holds(std::int32_t position) const { return position >= start && position - start < length; }
        void ForgetFrom(std::int32_t position) {
            if (length > position - start) length = 0;
        }
    };

    /// What the window around the position has from there on. Empty when it could not be filled up to
    /// there; none when the read is better made without a window.
    std::optional<std::span<const std::byte>> BytesHere(std::size_t wanted);
    template <std::size_t Capacity>
    std::span<const std::byte> BytesOf(Window<Capacity>& window, std::int32_t start, std::int32_t length);
    std::size_t ReadDirect(std::span<std::byte> into);
    template <typename Change>
    void ChangeFromHere(Change change);
    void TakeNewSize();

    std::unique_ptr<BinaryFile> file_;
    /// What View gives when it is not in one window.
    std::string gathered_;
    std::int32_t size_;
    std::int32_t position_ = 0;
    Windows lengths_;
    Window<LongestWindow> head_;
    Window<LongestWindow> tail_;
    Window<MiddleLength> middle_;
};

}  // namespace zefta
