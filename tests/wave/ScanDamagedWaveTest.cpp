#include <filesystem>
#include <random>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "wave/WaveStage.h"

namespace zefta::test {

TEST(ScanDamagedWave, SkippedChunkOfNegativeSize_IsError5) {
    for (const std::int32_t size : {-1, -8, -12, -2147483647 - 1}) {
        WaveStage stage;
        const std::string list = ChunkBytes("LIST", "abcd", size);
        EXPECT_EQ(
            RuntimeErrorOf([&] { stage.Scan("RIFF\x20\x4E\1\1WAVE" + list + Wav().Tone(Block).Bytes()); }), 5)
            << size;
    }
}

TEST(ScanDamagedWave, SkippedChunkBehind32Bits_IsError6) {
    WaveStage stage;
    EXPECT_EQ(RuntimeErrorOf(
                  [&] { stage.Scan("RIFF\xFF\xFF\xFF\x7FWAVE" + ChunkBytes("LIST", "abcd", 2147483647)); }),
              6);
}

TEST(ScanDamagedWave, SkippedChunkBehindTheFile_EndsTheWalk) {
    WaveStage stage;
    EXPECT_EQ(stage.Scan("RIFF\xFF\xFF\xFF\x7FWAVE" + ChunkBytes("LIST", "abcd", 2000000000)), 0);
    EXPECT_EQ(stage.wave.DataLength, 0);
}

TEST(ScanDamagedWave, RiffSizeOf0OrLess_FindsNoAudio) {
    for (const std::int32_t size : {0, -1, -2147483647 - 1}) {
        WaveStage stage;
        EXPECT_EQ(stage.Scan(Wav().Tone(2 * Block).RiffSize(size).Bytes()), 0);
        EXPECT_EQ(stage.wave.DataLength, 0);
    }
}

TEST(ScanDamagedWave, DataSizeBehindTheFile_ReadsZerosThere) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(400).Tone(2 * Block).DataSize(1000000).Bytes(), true), 0);
    EXPECT_EQ(stage.wave.TrimStart, 400);
    EXPECT_EQ(stage.wave.TrimEnd, 88600);
    EXPECT_GT(stage.wave.PeakMaxLeft, 4000);
}

TEST(ScanDamagedWave, 32767SilentBlocks_OverflowTheirCount) {
    WaveStage stage;
    EXPECT_EQ(RuntimeErrorOf([&] { stage.Scan(Wav().Silence(Block).DataSize(1445110000).Bytes()); }), 6);
    EXPECT_EQ(RuntimeErrorOf([&] { stage.Scan(Wav().Tone(Block).DataSize(2147480000).Bytes()); }), 6);
    EXPECT_FALSE(stage.wave.ScanPassed);
}

TEST(ScanDamagedWave, 32766SilentBlocks_AreCounted) {
    WaveStage stage;
    EXPECT_EQ(stage.Scan(Wav().Silence(Block).DataSize(32767 * WaveBlockSize).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 32766 * WaveBlockSize);
}

TEST(ScanDamagedWave, CutAnywhere_GivesACodeOrAFailure) {
    WaveStage stage;
    const std::string whole = Wav()
                                  .FormatExtra("xx")
                                  .Chunk("LIST", "odd")
                                  .Silence(40)
                                  .Tone(Block)
                                  .Silence(44)
                                  .Chunk("id3 ", "x")
                                  .Bytes();
    const std::string path = stage.app.folder.Write("a.wav", whole);
    for (std::size_t length = whole.size(); length-- > 0;) {
        // Every byte of what has a meaning, and some of the audio in between.
        if (length > 150 && length < whole.size() - 150 && length % 97 != 0) continue;
        std::filesystem::resize_file(path, length);
        std::int32_t code = 0;
        const int failure = RuntimeErrorOf([&] { code = stage.wave.ScanWave(path, true); });
        EXPECT_TRUE(failure == 0 || failure == 11) << length;
        EXPECT_TRUE(length >= 4 || code == 3) << length;
        EXPECT_LE(code, 7);
    }
}

TEST(ScanDamagedWave, AnyByteOfTheHeaderChanged_GivesACodeOrAFailure) {
    WaveStage stage;
    const std::string whole = Wav().Chunk("LIST", "odd").Tone(Block).Silence(44).Bytes();
    const std::string path = stage.app.folder.Write("a.wav", whole);
    const auto file = stage.app.files.OpenRead(path);
    for (std::int32_t at = 0; at < 60; ++at) {
        for (const char value : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
            file->Seek(at, SeekFrom::Start);
            file->Write(std::string(1, value));
            const int failure = RuntimeErrorOf([&] { stage.wave.ScanWave(path, true); });
            EXPECT_TRUE(failure == 0 || failure == 5 || failure == 6 || failure == 11)
                << at << " " << failure;
        }
        file->Seek(at, SeekFrom::Start);
        file->Write(whole.substr(static_cast<std::size_t>(at), 1));
    }
}

TEST(ScanDamagedWave, RandomSizes_NeverLoseTheFile) {
    std::mt19937 random(1);
    constexpr std::int32_t Sizes[] = {0,     1,     15,    16,     17,         36, 44099,
                                      44100, 44101, 88200, 100000, 2147483647, -1, -8};
    const auto anySize = [&] {
        return random() % 2 == 0 ? Sizes[random() % std::size(Sizes)] : static_cast<std::int32_t>(random());
    };
    for (int round = 0; round < 300; ++round) {
        WaveStage stage;
        stage.wave.Format = static_cast<std::int32_t>(random() % 7);
        stage.wave.SetNRLevel(95);
        stage.wave.SetNRBelow(100);
        Wav file = Wav().Chunk("LIST", "odd").Silence(600).Tone(2 * Block).Silence(1000).Chunk("cue ", "x");
        if (random() % 3 == 0) file.RiffSize(anySize());
        if (random() % 3 == 0) file.DataSize(anySize());
        if (random() % 3 == 0) file.FormatSize(anySize());
        if (random() % 8 == 0) file.DataAheadOfFormat();
        const std::string source = file.Bytes();
        const int failure = RuntimeErrorOf([&] {
            if (stage.Scan(source, true) == 0) stage.wave.ProcessWave(true);
        });
        EXPECT_TRUE(failure == 0 || failure == 5 || failure == 6 || failure == 11) << failure;
        const std::string kept = stage.app.folder.Exists("a.wav.BAK") ? "a.wav.BAK" : "a.wav";
        EXPECT_TRUE(SameBytes(stage.app.folder.Read(kept), source)) << round;
    }
}

}  // namespace zefta::test
