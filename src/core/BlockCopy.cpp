#include "core/BlockCopy.h"

#include <algorithm>
#include <array>
#include <span>

namespace zefta {

void zftCopyBlock2(BinaryFile& source, BinaryFile& destination, std::int32_t count) {
    if (count <= 0) return;
    std::array<std::byte, WaveBlockSize> block;
    const auto wanted = std::span(block).first(static_cast<std::size_t>(std::min(count, WaveBlockSize)));
    destination.Write(wanted.first(source.Read(wanted)));
}

void CopyInBlocks(BinaryFile& source, BinaryFile& destination, std::int32_t count) {
    for (; count > 0; count -= WaveBlockSize) zftCopyBlock2(source, destination, count);
}

}  // namespace zefta
