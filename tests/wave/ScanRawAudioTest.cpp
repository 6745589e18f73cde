#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "wave/WaveStage.h"

namespace zefta::test {

TEST(ScanRawAudio, WithoutAQuestion_IsCdAudio) {
    WaveStage stage;
    stage.wave.RAW = true;
    ASSERT_EQ(stage.Scan(Wav().Tone(3 * Block).AudioBytes()), 0);
    EXPECT_TRUE(stage.app.desktop.questions.empty());
    const WaveFile& wave = stage.wave;
    EXPECT_EQ(wave.DataLength, 132300);
    EXPECT_EQ(wave.RiffLength, 132300);
    EXPECT_EQ(wave.DataSizePos, 0);
    EXPECT_EQ(wave.WaveFormat.FormatTag, 1);
    EXPECT_EQ(wave.WaveFormat.Channels, 2);
    EXPECT_EQ(wave.WaveFormat.SamplesPerSec, 44100);
    EXPECT_EQ(wave.WaveFormat.AvgBytesPerSec, 176400);
    EXPECT_EQ(wave.WaveFormat.BlockAlign, 4);
    EXPECT_EQ(wave.WaveFormat.BitsPerSample, 16);
}

TEST(ScanRawAudio, AnswerYes_IsTheSame) {
    WaveStage stage;
    stage.app.desktop.answers = {true};
    ASSERT_EQ(stage.Scan(Wav().Tone(3 * Block).AudioBytes()), 0);
    EXPECT_EQ(stage.wave.DataLength, 132300);
}

TEST(ScanRawAudio, RealRiffFile_IsReadByItsHeader) {
    WaveStage stage;
    stage.wave.RAW = true;
    ASSERT_EQ(stage.Scan(Wav().Rate(48000).Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.DataSizePos, 40);
    EXPECT_EQ(stage.wave.WaveFormat.SamplesPerSec, 48000);
    EXPECT_EQ(stage.Scan(Wav().FormType("AVI ").Bytes()), 4);
}

TEST(ScanRawAudio, LessThanABlock_Is7) {
    WaveStage stage;
    stage.wave.RAW = true;
    EXPECT_EQ(stage.Scan(std::string(44099, 'x')), 7);
    EXPECT_EQ(stage.Scan(""), 7);
}

TEST(ScanRawAudio, Start_CountsFromTheFirstByte) {
    WaveStage stage;
    stage.wave.RAW = true;
    ASSERT_EQ(stage.Scan(Wav().Silence(400).Tone(3 * Block).AudioBytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 400);
}

TEST(ScanRawAudio, EndInTheFirstBlock_Counts4BytesBehindTheFile) {
    WaveStage stage;
    stage.wave.RAW = true;
    ASSERT_EQ(stage.Scan(Wav().Tone(3 * Block).Silence(400).AudioBytes()), 0);
    EXPECT_EQ(stage.events.back(), (RaisedEvent{"EndOffset", 404}));
    EXPECT_EQ(stage.wave.TrimEnd, 132300 - 4);
}

TEST(ScanRawAudio, EndInALaterBlock_CountsAsInAnyFile) {
    WaveStage stage;
    stage.wave.RAW = true;
    ASSERT_EQ(stage.Scan(Wav().Tone(3 * Block).Silence(Block + 400).AudioBytes()), 0);
    EXPECT_EQ(stage.events.back(), (RaisedEvent{"EndOffset", 44500}));
    EXPECT_EQ(stage.wave.TrimEnd, 132300);
}

TEST(ScanRawAudio, Peaks_AreMeasuredFromByte4) {
    WaveStage stage;
    stage.wave.RAW = true;
    ASSERT_EQ(stage.Scan(SampleBytes({30000, -30000}) + Wav().Tone(3 * Block, 5000).AudioBytes(), true), 0);
    EXPECT_GT(stage.wave.PeakMaxLeft, 4000);
    EXPECT_LE(stage.wave.PeakMaxLeft, 5000);
    EXPECT_GE(stage.wave.PeakMinRight, -5000);
}

}  // namespace zefta::test
