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

/// 1.5 * 2^23: singles of this size have no fraction, up to 2^22 on both sides. A product that is added to it
/// in one fused step is rounded once, from its exact value to a whole number, half to even.
constexpr float RoundingTerm = 12582912;

/// Whether the fused step gives what the product in double precision does.
bool FitFusedStep(const Gains& gains) {
    constexpr double Largest = 127;
    const auto fits = [](double gain) {
        return std::abs(gain) <= Largest && static_cast<double>(static_cast<float>(gain)) == gain;
    };
    return fits(gains.left) && fits(gains.right);
}

/// Eight samples times the gains, as 32-bit numbers.
__attribute__((target("avx2,fma"))) inline __m256i AmplifiedAvx2(__m128i samples, __m256 gain) {
    const __m256 term = _mm256_set1_ps(RoundingTerm);
    const __m256 sum = _mm256_fmadd_ps(_mm256_cvtepi32_ps(_mm256_cvtepi16_epi32(samples)), gain, term);
    return _mm256_sub_epi32(_mm256_castps_si256(sum), _mm256_castps_si256(term));
}

__attribute__((target("avx2,fma"))) void AmplifyAvx2(std::span<std::byte> block, const Gains& gains) {
    if (!FitFusedStep(gains)) return AmplifySse2(block, gains);
    const auto left = static_cast<float>(gains.left);
    const auto right = static_cast<float>(gains.right);
    const __m256 gain = _mm256_setr_ps(left, right, left, right, left, right, left, right);
    std::size_t at = 0;
    for (; at + Avx2Bytes <= block.size(); at += Avx2Bytes) {
        auto* const place = reinterpret_cast<__m256i*>(block.data() + at);
        const __m256i samples = _mm256_loadu_si256(place);
        const __m256i low = AmplifiedAvx2(_mm256_castsi256_si128(samples), gain);
        const __m256i high = AmplifiedAvx2(_mm256_extracti128_si256(samples, 1), gain);
        // Packing interleaves the two by quarters.
        const __m256i packed = _mm256_permute4x64_epi64(_mm256_packs_epi32(low, high), 0b11'01'10'00);
        _mm256_storeu_si256(place, packed);
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
    const bool hasAvx2 = __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("fma") != 0;
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
