/* Normalises a 16-bit stereo WAV file with a 44-byte header: the least that has to be done, for one kind of
 * processor, without a check of anything. Reads the file twice, once for the peaks and once for the gain, and
 * writes it once, in blocks of 44100 bytes. What the trim job is measured against.
 *
 * Usage: zefta_reference IN OUT */

#include <fcntl.h>
#include <immintrin.h>
#include <stdio.h>
#include <unistd.h>

enum { HeaderBytes = 44, BlockBytes = 44100 };

#define AVX2 __attribute__((target("avx2")))

/* Room for the last vector behind a block; what stands there is never written. */
static unsigned char Block[BlockBytes + 32] __attribute__((aligned(32)));

struct Extremes {
    __m256i highest;
    __m256i lowest;
};

AVX2 static void MeasureBlock(ssize_t count, struct Extremes* extremes) {
    __m256i highest = extremes->highest;
    __m256i lowest = extremes->lowest;
    for (ssize_t i = count; i < count + 32; ++i) Block[i] = 0;
    for (ssize_t at = 0; at < count; at += 32) {
        const __m256i samples = _mm256_load_si256((const __m256i*)(Block + at));
        highest = _mm256_max_epi16(highest, samples);
        lowest = _mm256_min_epi16(lowest, samples);
    }
    extremes->highest = highest;
    extremes->lowest = lowest;
}

AVX2 static __m256i AmplifiedHalf(__m128i samples, __m256 gain) {
    return _mm256_cvtps_epi32(_mm256_mul_ps(_mm256_cvtepi32_ps(_mm256_cvtepi16_epi32(samples)), gain));
}

AVX2 static void AmplifyBlock(ssize_t count, __m256 gain) {
    for (ssize_t at = 0; at < count; at += 32) {
        __m256i* const place = (__m256i*)(Block + at);
        const __m256i samples = _mm256_load_si256(place);
        const __m256i low = AmplifiedHalf(_mm256_castsi256_si128(samples), gain);
        const __m256i high = AmplifiedHalf(_mm256_extracti128_si256(samples, 1), gain);
        _mm256_store_si256(place, _mm256_permute4x64_epi64(_mm256_packs_epi32(low, high), 0xD8));
    }
}

static float Smaller(float a, float b) {
    return a < b ? a : b;
}

/* The gain of the channel whose samples stand at every second place from `first` on. */
AVX2 static float GainOf(const struct Extremes* extremes, int first) {
    short highest[16];
    short lowest[16];
    short maximum = 1;
    short minimum = -1;
    _mm256_storeu_si256((__m256i*)highest, extremes->highest);
    _mm256_storeu_si256((__m256i*)lowest, extremes->lowest);
    for (int i = first; i < 16; i += 2) {
        if (highest[i] > maximum) maximum = highest[i];
        if (lowest[i] < minimum) minimum = lowest[i];
    }
    return Smaller(0.95F * 32767 / maximum, 0.95F * -32768 / minimum);
}

AVX2 int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const int in = open(argv[1], O_RDONLY);
    const int out = open(argv[2], O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (in == -1 || out == -1 || read(in, Block, HeaderBytes) != HeaderBytes) return 1;
    if (write(out, Block, HeaderBytes) != HeaderBytes) return 1;

    struct Extremes extremes = {_mm256_setzero_si256(), _mm256_setzero_si256()};
    ssize_t count;
    while ((count = read(in, Block, BlockBytes)) > 0) MeasureBlock(count, &extremes);

    const float left = GainOf(&extremes, 0);
    const float right = GainOf(&extremes, 1);
    const __m256 gain = _mm256_setr_ps(left, right, left, right, left, right, left, right);
    lseek(in, HeaderBytes, SEEK_SET);
    while ((count = read(in, Block, BlockBytes)) > 0) {
        AmplifyBlock(count, gain);
        if (write(out, Block, (size_t)count) != count) return 1;
    }
    return count == 0 ? 0 : 1;
}
