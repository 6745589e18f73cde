#include <filesystem>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "wave/WaveStage.h"

namespace zefta::test {

namespace {

long OpenDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                         std::filesystem::directory_iterator());
}

}  // namespace

// What is refused.

TEST(ScanWave, Scan_MissingFile_Is1) {
    WaveStage stage;
    EXPECT_EQ(stage.wave.ScanWave("absent.wav", false), 1);
    EXPECT_EQ(stage.wave.FileName, "absent.wav");
    EXPECT_FALSE(stage.wave.ScanPassed);
}

TEST(ScanWave, Scan_Folder_Is1) {
    WaveStage stage;
    EXPECT_EQ(stage.wave.ScanWave(stage.app.folder.Path(), false), 1);
}

TEST(ScanWave, Scan_ReadOnlyFile_Is2) {
    WaveStage stage;
    const std::string path = stage.app.folder.Write("a.wav", Wav().Tone(2 * Block).Bytes());
    stage.app.files.SetReadOnly(path, true);
    EXPECT_EQ(stage.wave.ScanWave(path, false), 2);
}

TEST(ScanWave, Scan_NoRiffAndAnswerNo_Is3) {
    WaveStage stage;
    stage.app.desktop.answers = {false};
    EXPECT_EQ(stage.Scan("RIFX" + std::string(2 * Block, '\0')), 3);
    ASSERT_EQ(stage.app.desktop.questions.size(), 1U);
    EXPECT_EQ(stage.app.desktop.questions[0].text,
              "\"" + stage.app.folder / "a.wav" +
                  "\" is not a valid RIFF/WAVE format file.\r\n\r\nTreat it as a 16 bit 44100 Hz file?");
    EXPECT_EQ(stage.app.desktop.questions[0].caption, "Read Error!");
}

TEST(ScanWave, Scan_EmptyFile_AsksAndIs3) {
    WaveStage stage;
    EXPECT_EQ(stage.Scan(""), 3);
    EXPECT_EQ(stage.app.desktop.questions.size(), 1U);
}

TEST(ScanWave, Scan_OtherFormType_Is4) {
    WaveStage stage;
    EXPECT_EQ(stage.Scan(Wav().FormType("AVI ").Tone(2 * Block).Bytes()), 4);
    EXPECT_EQ(stage.wave.FileName, stage.app.folder / "a.wav");
}

TEST(ScanWave, Scan_FormatChunkBelow16_Is5) {
    for (const std::int32_t size : {15, 14, 0, -1}) {
        WaveStage stage;
        EXPECT_EQ(stage.Scan(Wav().FormatSize(size).Tone(2 * Block).Bytes()), 5) << size;
    }
}

TEST(ScanWave, Scan_Format_DecidesBetween0And6) {
    struct Row {
        Wav file;
        std::int32_t code;
    };
    const std::vector<Row> rows = {
        {Wav(), 0},
        {Wav().Rate(48000), 0},
        {Wav().Mono(), 0},
        {Wav().Mono().Rate(48000), 0},
        {Wav().Rate(22050), 6},
        {Wav().Rate(44099), 6},
        {Wav().Rate(96000), 6},
        {Wav().Rate(-44100), 6},
        {Wav().Bits(8), 6},
        {Wav().Bits(24), 6},
        {Wav().Bits(32), 6},
        {Wav().Bits(0), 6},
        {Wav().FormatTag(3).Bits(32), 6},
        {Wav().FormatTag(3), 6},
        {Wav().FormatTag(-2).FormatExtra(std::string(24, '\1')), 6},
        {Wav().Channels(0), 6},
        {Wav().Channels(3), 6},
        {Wav().Channels(-1), 6},
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        WaveStage stage;
        Wav file = rows[i].file;
        EXPECT_EQ(stage.Scan(file.Tone(2 * Block).Bytes()), rows[i].code) << i;
        EXPECT_EQ(stage.events.empty(), rows[i].code != 0) << i;
        EXPECT_TRUE(stage.app.desktop.boxes.empty()) << i;
    }
}

TEST(ScanWave, Scan_DataOfLessThanABlock_Is7) {
    for (const std::int32_t size : {44099, 0, -1}) {
        WaveStage stage;
        EXPECT_EQ(stage.Scan(Wav().Tone(Block).DataSize(size).Bytes()), 7) << size;
        EXPECT_FALSE(stage.wave.ScanPassed);
    }
}

TEST(ScanWave, Scan_EveryRefusal_ClosesTheFileAndLeavesItAlone) {
    WaveStage stage;
    const std::vector<std::string> refused = {"RIFX", Wav().FormType("AVI ").Bytes(),
                                              Wav().FormatSize(15).Bytes(), Wav().Bits(8).Tone(Block).Bytes(),
                                              Wav().Tone(44098).Bytes()};
    for (std::size_t i = 0; i < refused.size(); ++i) {
        const long before = OpenDescriptors();
        EXPECT_EQ(stage.Scan(refused[i]), static_cast<std::int32_t>(i) + 3);
        EXPECT_EQ(OpenDescriptors(), before);
        EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), refused[i]));
    }
}

// The chunk walk.

TEST(ScanWave, Scan_ValidFile_FillsTheFields) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Rate(48000).Tone(2 * Block).Bytes()), 0);
    const WaveFile& wave = stage.wave;
    EXPECT_EQ(wave.FileName, stage.app.folder / "a.wav");
    EXPECT_EQ(wave.DataLength, 88200);
    EXPECT_EQ(wave.RiffLength, 88200 + 36);
    EXPECT_EQ(wave.DataSizePos, 40);
    EXPECT_EQ(wave.WaveFormat.FormatTag, 1);
    EXPECT_EQ(wave.WaveFormat.Channels, 2);
    EXPECT_EQ(wave.WaveFormat.SamplesPerSec, 48000);
    EXPECT_EQ(wave.WaveFormat.AvgBytesPerSec, 192000);
    EXPECT_EQ(wave.WaveFormat.BlockAlign, 4);
    EXPECT_EQ(wave.WaveFormat.BitsPerSample, 16);
    EXPECT_TRUE(wave.ScanPassed);
}

TEST(ScanWave, Scan_LongerFormatChunk_SkipsItsRest) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().FormatExtra(std::string(24, 'x')).Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.DataSizePos, 64);
}

TEST(ScanWave, Scan_OtherChunkOfOddSize_IsSkippedWithoutPadByte) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Chunk("LIST", "data\1\2\3\4odd").Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.DataSizePos, 40 + 8 + 11);
    EXPECT_EQ(stage.wave.DataLength, 88200);
}

TEST(ScanWave, Scan_ChunkBehindTheAudio_IsPassedOver) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(2 * Block).Chunk("LIST", "artist").Bytes()), 0);
    EXPECT_EQ(stage.wave.DataLength, 88200);
    EXPECT_EQ(stage.wave.TrimEnd, 88200);
}

TEST(ScanWave, Scan_ChunkAtThePositionOfTheRiffSize_IsStillRead) {
    WaveStage stage;
    EXPECT_EQ(stage.Scan(Wav().Tone(2 * Block).RiffSize(36).Bytes()), 0);
    EXPECT_EQ(stage.wave.DataLength, 88200);
}

TEST(ScanWave, Scan_ChunkBehindThePositionOfTheRiffSize_IsNotRead) {
    WaveStage stage;
    EXPECT_EQ(stage.Scan(Wav().Tone(2 * Block).RiffSize(35).Bytes()), 0);
    EXPECT_TRUE(stage.wave.ScanPassed);
    EXPECT_EQ(stage.wave.DataLength, 0);
    EXPECT_EQ(stage.wave.TrimEnd, 0);
    EXPECT_TRUE(stage.events.empty());
}

TEST(ScanWave, Scan_NoDataChunk_LeavesTheFieldsOfTheFormerScan) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(8).Tone(2 * Block).Bytes()), 0);
    ASSERT_EQ(stage.Scan(Wav().WithoutData().Chunk("LIST", "nothing").Bytes()), 0);
    EXPECT_EQ(stage.wave.DataLength, 88208);
    EXPECT_EQ(stage.wave.TrimStart, 8);
    EXPECT_TRUE(stage.wave.ScanPassed);
}

TEST(ScanWave, Scan_FailureAfterASuccess_KeepsScanPassed) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.Scan(Wav().FormType("AVI ").Bytes()), 4);
    EXPECT_TRUE(stage.wave.ScanPassed);
}

TEST(ScanWave, Scan_DataAheadOfFormat_IsADivisionByZero) {
    WaveStage stage;
    EXPECT_EQ(RuntimeErrorOf([&] { stage.Scan(Wav().DataAheadOfFormat().Tone(2 * Block).Bytes()); }), 11);
    EXPECT_FALSE(stage.wave.ScanPassed);
}

TEST(ScanWave, Scan_SmallDataAheadOfFormat_Is7) {
    WaveStage stage;
    EXPECT_EQ(stage.Scan(Wav().DataAheadOfFormat().Tone(400).Bytes()), 7);
}

// The search for the start.

TEST(ScanWave, Start_AudibleAtTheFirstByte_Is0) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 0);
    EXPECT_EQ(stage.events[3], (RaisedEvent{"StartOffset", 0}));
}

TEST(ScanWave, Start_FirstAudibleAtByte6_Is4) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(6).Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 4);
    EXPECT_EQ(stage.events[3], (RaisedEvent{"StartOffset", 6}));
}

TEST(ScanWave, Start_LeftSilentRightAudible_KeepsTheWholeFrame) {
    WaveStage stage;
    Wav file = Wav().Silence(400);
    for (int i = 0; i < 30000; ++i) file.Samples({0, 900});
    ASSERT_EQ(stage.Scan(file.Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 400);
    EXPECT_EQ(stage.events[3], (RaisedEvent{"StartOffset", 402}));
}

TEST(ScanWave, Start_MonoFile_GoesDownToAMultipleOf4Too) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Mono().Silence(1002).Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 1000);
}

TEST(ScanWave, Start_LastSampleOfABlock_EndsTheSearchThere) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(Block - 2).Samples({900}).Silence(Block).Tone(Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 44096);
    EXPECT_EQ(stage.events[3], (RaisedEvent{"StartOffset", 44098}));
}

TEST(ScanWave, Start_SilenceOverBlocks_CountsThemAll) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(2 * Block + 100).Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 88300);
    const RaisedEvents offsets(stage.events.begin() + 3, stage.events.begin() + 6);
    EXPECT_EQ(offsets,
              (RaisedEvents{{"StartOffset", 44100}, {"StartOffset", 88200}, {"StartOffset", 88300}}));
}

TEST(ScanWave, Start_LastBlockThatReachesTheEnd_IsNotRead) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(Block).Tone(Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 44100);
}

TEST(ScanWave, Start_DefaultBounds_TakeOnlyZerosForSilence) {
    WaveStage stage;
    const WaveFile fresh(stage.app);
    stage.wave.MinSample = fresh.MinSample;
    stage.wave.MaxSample = fresh.MaxSample;
    ASSERT_EQ(stage.Scan(Wav().Silence(8).Samples({0, -1}).Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 8);
}

TEST(ScanWave, Start_Bounds_CountAsSilence) {
    struct Row {
        std::int32_t minimum;
        std::int32_t maximum;
        int sample;
        bool silent;
    };
    constexpr Row Rows[] = {
        {0, 65535, 0, true},      {0, 65535, -1, true},      {0, 65535, 1, false},
        {0, 65535, -2, false},    {7, 65528, 7, true},       {7, 65528, -8, true},
        {7, 65528, 8, false},     {7, 65528, -9, false},     {255, 65280, 255, true},
        {255, 65280, -256, true}, {255, 65280, 256, false},  {255, 65280, -257, false},
        {7, 65528, 32767, false}, {7, 65528, -32768, false},
    };
    for (const Row& row : Rows) {
        WaveStage stage;
        stage.wave.MinSample = row.minimum;
        stage.wave.MaxSample = row.maximum;
        ASSERT_EQ(stage.Scan(Wav().Silence(8).Samples({row.sample, row.sample}).Tone(2 * Block).Bytes()), 0);
        EXPECT_EQ(stage.wave.TrimStart, row.silent ? 12 : 8) << row.minimum << " " << row.sample;
    }
}

// The search for the end.

TEST(ScanWave, End_LastSampleAudible_IsTheSize) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimEnd, 88200);
    EXPECT_EQ(stage.events.back(), (RaisedEvent{"EndOffset", 0}));
}

TEST(ScanWave, End_LastAudible2BytesBeforeTheEnd_IsTheSize) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(2 * Block).Silence(2).Bytes()), 0);
    EXPECT_EQ(stage.events.back(), (RaisedEvent{"EndOffset", 2}));
    EXPECT_EQ(stage.wave.TrimEnd, 88202);
}

TEST(ScanWave, End_SilenceOverBlocks_MovesTowardsTheEndToAMultipleOf4) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(2 * Block).Silence(Block + 1002).Bytes()), 0);
    EXPECT_EQ(stage.events.back(), (RaisedEvent{"EndOffset", 45102}));
    EXPECT_EQ(stage.wave.TrimEnd, 88202);
}

TEST(ScanWave, End_FirstSampleOfABlock_EndsTheSearchThere) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(Block).Samples({900}).Silence(Block - 2).Bytes()), 0);
    EXPECT_EQ(stage.events.back(), (RaisedEvent{"EndOffset", 44098}));
    EXPECT_EQ(stage.wave.TrimEnd, 88200 - 44098 + 2);
}

TEST(ScanWave, End_OddSize_TakesTheSamplesFromTheEnd) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(Block).Silence(Block).Audio("\x7F").Bytes()), 0);
    EXPECT_EQ(stage.events.back(), (RaisedEvent{"EndOffset", 0}));
    EXPECT_EQ(stage.wave.TrimEnd, 88201);
}

// How much is searched.

TEST(ScanWave, Search_ExactlyOneBlock_SearchesNothing) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 0);
    EXPECT_EQ(stage.wave.TrimEnd, 44100);
    EXPECT_EQ(stage.events,
              (RaisedEvents{
                  {"MinStatus", 0}, {"MaxStatus", 44100}, {"Status", 0}, {"Status", 44100}, {"Status", 0}}));
}

TEST(ScanWave, Search_OneBlockAndAByte_SearchesOneBlockFromEachEnd) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(Block + 1).Bytes()), 0);
    EXPECT_EQ(stage.events, (RaisedEvents{{"MinStatus", 0},
                                          {"MaxStatus", 44101},
                                          {"Status", 0},
                                          {"StartOffset", 44100},
                                          {"Status", 44101},
                                          {"Status", 0},
                                          {"EndOffset", 44100}}));
    EXPECT_EQ(stage.wave.TrimStart, 44100);
    EXPECT_EQ(stage.wave.TrimEnd, 1);
}

TEST(ScanWave, Search_PureSilence_HasItsEndBeforeItsStart) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(4 * Block).Bytes()), 0);
    EXPECT_EQ(stage.wave.TrimStart, 132300);
    EXPECT_EQ(stage.wave.TrimEnd, 44100);
}

TEST(ScanWave, Search_EveryBlockAndChunk_ServesTheEventLoop) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Chunk("LIST", "x").Silence(2 * Block).Tone(2 * Block).Bytes(), true), 0);
    // 3 blocks from the start, 1 from the end, 3 of the peaks, and 3 chunks.
    EXPECT_EQ(stage.app.desktop.servedEvents, 10);
}

// The peaks.

TEST(ScanWave, Peaks_NotAsked_Stay0) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(3 * Block).Bytes(), false), 0);
    EXPECT_EQ(stage.wave.PeakMaxLeft, 0);
    EXPECT_EQ(stage.wave.PeakMinLeft, 0);
    EXPECT_EQ(stage.wave.PeakMaxRight, 0);
    EXPECT_EQ(stage.wave.PeakMinRight, 0);
}

TEST(ScanWave, Peaks_Asked_AreThoseOfEachChannel) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(400).Samples({11, -12, -13, 14}).Silence(2 * Block).Bytes(), true), 0);
    EXPECT_EQ(stage.wave.PeakMaxLeft, 11);
    EXPECT_EQ(stage.wave.PeakMinLeft, -13);
    EXPECT_EQ(stage.wave.PeakMaxRight, 14);
    EXPECT_EQ(stage.wave.PeakMinRight, -12);
}

TEST(ScanWave, Peaks_BehindTheLastWholeBlock_DoNotCount) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(2 * Block, 5000).Samples({30000, -30000}).Bytes(), true), 0);
    EXPECT_LE(stage.wave.PeakMaxLeft, 5000);
    EXPECT_GE(stage.wave.PeakMinRight, -5000);
}

TEST(ScanWave, Peaks_BlockThatEndsWithTheData_DoesNotCount) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(Block, 5000).Tone(Block, 30000).Bytes(), true), 0);
    EXPECT_GT(stage.wave.PeakMaxLeft, 4000);
    EXPECT_LE(stage.wave.PeakMaxLeft, 5000);
}

TEST(ScanWave, Peaks_SecondScan_StartsAgain) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(3 * Block, 30000).Bytes(), true), 0);
    ASSERT_EQ(stage.Scan(Wav().Tone(3 * Block, 5000).Bytes(), true), 0);
    EXPECT_LE(stage.wave.PeakMaxLeft, 5000);
    ASSERT_EQ(stage.wave.ScanWave("absent.wav", true), 1);
    EXPECT_EQ(stage.wave.PeakMaxLeft, 0);
}

TEST(ScanWave, Events_WithPeaks_ComeInThisOrder) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(400).Tone(2 * Block).Silence(800).Bytes(), true), 0);
    EXPECT_EQ(stage.events, (RaisedEvents{{"MinStatus", 0},
                                          {"MaxStatus", 89400},
                                          {"Status", 0},
                                          {"StartOffset", 400},
                                          {"Status", 89400},
                                          {"Status", 0},
                                          {"EndOffset", 800},
                                          {"Status", 44100},
                                          {"Status", 88200}}));
    EXPECT_EQ(stage.wave.ScanPos, 88200);
}

}  // namespace zefta::test
