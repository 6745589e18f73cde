#include "wave/NormalizeGains.h"

#include <algorithm>
#include <cmath>

#include "core/ByteCodec.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

/// Gain of one channel in single precision: the smaller of what its two peaks allow.
float GainOf(int level, std::int16_t maximum, std::int16_t minimum) {
    const auto upwards = static_cast<float>(level * 32767.0 / 100 / maximum);
    const auto downwards = static_cast<float>(level * -32768.0 / 100 / minimum);
    return std::min(upwards, downwards);
}

/// Whether the channel's peak, in per cent of the target (100: it stands there already), asks for a change.
bool WantsChange(float gain, const NormalizeDecision& decision) {
    const double level = 100.0 / static_cast<double>(gain);
    return level <= decision.below || level >= decision.above;
}

bool LieClose(float left, float right) {
    constexpr double CloseInDb = 0.5;
    const double leftDb = ByteCodec::RatioToDb(1 / static_cast<double>(left));
    const double rightDb = ByteCodec::RatioToDb(1 / static_cast<double>(right));
    return std::abs(leftDb - rightDb) < CloseInDb;
}

}  // namespace

std::optional<Gains> NormalizeGains(const Peaks& peaks, const NormalizeDecision& decision) {
    if (peaks.maxLeft == 0 || peaks.minLeft == 0 || peaks.maxRight == 0 || peaks.minRight == 0)
        return std::nullopt;
    float left = GainOf(decision.level, peaks.maxLeft, peaks.minLeft);
    float right = GainOf(decision.level, peaks.maxRight, peaks.minRight);
    if (left == 0 || right == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    if (decision.commonGain && LieClose(left, right)) left = right = std::min(left, right);
    if (!WantsChange(left, decision) && !WantsChange(right, decision)) return std::nullopt;
    return Gains{static_cast<double>(left), static_cast<double>(right)};
}

}  // namespace zefta
