#include <gtest/gtest.h>

#include "support/ExpectRuntimeError.h"
#include "wave/NormalizeGains.h"

namespace zefta::test {

namespace {

/// Below 100 always wants a change, so that the gains can be looked at.
constexpr NormalizeDecision Always(std::uint8_t level, bool commonGain = false) {
    return {level, 0, 100, commonGain};
}

constexpr Peaks BothChannels(std::int16_t maximum, std::int16_t minimum) {
    return {maximum, maximum, minimum, minimum};
}

double Single(double value) {
    return static_cast<double>(static_cast<float>(value));
}

}  // namespace

TEST(NormalizeGains, Gain_IsTheSmallerOfWhatThePeaksAllow) {
    const auto upwards = NormalizeGains({20000, 10000, -10000, -20000}, Always(95));
    ASSERT_TRUE(upwards);
    EXPECT_EQ(upwards->left, Single(95 * 32767.0 / 100 / 20000));
    EXPECT_EQ(upwards->right, Single(95 * -32768.0 / 100 / -20000));
}

TEST(NormalizeGains, Gain_SamplesOfFullScaleAtLevel100_Is1) {
    EXPECT_EQ(NormalizeGains(BothChannels(32767, -32768), Always(100))->left, 1);
}

TEST(NormalizeGains, Gain_LowestSample_GivesTheLevelAsAFraction) {
    EXPECT_EQ(NormalizeGains(BothChannels(100, -32768), Always(95))->left, Single(0.95));
}

TEST(NormalizeGains, Gain_SmallestPeaks_AreAllowed) {
    EXPECT_EQ(NormalizeGains(BothChannels(1, -1), Always(100))->left, 32767);
}

TEST(NormalizeGains, AnyPeakOf0_MeansNoGain) {
    EXPECT_FALSE(NormalizeGains({}, Always(95)));
    EXPECT_FALSE(NormalizeGains({0, 9, -9, -9}, Always(95)));
    EXPECT_FALSE(NormalizeGains({9, 0, -9, -9}, Always(95)));
    EXPECT_FALSE(NormalizeGains({9, 9, 0, -9}, Always(95)));
    EXPECT_FALSE(NormalizeGains({9, 9, -9, 0}, Always(95)));
}

TEST(NormalizeGains, LevelOf0_IsADivisionByZero) {
    for (const bool commonGain : {false, true})
        EXPECT_EQ(RuntimeErrorOf([&] { NormalizeGains(BothChannels(9, -9), Always(0, commonGain)); }), 11);
    // Nothing is computed for a file without peaks.
    EXPECT_FALSE(NormalizeGains({}, Always(0)));
}

TEST(NormalizeGains, Decision_IncludesItsBounds) {
    struct Row {
        std::uint8_t above;
        std::uint8_t below;
        bool runs;
    };
    // The peaks stand at exactly 50 per cent of the target.
    constexpr Row Rows[] = {{98, 50, true}, {98, 90, true}, {60, 40, false}, {98, 49, false}, {51, 0, false},
                            {50, 0, true},  {49, 0, true},  {0, 0, true},    {100, 100, true}};
    for (const Row& row : Rows) {
        const auto gains = NormalizeGains(BothChannels(16383, -16384), {100, row.above, row.below, false});
        EXPECT_EQ(gains.has_value(), row.runs) << int{row.above} << " " << int{row.below};
        // The second formula gives the smaller gain, and a whole one.
        EXPECT_EQ(gains.value_or(Gains{2, 2}).left, 2);
    }
}

TEST(NormalizeGains, Decision_OneChannelIsEnough) {
    constexpr NormalizeDecision Decision = {100, 98, 55, false};
    constexpr std::int16_t Middle = 22937;  // 70 per cent
    EXPECT_FALSE(NormalizeGains({Middle, Middle, -Middle, -Middle}, Decision));
    EXPECT_TRUE(NormalizeGains({16383, Middle, -16384, -Middle}, Decision));
    EXPECT_TRUE(NormalizeGains({Middle, 16383, -Middle, -16384}, Decision));
    EXPECT_TRUE(NormalizeGains({Middle, 32767, -Middle, -32768}, Decision));
    EXPECT_TRUE(NormalizeGains({32767, Middle, -32768, -Middle}, Decision));
}

TEST(NormalizeGains, CommonGain_LessThanHalfADecibelApart_IsTheSmaller) {
    const auto gains = NormalizeGains({20000, 21000, -20000, -21000}, Always(95, true));
    EXPECT_EQ(gains->left, gains->right);
    EXPECT_EQ(gains->left, Single(95 * 32767.0 / 100 / 21000));
}

TEST(NormalizeGains, CommonGain_HalfADecibelApart_StaysApart) {
    // 0.5 dB is a ratio of 1.0593.
    const auto apart = NormalizeGains({20000, 21190, -20000, -21190}, Always(95, true));
    EXPECT_GT(apart->left, apart->right);
    const auto close = NormalizeGains({20000, 21180, -20000, -21180}, Always(95, true));
    EXPECT_EQ(close->left, close->right);
}

TEST(NormalizeGains, CommonGain_NotAsked_KeepsTheChannelsApart) {
    const auto gains = NormalizeGains({20000, 20001, -20000, -20001}, Always(95));
    EXPECT_GT(gains->left, gains->right);
}

TEST(NormalizeGains, CommonGain_DecidesTheLevelsToo) {
    // 84 and 86 per cent of the target: apart, the left channel is at or below 85; with the gain of the right
    // one both stand at 86.
    constexpr Peaks Levels = {27524, 28180, -27524, -28180};
    EXPECT_TRUE(NormalizeGains(Levels, {100, 98, 85, false}));
    EXPECT_FALSE(NormalizeGains(Levels, {100, 98, 85, true}));
}

}  // namespace zefta::test
