#include <gtest/gtest.h>

#include "support/TestApp.h"
#include "wave/WaveFile.h"

namespace zefta::test {

TEST(WaveFile, Fresh_HasItsDefaults) {
    TestApp app;
    WaveFile wave(app);
    EXPECT_FALSE(wave.ScanPassed);
    EXPECT_EQ(wave.FileName, "0");
    EXPECT_EQ(wave.MinSample, 0);
    EXPECT_EQ(wave.MaxSample, 65536);
    EXPECT_FALSE(wave.RAW);
    EXPECT_EQ(wave.Format, 0);
    EXPECT_EQ(wave.Before, 0);
    EXPECT_EQ(wave.After, 0);
    EXPECT_EQ(wave.GetNRAbove(), 0);
    EXPECT_EQ(wave.GetNRBelow(), 0);
    EXPECT_EQ(wave.StoredNRLevel(), 0);
}

TEST(WaveFile, NRValues_Above100_KeepTheOldOnes) {
    TestApp app;
    WaveFile wave(app);
    wave.SetNRLevel(95);
    wave.SetNRAbove(98);
    wave.SetNRBelow(85);
    for (const std::uint8_t value : {std::uint8_t{101}, std::uint8_t{255}}) {
        wave.SetNRLevel(value);
        wave.SetNRAbove(value);
        wave.SetNRBelow(value);
    }
    EXPECT_EQ(wave.StoredNRLevel(), 95);
    EXPECT_EQ(wave.GetNRAbove(), 98);
    EXPECT_EQ(wave.GetNRBelow(), 85);
    wave.SetNRLevel(100);
    wave.SetNRAbove(100);
    wave.SetNRBelow(0);
    EXPECT_EQ(wave.StoredNRLevel(), 100);
    EXPECT_EQ(wave.GetNRAbove(), 100);
    EXPECT_EQ(wave.GetNRBelow(), 0);
}

TEST(WaveFile, NRLevel_Read_Gives0AndMovesTheLevelIntoNRAbove) {
    TestApp app;
    WaveFile wave(app);
    wave.SetNRLevel(95);
    wave.SetNRAbove(98);
    EXPECT_EQ(wave.GetNRLevel(), 0);
    EXPECT_EQ(wave.GetNRAbove(), 95);
    EXPECT_EQ(wave.StoredNRLevel(), 95);
}

}  // namespace zefta::test
