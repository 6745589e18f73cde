#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace zefta {

/// Smallest and largest samples seen so far; each starts at 0, so that a maximum is never below and a minimum
/// never above it.
struct Peaks {
    std::int16_t maxLeft = 0;
    std::int16_t maxRight = 0;
    std::int16_t minLeft = 0;
    std::int16_t minRight = 0;

    bool operator==(const Peaks&) const = default;
};

/// Finite factors of the two channels.
struct Gains {
    double left = 1;
    double right = 1;
};

/// The two loops that touch every sample of a file. Audio is 16-bit little-endian, left and right
/// alternating; a last odd byte counts for nothing and stays as it is.
struct Kernels {
    const char* name;
    void (*measure)(std::span<const std::byte> block, Peaks& peaks);
    /// Each sample times the gain of its channel, rounded to the nearest (half to even) and held at the
    /// limits of 16 bits.
    void (*amplify)(std::span<std::byte> block, const Gains& gains);
};

/// The plain form, against which the others are tested.
const Kernels& PlainKernels();

/// All that this processor can run, the plain one first, the fastest last.
std::span<const Kernels> AvailableKernels();

/// The fastest; chosen once.
const Kernels& BestKernels();

}  // namespace zefta
