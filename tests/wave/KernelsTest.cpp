#include <random>
#include <string>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "support/WavBuilder.h"
#include "wave/Kernels.h"

namespace zefta::test {

namespace {

std::span<std::byte> BytesOf(std::string& text) {
    return std::as_writable_bytes(std::span(text));
}
std::span<const std::byte> BytesOf(const std::string& text) {
    return std::as_bytes(std::span(text));
}

std::string RandomBytes(std::mt19937& random, std::size_t count) {
    std::string bytes(count, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() & 0xFF);
    return bytes;
}

/// Lengths around the widths of the vectors, odd ones among them, and whole blocks.
std::vector<std::size_t> Lengths() {
    std::vector<std::size_t> lengths;
    for (std::size_t length = 0; length < 140; ++length) lengths.push_back(length);
    for (std::size_t length = WaveBlockSize - 9; length <= WaveBlockSize; ++length) lengths.push_back(length);
    return lengths;
}

Peaks Measured(const Kernels& kernels, const std::string& bytes, Peaks peaks = {}) {
    kernels.measure(BytesOf(bytes), peaks);
    return peaks;
}

std::string Amplified(const Kernels& kernels, std::string bytes, const Gains& gains) {
    kernels.amplify(BytesOf(bytes), gains);
    return bytes;
}

/// Every gain that has something particular about it: ties, limits of the numbers that a form calculates in,
/// singles and values between two singles.
const std::vector<Gains>& AllGains() {
    static const std::vector<Gains> gains = [] {
        std::vector<Gains> all = {{1, 1},
                                  {0, 0},
                                  {0.5, 0.5},
                                  {2, 0.5},
                                  {-1, -1},
                                  {0.7, 1.3},
                                  {1.5, -1.5},
                                  {2.5, 0.25},
                                  {127, -127},
                                  {127.25, 128},
                                  {32767, 1},
                                  {65535, -65535},
                                  {65536, 1e5},
                                  {1e6, -1e6},
                                  {1e300, -1e300},
                                  {1e-300, 4e-310},
                                  {1e-40, 127.0000001}};
        std::mt19937 random(4);
        std::uniform_real_distribution<float> size(0.01F, 100);
        for (int i = 0; i < 40; ++i)
            all.push_back({static_cast<double>(size(random)), static_cast<double>(1 / size(random))});
        return all;
    }();
    return gains;
}

}  // namespace

TEST(Kernels, Available_ThePlainOneIsFirstAndTheBestIsLast) {
    const auto all = AvailableKernels();
    ASSERT_FALSE(all.empty());
    EXPECT_EQ(&PlainKernels(), &all.front());
    EXPECT_EQ(&BestKernels(), &all.back());
}

TEST(Kernels, MeasurePlain_Samples_GiveTheExtremesOfEachChannel) {
    const Peaks peaks = Measured(PlainKernels(), SampleBytes({5, -6, -7, 8, 1, 2}));
    EXPECT_EQ(peaks, (Peaks{5, 8, -7, -6}));
}

TEST(Kernels, MeasurePlain_OnlyNegativeSamples_LeaveTheMaximaAt0) {
    EXPECT_EQ(Measured(PlainKernels(), SampleBytes({-5, -6})), (Peaks{0, 0, -5, -6}));
}

TEST(Kernels, MeasurePlain_Zeros_LeaveTheAccumulators) {
    const Peaks before = {1, 2, -3, -4};
    EXPECT_EQ(Measured(PlainKernels(), std::string(WaveBlockSize, '\0'), before), before);
}

TEST(Kernels, MeasurePlain_OddLastByte_CountsForNothing) {
    EXPECT_EQ(Measured(PlainKernels(), SampleBytes({1, 2, 3}) + "\x7F"), (Peaks{3, 2, 0, 0}));
}

TEST(Kernels, AmplifyPlain_Halves_AreRoundedToEven) {
    const std::string bytes = SampleBytes({1, 1, 3, 3, 5, 5, -1, -1, -3, -3, 7, -7});
    EXPECT_EQ(SamplesOf(Amplified(PlainKernels(), bytes, {0.5, 1.5})),
              (std::vector{0, 2, 2, 4, 2, 8, 0, -2, -2, -4, 4, -10}));
}

TEST(Kernels, AmplifyPlain_BeyondTheLimits_IsHeldThere) {
    const std::string bytes = SampleBytes({32767, -32768, 20000, -20000, 16384, 16383});
    EXPECT_EQ(SamplesOf(Amplified(PlainKernels(), bytes, {2, 2})),
              (std::vector{32767, -32768, 32767, -32768, 32767, 32766}));
    EXPECT_EQ(SamplesOf(Amplified(PlainKernels(), SampleBytes({1, -1}), {-1e300, -1e300})),
              (std::vector{-32768, 32767}));
}

TEST(Kernels, AmplifyPlain_OddLastByte_StaysAsItIs) {
    EXPECT_EQ(Amplified(PlainKernels(), SampleBytes({100, 100, 100}) + "\x7F", {2, 3}),
              SampleBytes({200, 300, 200}) + "\x7F");
}

TEST(Kernels, EveryKernel_MeasuresAsThePlainOne) {
    std::mt19937 random(1);
    for (const Kernels& kernels : AvailableKernels()) {
        for (const std::size_t length : Lengths()) {
            const std::string bytes = RandomBytes(random, length);
            EXPECT_EQ(Measured(kernels, bytes), Measured(PlainKernels(), bytes))
                << kernels.name << " " << length;
        }
    }
}

TEST(Kernels, EveryKernel_FindsAnExtremeAtEveryPlace) {
    for (const Kernels& kernels : AvailableKernels()) {
        for (std::size_t place = 0; place < 100; ++place) {
            for (const int extreme : {32767, -32768}) {
                std::vector<int> samples(100, 0);
                samples[place] = extreme;
                const std::string bytes = SampleBytes(samples);
                EXPECT_EQ(Measured(kernels, bytes, {1, 2, -3, -4}),
                          Measured(PlainKernels(), bytes, {1, 2, -3, -4}))
                    << kernels.name << " " << place;
            }
        }
    }
}

TEST(Kernels, EveryKernel_AmplifiesAsThePlainOne) {
    std::mt19937 random(2);
    for (const Kernels& kernels : AvailableKernels()) {
        for (const std::size_t length : Lengths()) {
            const std::string bytes = RandomBytes(random, length);
            const Gains& gains = AllGains()[length % AllGains().size()];
            EXPECT_TRUE(Amplified(kernels, bytes, gains) == Amplified(PlainKernels(), bytes, gains))
                << kernels.name << " " << length << " " << gains.left;
        }
    }
}

TEST(Kernels, EveryKernel_AmplifiesEverySampleAsThePlainOne) {
    std::vector<int> samples;
    for (int sample = -32768; sample <= 32767; ++sample) samples.insert(samples.end(), {sample, sample});
    const std::string bytes = SampleBytes(samples);
    for (const Kernels& kernels : AvailableKernels()) {
        for (const Gains& gains : AllGains())
            EXPECT_TRUE(Amplified(kernels, bytes, gains) == Amplified(PlainKernels(), bytes, gains))
                << kernels.name << " " << gains.left << " " << gains.right;
    }
}

TEST(Kernels, EveryKernel_GainOf1_ChangesNothing) {
    std::mt19937 random(3);
    const std::string bytes = RandomBytes(random, WaveBlockSize);
    for (const Kernels& kernels : AvailableKernels())
        EXPECT_TRUE(Amplified(kernels, bytes, {1, 1}) == bytes) << kernels.name;
}

}  // namespace zefta::test
