#pragma once

#include <cstdint>

#include "core/BlockCopy.h"
#include "platform/BinaryFile.h"
#include "wave/Kernels.h"

namespace zefta {

// What touches every byte of a file, a block at a time. `count` is at most WaveBlockSize; the positions of
// the files are left behind what was handled. Errors as of BinaryFile. (zftCopyBlock2 stands in BlockCopy.h.)

/// The accumulators of a measurement, by reference.
struct PeakReferences {
    std::int16_t& maxLeft;
    std::int16_t& maxRight;
    std::int16_t& minLeft;
    std::int16_t& minRight;
};

/// Reads up to `count` bytes and lets the accumulators grow by them. Gives the number of bytes read: fewer
/// than `count` at the end of the file.
std::int32_t zftGetPeaksForBlock(BinaryFile& source, std::int32_t count, const PeakReferences& peaks);

/// Copies up to `count` bytes, with the gains or, when `gains` is null, as they are. A count of 0 or below
/// copies nothing. Mono audio is taken as if its samples were of two channels in turn.
void zftCopyBlock(BinaryFile& source, BinaryFile& destination, std::int32_t count, const Gains* gains);

}  // namespace zefta
