#include <gtest/gtest.h>

#include "support/WavBuilder.h"
#include "wave/Silence.h"

namespace zefta::test {

namespace {

constexpr SilenceBounds Small = {7, 65528};
/// Not even a sample of 0 is silent.
constexpr SilenceBounds None = {-1, 65536};

std::int32_t First(const std::string& block, const SilenceBounds& bounds) {
    return FirstAudibleByte(std::as_bytes(std::span(block)), 12, bounds);
}

std::int32_t Last(const std::string& block, const SilenceBounds& bounds) {
    return LastAudibleByte(std::as_bytes(std::span(block)), 12, bounds);
}

}  // namespace

TEST(Silence, First_CountsBytesFrom1) {
    EXPECT_EQ(First(SampleBytes({9, 0, 0, 0, 0, 0}), Small), 1);
    EXPECT_EQ(First(SampleBytes({0, 0, 9, 0, 9, 0}), Small), 5);
    EXPECT_EQ(First(SampleBytes({0, 0, 0, 0, 0, 9}), Small), 11);
    EXPECT_EQ(First(SampleBytes({0, 7, -8, 0, 0, 0}), Small), 13);
}

TEST(Silence, Last_CountsBytesFrom1) {
    EXPECT_EQ(Last(SampleBytes({0, 0, 0, 0, 0, 9}), Small), 11);
    EXPECT_EQ(Last(SampleBytes({0, 9, 0, 9, 0, 0}), Small), 7);
    EXPECT_EQ(Last(SampleBytes({9, 0, 0, 0, 0, 0}), Small), 1);
    EXPECT_EQ(Last(SampleBytes({0, 7, -8, 0, 0, 0}), Small), -1);
}

TEST(Silence, ShortBlock_AbsentSamplesReadAs0) {
    EXPECT_EQ(First(SampleBytes({0, 0}), Small), 13);
    EXPECT_EQ(First("", Small), 13);
    EXPECT_EQ(First(SampleBytes({0, 0}), None), 1);
    EXPECT_EQ(Last(SampleBytes({0, 9, 0}), Small), 3);
    EXPECT_EQ(Last(SampleBytes({0, 0}), Small), -1);
    EXPECT_EQ(Last("", Small), -1);
    EXPECT_EQ(Last("", None), 11);
}

TEST(Silence, ShortBlock_HalfASampleIsFilledUpWith0) {
    EXPECT_EQ(First(SampleBytes({0}) + "\x9", Small), 3);
    EXPECT_EQ(Last(SampleBytes({0}) + "\x9", Small), 3);
    EXPECT_EQ(Last(SampleBytes({9}) + "\x1", Small), 1);
}

}  // namespace zefta::test
