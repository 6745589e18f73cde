#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace zefta {

enum class SeekFrom { Start, Current, End };

/// Byte-exact access to one open file. Made by FileSystem; closed when it is destroyed.
///
/// Positions and sizes are signed 32-bit byte counts, as in every format that the program writes: an
/// operation that would have to tell a larger one fails with RuntimeError 6 and changes nothing.
class BinaryFile {
  public:
    BinaryFile() = default;
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;
    virtual ~BinaryFile() = default;

    /// Reads up to into.size() bytes at the current position and moves behind them. Returns how many were
    /// read; fewer than asked only at the end of the file. RuntimeError 57 when the device fails.
    virtual std::size_t Read(std::span<std::byte> into) = 0;

    /// Writes all bytes at the current position and moves behind them. RuntimeError 61 when the disk is
    /// full, 57 when the device fails, 70 when the file was opened for reading only.
    virtual void Write(std::span<const std::byte> bytes) = 0;

    /// Moves the position, which may lie behind the end. False, and the position stays, when the target
    /// lies before the start. RuntimeError 6 when it lies behind 2147483647.
    virtual bool Seek(std::int32_t distance, SeekFrom from) = 0;

    virtual std::int32_t Position() const = 0;
    virtual std::int32_t Size() const = 0;

    /// Whether the file carried the read-only attribute when it was opened.
    virtual bool IsReadOnly() const = 0;

    /// Ends the file at the current position. Errors as of Write.
    virtual void SetEnd() = 0;

    /// Returns when the file's content is on the disk. RuntimeError 57 or 61 when it can't get there.
    virtual void Flush() = 0;

    // The same operations on texts that hold bytes.
    // (A class that overrides Write says `using BinaryFile::Write;`.)

    void Write(std::string_view bytes) { Write(std::as_bytes(std::span(bytes))); }

    /// Up to count bytes at the current position. The size of the allocation is bounded by what the file
    /// still holds; a count of 0 or below reads nothing.
    std::string ReadBytes(std::int32_t count);

    /// A text field of count bytes.
    std::string ReadText(std::int32_t count) { return std::string(TextOfField(ReadBytes(count))); }

    /// The text of a field of fixed width: ends before its first NUL, and trailing blanks are taken away.
    static std::string_view TextOfField(std::string_view field);
};

}  // namespace zefta
