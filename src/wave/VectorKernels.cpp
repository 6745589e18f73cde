// The kernels in the vector instructions of x86-64. Each handles whole vectors, whose first sample is always
// a left one, and leaves the rest of the block to the plain form.

#include "wave/Kernels.h"
#include "wave/PlainKernels.h"

#if defined(__x86_64__)

#include <cmath>
#include <immintrin.h>

namespace zefta {

namespace {

constexpr std::size_t Sse2Bytes = 16;
constexpr std::size_t Avx2Bytes = 32;

/// Brings the extremes of four interleaved stereo frames into the accumulators, by way of the plain form.
void Collect(__m128i maxima, __m128i minima, Peaks& peaks) {
    alignas(16) std::byte samples[Sse2Bytes];
    _mm_store_si128(reinterpret_cast<__m128i*>(samples), maxima);
    MeasurePlain(samples, peaks);
    _mm_store_si128(reinterpret_cast<__m128i*>(samples), minima);
    MeasurePlain(samples, peaks);
}

void MeasureSse2(std::span<const std::byte> block, Peaks& peaks) {
    __m128i maxima = _mm_setzero_si128();
    __m128i minima = _mm_setzero_si128();
    std::size_t at = 0;
    for (; at + Sse2Bytes <= block.size(); at += Sse2Bytes) {
        const __m128i samples = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block.data() + at));
        maxima = _mm_max_epi16(maxima, samples);
        minima = _mm_min_epi16(minima, samples);
    }
    Collect(maxima, minima, peaks);
    MeasurePlain(block.subspan(at), peaks);
}

/// Whether no product of these gains leaves 32 bits: packing then holds it at the limits of 16 bits, and
/// nothing else has to.
bool Fit32Bits(const Gains& gains) {
    constexpr double Largest = 65535;
    return std::abs(gains.left) <= Largest && std::abs(gains.right) <= Largest;
}

void AmplifySse2(std::span<std::byte> block, const Gains& gains) {
    if (!Fit32Bits(gains)) return AmplifyPlain(block, gains);
    const __m128d gain = _mm_set_pd(gains.right, gains.left);
    const auto amplified = [&](__m128i pair) {
        return _mm_cvtpd_epi32(_mm_mul_pd(_mm_cvtepi32_pd(pair), gain));
    };
    std::size_t at = 0;
    for (; at + Sse2Bytes <= block.size(); at += Sse2Bytes) {
        auto* const place = reinterpret_cast<__m128i*>(block.data() + at);
        const __m128i samples = _mm_loadu_si128(place);
        // A 16-bit sample in the upper half of a 32-bit lane, shifted down, keeps its sign.
        const __m128i first = _mm_srai_epi32(_mm_unpacklo_epi16(samples, samples), 16);
        const __m128i second = _mm_srai_epi32(_mm_unpackhi_epi16(samples, samples), 16);
        const __m128i low = _mm_unpacklo_epi64(amplified(first), amplified(_mm_srli_si128(first, 8)));
        const __m128i high = _mm_unpacklo_epi64(amplified(second), amplified(_mm_srli_si128(second, 8)));
        _mm_storeu_si128(place, _mm_packs_epi32(low, high));
    }
    AmplifyPlain(block.subspan(at), gains);
}

__attribute__((target("avx2"))) void MeasureAvx2(std::span<const std::byte> block, Peaks& peaks) {
    __m256i maxima = _mm256_setzero_si256();
    __m256i minima = _mm256_setzero_si256();
    std::size_t at = 0;
    for (; at + Avx2Bytes <= block.size(); at += Avx2Bytes) {
        const __m256i samples = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(block.data() + at));
        maxima = _mm256_max_epi16(maxima, samples);
        minima = _mm256_min_epi16(minima, samples);
    }
    Collect(_mm_max_epi16(_mm256_castsi256_si128(maxima), _mm256_extracti128_si256(maxima, 1)),
            _mm_min_epi16(_mm256_castsi256_si128(minima), _mm256_extracti128_si256(minima, 1)), peaks);
    MeasurePlain(block.subspan(at), peaks);
}

/// Four samples times the gains, as 32-bit numbers.
__attribute__((target("avx2"))) inline __m128i AmplifiedAvx2(__m128i samples, __m256d gain) {
    return _mm256_cvtpd_epi32(_mm256_mul_pd(_mm256_cvtepi32_pd(_mm_cvtepi16_epi32(samples)), gain));
}

__attribute__((target("avx2"))) void AmplifyAvx2(std::span<std::byte> block, const Gains& gains) {
    if (!Fit32Bits(gains)) return AmplifyPlain(block, gains);
    const __m256d gain = _mm256_set_pd(gains.right, gains.left, gains.right, gains.left);
    std::size_t at = 0;
    for (; at + Sse2Bytes <= block.size(); at += Sse2Bytes) {
        auto* const place = reinterpret_cast<__m128i*>(block.data() + at);
        const __m128i samples = _mm_loadu_si128(place);
        const __m128i low = AmplifiedAvx2(samples, gain);
        const __m128i high = AmplifiedAvx2(_mm_srli_si128(samples, 8), gain);
        _mm_storeu_si128(place, _mm_packs_epi32(low, high));
    }
    AmplifyPlain(block.subspan(at), gains);
}

constexpr Kernels Table[] = {
    {"plain", MeasurePlain, AmplifyPlain},
    {"SSE2", MeasureSse2, AmplifySse2},
    {"AVX2", MeasureAvx2, AmplifyAvx2},
};

}  // namespace

std::span<const Kernels> AvailableKernels() {
    const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0;
    return std::span(Table).first(hasAvx2 ? 3 : 2);
}

}  // namespace zefta

#else

namespace zefta {

namespace {

constexpr Kernels Table[] = {{"plain", MeasurePlain, AmplifyPlain}};

}  // namespace

std::span<const Kernels> AvailableKernels() {
    return Table;
}

}  // namespace zefta

#endif
