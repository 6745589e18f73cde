#pragma once

#include <cstdint>
#include <optional>

#include "wave/Kernels.h"

namespace zefta {

/// What decides whether and how far a file is normalised; per cents of full scale.
struct NormalizeDecision {
    std::uint8_t level = 0;
    std::uint8_t above = 0;
    std::uint8_t below = 0;
    /// Takes the smaller gain for both channels when they lie less than 0.5 dB apart.
    bool commonGain = false;
};

/// The gains that bring each channel's peak to the level, or nothing when the file keeps its level: a peak of
/// 0 on any side (a file that was not measured), or both channels between `below` and `above`. RuntimeError
/// 11 for a level of 0.
std::optional<Gains> NormalizeGains(const Peaks& peaks, const NormalizeDecision& decision);

}  // namespace zefta
