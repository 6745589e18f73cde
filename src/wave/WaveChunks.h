#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/BinaryFile.h"

namespace zefta {

/// Identifier and size field of a chunk; the position is behind them.
struct WaveChunk {
    std::string identifier;
    /// As it stands in the file: may be negative or larger than what follows.
    std::int32_t size = 0;
};

/// Bytes of the format chunk that say all that its readers want to know.
inline constexpr std::int32_t ReadOfFormat = 16;

/// The next chunk of a RIFF file, or nothing when the walk is over: at a position greater than `riffLength`
/// (which does not count the 8 bytes in front of it; a position equal to it has one more chunk), or at the
/// end of the file.
std::optional<WaveChunk> NextChunk(BinaryFile& file, std::int32_t riffLength);

/// Goes behind a body, of which `done` bytes were read. No pad byte is looked for behind an odd size.
/// RuntimeError 5 for a negative size, which would lead back and round for ever; 6 for a place behind
/// 2147483647.
void SkipBody(BinaryFile& file, const WaveChunk& chunk, std::int32_t done = 0);

/// The size field behind the position, as 4 little-endian bytes.
std::int32_t ReadLong(BinaryFile& file);
std::int16_t ReadShort(BinaryFile& file);

}  // namespace zefta
