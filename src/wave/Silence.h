#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zefta {

/// Bounds of silence. A sample is read as 2 little-endian bytes, 0 to 65535, so that small negative samples
/// stand just below 65536.
struct SilenceBounds {
    std::int32_t minSample;
    std::int32_t maxSample;

    bool IsSilent(std::int32_t sample) const { return sample <= minSample || sample >= maxSample; }
};

// Where the search in one block stops, as byte indexes that count from 1. The span may be shorter than a
// block at the end of a file: a sample that is not there reads as 0. Channels are not told apart.

/// From the front: the first byte of the first sample that is not silent, 1, 3, 5 and so on; behind
/// `blockSize` when all are.
std::int32_t FirstAudibleByte(std::span<const std::byte> block, std::int32_t blockSize,
                              const SilenceBounds& bounds);

/// From the back: the first byte of the last sample that is not silent; -1 when all are.
std::int32_t LastAudibleByte(std::span<const std::byte> block, std::int32_t blockSize,
                             const SilenceBounds& bounds);

}  // namespace zefta
