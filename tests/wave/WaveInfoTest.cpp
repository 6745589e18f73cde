#include <filesystem>

#include <gtest/gtest.h>

#include "core/ByteCodec.h"
#include "wave/WaveStage.h"

namespace zefta::test {

namespace {

ID3Tag InfoOf(WaveStage& stage, const std::string& bytes) {
    return stage.wave.GetWaveInfo(stage.app.folder.Write("a.wav", bytes));
}

}  // namespace

TEST(GetWaveInfo, StereoFile_GivesItsData) {
    WaveStage stage;
    const std::string bytes = Wav().Silence(10 * 176400 + 80000).Chunk("LIST", "behind").Bytes();
    const ID3Tag tag = InfoOf(stage, bytes);
    EXPECT_EQ(tag.Path, stage.app.folder / "a.wav");
    EXPECT_EQ(tag.Length, 1844000);
    EXPECT_EQ(tag.SampleRate, 44100);
    EXPECT_EQ(tag.ChannelMode, 0);
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_EQ(tag.Bitrate, 0);
}

TEST(GetWaveInfo, Seconds_AreRoundedHalfToEven) {
    WaveStage stage;
    EXPECT_EQ(InfoOf(stage, Wav().Silence(88200).Bytes()).Seconds, 0);
    EXPECT_EQ(InfoOf(stage, Wav().Silence(88204).Bytes()).Seconds, 1);
    EXPECT_EQ(InfoOf(stage, Wav().Silence(176400 + 88200).Bytes()).Seconds, 2);
}

TEST(GetWaveInfo, MonoFile_LastsTwiceAsLong) {
    WaveStage stage;
    const ID3Tag tag = InfoOf(stage, Wav().Mono().Silence(352800).Bytes());
    EXPECT_EQ(tag.ChannelMode, 3);
    EXPECT_EQ(tag.Seconds, 4);
}

TEST(GetWaveInfo, OtherNumbersOfChannels_CountAsMono) {
    WaveStage stage;
    for (const std::int16_t channels :
         {std::int16_t{0}, std::int16_t{3}, std::int16_t{6}, std::int16_t{-1}}) {
        const ID3Tag tag = InfoOf(stage, Wav().Channels(channels).Silence(352800).Bytes());
        EXPECT_EQ(tag.ChannelMode, 3) << channels;
        EXPECT_EQ(tag.Seconds, 4) << channels;
    }
}

TEST(GetWaveInfo, OtherSampleSizes_AreTakenFor16Bit) {
    WaveStage stage;
    EXPECT_EQ(InfoOf(stage, Wav().Bits(8).Silence(352800).Bytes()).Seconds, 2);
    EXPECT_EQ(InfoOf(stage, Wav().FormatTag(3).Bits(32).Silence(352800).Bytes()).Seconds, 2);
    EXPECT_EQ(
        InfoOf(stage, Wav().FormatTag(-2).FormatExtra(std::string(24, 'x')).Silence(352800).Bytes()).Seconds,
        2);
}

TEST(GetWaveInfo, FileThatCannotBeOpened_HasAnEmptyPath) {
    WaveStage stage;
    EXPECT_EQ(stage.wave.GetWaveInfo("absent.wav").Path, "");
    EXPECT_EQ(stage.wave.GetWaveInfo(stage.app.folder.Path()).Path, "");
    const std::string path = stage.app.folder.Write("a.wav", Wav().Silence(400).Bytes());
    stage.app.files.SetReadOnly(path, true);
    EXPECT_EQ(stage.wave.GetWaveInfo(path).Path, "");
}

TEST(GetWaveInfo, DoubledSeparators_BecomeSingleOnes) {
    WaveStage stage;
    stage.app.folder.Write("a.wav", Wav().Silence(400).Bytes());
    EXPECT_EQ(stage.wave.GetWaveInfo(stage.app.folder.Path() + "//a.wav").Path, stage.app.folder / "a.wav");
}

TEST(GetWaveInfo, NoRiff_IsNoWaveFile) {
    WaveStage stage;
    const ID3Tag tag = InfoOf(stage, "ID3 something else");
    EXPECT_EQ(tag.Path, stage.app.folder / "a.wav");
    EXPECT_EQ(tag.Length, 18);
    EXPECT_EQ(tag.Bitrate, -1);
}

TEST(GetWaveInfo, OtherFormType_IsNoWaveFile) {
    WaveStage stage;
    const ID3Tag tag = InfoOf(stage, Wav().FormType("AVI ").Silence(400).Bytes());
    EXPECT_EQ(tag.Bitrate, -1);
    EXPECT_EQ(tag.Length, 444);
}

TEST(GetWaveInfo, FormatChunkBelow16_IsNoWaveFile) {
    WaveStage stage;
    for (const std::int32_t size : {15, 0, -1}) {
        EXPECT_EQ(InfoOf(stage, Wav().FormatSize(size).Silence(400).Bytes()).Bitrate, -1) << size;
    }
}

TEST(GetWaveInfo, LongerFormatAndOtherChunks_AreSkipped) {
    WaveStage stage;
    const ID3Tag tag = InfoOf(
        stage, Wav().FormatExtra("extra").Chunk("LIST", "odd").Rate(48000).Silence(192000 * 3).Bytes());
    EXPECT_EQ(tag.SampleRate, 48000);
    EXPECT_EQ(tag.Length, 576000);
    EXPECT_EQ(tag.Seconds, 3);
}

TEST(GetWaveInfo, DataAheadOfFormat_IsSkippedAndCounts) {
    WaveStage stage;
    const ID3Tag tag = InfoOf(stage, Wav().DataAheadOfFormat().Silence(2 * 176400).Bytes());
    EXPECT_EQ(tag.Length, 352800);
    EXPECT_EQ(tag.SampleRate, 44100);
    EXPECT_EQ(tag.Seconds, 2);
    EXPECT_EQ(tag.Bitrate, 0);
}

TEST(GetWaveInfo, ChunkAtThePositionOfTheRiffSize_IsStillRead) {
    WaveStage stage;
    EXPECT_EQ(InfoOf(stage, Wav().Silence(176400).RiffSize(36).Bytes()).Length, 176400);
    EXPECT_EQ(InfoOf(stage, Wav().Silence(176400).RiffSize(35).Bytes()).Length, 176444);
}

TEST(GetWaveInfo, SecondDataChunk_IsNotLookedAt) {
    WaveStage stage;
    EXPECT_EQ(InfoOf(stage, Wav().Silence(176400).Chunk("data", "12").Bytes()).Length, 176400);
}

TEST(GetWaveInfo, NoFormat_IsNoWaveFile) {
    WaveStage stage;
    EXPECT_EQ(InfoOf(stage, Wav().WithoutFormat().Silence(400).Bytes()).Bitrate, -1);
    EXPECT_EQ(InfoOf(stage, Wav().Rate(0).Silence(400).Bytes()).Bitrate, -1);
}

TEST(GetWaveInfo, EveryChunk_ServesTheEventLoop) {
    WaveStage stage;
    InfoOf(stage, Wav().Chunk("LIST", "a").Chunk("cue ", "b").Silence(400).Bytes());
    EXPECT_EQ(stage.app.desktop.servedEvents, 3);
}

TEST(GetWaveInfo, SizesThatLead32BitsAstray_AreNoWaveFile) {
    WaveStage stage;
    for (const std::int32_t size : {-1, -8, -16, 2147483647, -2147483647 - 1}) {
        const std::string list =
            "RIFF" + ByteCodec::FromLong(2147483647) + "WAVE" + ChunkBytes("LIST", "ab", size);
        EXPECT_EQ(InfoOf(stage, list).Bitrate, -1) << size;
        EXPECT_EQ(InfoOf(stage, Wav().DataAheadOfFormat().Silence(400).DataSize(size).Bytes()).Bitrate, -1)
            << size;
    }
}

TEST(GetWaveInfo, FileLongerThan32Bits_IsNoWaveFile) {
    WaveStage stage;
    const std::string path = stage.app.folder.Write("a.wav", Wav().Silence(400).Bytes());
    std::filesystem::resize_file(path, 2147483648LL);
    EXPECT_EQ(stage.wave.GetWaveInfo(path).Bitrate, -1);
}

TEST(GetWaveInfo, CutAtEveryByte_IsNeverAFailure) {
    WaveStage stage;
    const std::string whole =
        Wav().FormatExtra("xx").Chunk("LIST", "odd").Silence(40).Chunk("id3 ", "x").Bytes();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const ID3Tag tag = InfoOf(stage, whole.substr(0, length));
        EXPECT_NE(tag.Path, "") << length;
        // Up to the sample rate there is nothing to divide by.
        EXPECT_EQ(tag.Bitrate == -1, length < 25) << length;
    }
}

}  // namespace zefta::test
