#pragma once

#include <cstdint>
#include <string_view>

#include "platform/BinaryFile.h"

namespace zefta {

/// Bytes that every pass over audio handles at a time, whatever the sample rate: a quarter of a second of
/// 16-bit stereo at 44100 Hz.
inline constexpr std::int32_t WaveBlockSize = 44100;

/// Copies up to `count` bytes (at most WaveBlockSize; 0 or below copies nothing) as they are, from the one
/// current position to the other, and leaves both behind them. Errors as of BinaryFile.
void zftCopyBlock2(BinaryFile& source, BinaryFile& destination, std::int32_t count);

/// Copies `count` bytes by zftCopyBlock2, in whole blocks and one block of the rest.
void CopyInBlocks(BinaryFile& source, BinaryFile& destination, std::int32_t count);

/// Writes `ahead` and then does the same; both are one write where they fit into a block.
void CopyInBlocksBehind(std::string_view ahead, BinaryFile& source, BinaryFile& destination,
                        std::int32_t count);

}  // namespace zefta
