#include "wave/BlockPrimitives.h"

#include <algorithm>
#include <array>

namespace zefta {

std::int32_t zftGetPeaksForBlock(BinaryFile& source, std::int32_t count, const PeakReferences& peaks) {
    alignas(64) std::array<std::byte, WaveBlockSize> block;
    const auto wanted = static_cast<std::size_t>(std::clamp(count, 0, WaveBlockSize));
    const std::size_t done = source.Read(std::span(block).first(wanted));
    Peaks found = {peaks.maxLeft, peaks.maxRight, peaks.minLeft, peaks.minRight};
    BestKernels().measure(std::span(block).first(done), found);
    peaks.maxLeft = found.maxLeft;
    peaks.maxRight = found.maxRight;
    peaks.minLeft = found.minLeft;
    peaks.minRight = found.minRight;
    return static_cast<std::int32_t>(done);
}

void zftCopyBlock(BinaryFile& source, BinaryFile& destination, std::int32_t count, const Gains* gains) {
    if (gains == nullptr) return zftCopyBlock2(source, destination, count);
    if (count <= 0) return;
    alignas(64) std::array<std::byte, WaveBlockSize> block;
    const auto wanted = static_cast<std::size_t>(std::min(count, WaveBlockSize));
    const auto samples = std::span(block).first(source.Read(std::span(block).first(wanted)));
    BestKernels().amplify(samples, *gains);
    destination.Write(samples);
}

}  // namespace zefta
