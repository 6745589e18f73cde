#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/BinaryFile.h"

namespace zefta {

/// Begins the header and the footer of an APE tag, which are blocks of one form: marker 8, version 4, size 4,
/// item count 4, flags 4, reserved 8 bytes; numbers are little-endian.
inline constexpr std::string_view APEMarker = "APETAGEX";
inline constexpr std::int32_t APEBlockSize = 32;
/// The only version that is read and written.
inline constexpr std::int32_t APEVersion = 2000;

/// What stands in front of an item's key: length of the value 4 bytes, flags 4 bytes.
inline constexpr std::int32_t APEItemPrefix = 8;

/// Highest of the four bytes of flags.
namespace APEFlags {
inline constexpr std::uint8_t HasHeader = 0x80;
inline constexpr std::uint8_t IsHeader = 0x20;
}  // namespace APEFlags

struct APEBlock {
    std::int32_t version = APEVersion;
    /// Items and footer, without the header.
    std::int32_t size = 0;
    std::int32_t count = 0;
    std::uint8_t flags = 0;

    std::string Bytes() const;
};

/// The block that begins `distance` bytes before the end of the file; nothing when none begins there.
std::optional<APEBlock> ReadAPEBlock(BinaryFile& file, std::int64_t distance);

/// Moves to `distance` bytes before the end of the file. False, and the position stays, when that place does
/// not lie in the file.
bool SeekBeforeEnd(BinaryFile& file, std::int64_t distance);

}  // namespace zefta
