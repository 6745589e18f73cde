#pragma once

#include <cstdint>

namespace zefta {

class WaveFile;

/// Bytes of digital silence around the audio of a rewritten file.
struct SilenceLayout {
    std::int32_t before = 0;
    std::int32_t after = 0;
};

/// The layout that the Format of a scanned file asks for. Formats 1, 2 and 3 fill the file up to whole CD
/// frames. The numbers don't depend on the sample rate.
SilenceLayout LayoutOf(const WaveFile& wave);

}  // namespace zefta
