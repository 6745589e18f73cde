#include "wave/Silence.h"

#include <algorithm>

namespace zefta {

namespace {

std::int32_t ByteAt(std::span<const std::byte> block, std::int32_t index) {
    const auto at = static_cast<std::size_t>(index);
    return at <= block.size() ? std::to_integer<std::int32_t>(block[at - 1]) : 0;
}

std::int32_t SampleAt(std::span<const std::byte> block, std::int32_t index) {
    return ByteAt(block, index) | (ByteAt(block, index + 1) << 8);
}

/// Whether the samples that are not there are silent, as zeros are within sensible bounds.
bool AbsentIsSilent(const SilenceBounds& bounds) {
    return bounds.IsSilent(0);
}

}  // namespace

std::int32_t FirstAudibleByte(std::span<const std::byte> block, std::int32_t blockSize,
                              const SilenceBounds& bounds) {
    std::int32_t index = 1;
    for (; index <= blockSize; index += 2) {
        // Behind the end of the file there are only zeros: nothing to look at one by one.
        if (static_cast<std::size_t>(index) > block.size() && AbsentIsSilent(bounds)) return blockSize + 1;
        if (!bounds.IsSilent(SampleAt(block, index))) break;
    }
    return index;
}

std::int32_t LastAudibleByte(std::span<const std::byte> block, std::int32_t blockSize,
                             const SilenceBounds& bounds) {
    std::int32_t index = blockSize - 1;
    if (AbsentIsSilent(bounds)) {
        const auto last = static_cast<std::int32_t>(block.size());
        index = std::min(index, last - 1 + last % 2);
    }
    for (; index >= 0; index -= 2) {
        if (!bounds.IsSilent(SampleAt(block, index))) break;
    }
    return index;
}

}  // namespace zefta
