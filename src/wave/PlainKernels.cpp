#include "wave/PlainKernels.h"

#include <algorithm>
#include <cmath>

namespace zefta {

namespace {

constexpr std::size_t SampleBytes = 2;

std::int16_t Load(std::span<const std::byte> block, std::size_t at) {
    const auto low = std::to_integer<std::uint16_t>(block[at]);
    const auto high = std::to_integer<std::uint16_t>(block[at + 1]);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(low | (high << 8)));
}

void Store(std::span<std::byte> block, std::size_t at, std::int16_t sample) {
    const auto bits = static_cast<std::uint16_t>(sample);
    block[at] = static_cast<std::byte>(bits & 0xFF);
    block[at + 1] = static_cast<std::byte>(bits >> 8);
}

std::int16_t Amplified(std::int16_t sample, double gain) {
    return static_cast<std::int16_t>(std::nearbyint(std::clamp(sample * gain, -32768.0, 32767.0)));
}

}  // namespace

void MeasurePlain(std::span<const std::byte> block, Peaks& peaks) {
    for (std::size_t at = 0; at + SampleBytes <= block.size(); at += SampleBytes) {
        const bool isLeft = at % (2 * SampleBytes) == 0;
        const std::int16_t sample = Load(block, at);
        std::int16_t& maximum = isLeft ? peaks.maxLeft : peaks.maxRight;
        std::int16_t& minimum = isLeft ? peaks.minLeft : peaks.minRight;
        maximum = std::max(maximum, sample);
        minimum = std::min(minimum, sample);
    }
}

void AmplifyPlain(std::span<std::byte> block, const Gains& gains) {
    for (std::size_t at = 0; at + SampleBytes <= block.size(); at += SampleBytes) {
        const double gain = at % (2 * SampleBytes) == 0 ? gains.left : gains.right;
        Store(block, at, Amplified(Load(block, at), gain));
    }
}

}  // namespace zefta
