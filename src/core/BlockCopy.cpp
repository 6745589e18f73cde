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

void CopyInBlocksBehind(std::string_view ahead, BinaryFile& source, BinaryFile& destination,
                        std::int32_t count) {
    std::array<std::byte, WaveBlockSize> block;
    const auto bytes = std::as_bytes(std::span(ahead));
    const std::size_t wanted = static_cast<std::size_t>(std::max(count, 0));
    if (bytes.size() + wanted > block.size()) {
        destination.Write(bytes);
        return CopyInBlocks(source, destination, count);
    }
    const auto behind = std::span(block).subspan(bytes.size(), wanted);
    std::copy(bytes.begin(), bytes.end(), block.begin());
    destination.Write(std::span(block).first(bytes.size() + source.Read(behind)));
}

}  // namespace zefta
