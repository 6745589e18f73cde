#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "wave/WaveStage.h"

namespace zefta::test {

namespace {

constexpr std::size_t Frame = CdFrameBytes;

/// Samples times the gain, half to even, held at the limits; in whole numbers but for the product.
std::string Amplified(const std::string& audio, float gain) {
    std::vector<int> samples = SamplesOf(audio);
    for (int& sample : samples) {
        const double product = sample * static_cast<double>(gain);
        double whole = static_cast<double>(static_cast<long long>(product));
        const double rest = product - whole;
        const bool isOdd = static_cast<long long>(whole) % 2 != 0;
        if (rest > 0.5 || (rest == 0.5 && isOdd)) whole += 1;
        if (rest < -0.5 || (rest == -0.5 && isOdd)) whole -= 1;
        sample = whole > 32767 ? 32767 : whole < -32768 ? -32768 : static_cast<int>(whole);
    }
    return SampleBytes(samples);
}

/// Scans and rewrites "a.wav".
std::int32_t ScanAndProcess(WaveStage& stage, const std::string& bytes, bool normalize = false) {
    EXPECT_EQ(stage.Scan(bytes, normalize), 0);
    stage.events.clear();
    return stage.wave.ProcessWave(normalize);
}

}  // namespace

TEST(ProcessWave, Process_FreshInstance_Is4AndChangesNothing) {
    WaveStage stage;
    stage.wave.FileName = stage.app.folder.Write("a.wav", "content");
    EXPECT_EQ(stage.wave.ProcessWave(true), 4);
    EXPECT_EQ(stage.app.folder.Read("a.wav"), "content");
    EXPECT_FALSE(stage.app.folder.Exists("a.wav.BAK"));
    EXPECT_TRUE(stage.events.empty());
}

TEST(ProcessWave, Process_ScanWithoutAudio_Is4AndChangesNothing) {
    WaveStage stage;
    const std::string streamed = Wav().Tone(2 * Block).RiffSize(-1).Bytes();
    ASSERT_EQ(stage.Scan(streamed), 0);
    EXPECT_EQ(stage.wave.ProcessWave(false), 4);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), streamed));
    EXPECT_FALSE(stage.app.folder.Exists("a.wav.BAK"));
}

TEST(ProcessWave, Process_ScanWithoutAudioAfterOneWith_Is4) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Tone(2 * Block).Bytes()), 0);
    ASSERT_EQ(stage.Scan(Wav().WithoutData().Bytes()), 0);
    EXPECT_EQ(stage.wave.ProcessWave(false), 4);
}

// The layouts.

TEST(ProcessWave, Layout_EveryFormat_SurroundsTheAudioWithItsSilence) {
    struct Row {
        std::int32_t format;
        std::size_t framesBefore;
        std::size_t framesAfter;
        bool wholeFrames;
    };
    constexpr Row Rows[] = {{1, 2, 5, true},   {2, 30, 5, true}, {3, 2, 60, true}, {4, 30, 0, false},
                            {5, 0, 60, false}, {0, 3, 4, false}, {6, 3, 4, false}, {-1, 3, 4, false}};
    for (const Row& row : Rows) {
        for (const std::size_t audioBytes : {2 * Block + 100, 38 * Frame, 38 * Frame + 4, 39 * Frame - 4}) {
            WaveStage stage;
            stage.wave.Format = row.format;
            stage.wave.Before = 3;
            stage.wave.After = 4;
            const std::string audio = Wav().Tone(audioBytes).AudioBytes();
            const std::string source = Wav().Silence(600).Audio(audio).Silence(1000).Bytes();
            ASSERT_EQ(ScanAndProcess(stage, source), 0);
            std::size_t after = row.framesAfter * Frame;
            if (row.wholeFrames) after += (Frame - audioBytes % Frame) % Frame;
            EXPECT_TRUE(
                SameBytes(stage.app.folder.Read("a.wav"),
                          Wav().Silence(row.framesBefore * Frame).Audio(audio).Silence(after).Bytes()))
                << row.format << " " << audioBytes;
            EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav.BAK"), source));
        }
    }
}

TEST(ProcessWave, Layout_NegativeFrames_CountAs0) {
    WaveStage stage;
    stage.wave.Before = -5;
    stage.wave.After = -2147483647 - 1;
    const std::string audio = Wav().Tone(2 * Block).AudioBytes();
    ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(600).Audio(audio).Silence(600).Bytes()), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), Wav().Audio(audio).Bytes()));
}

TEST(ProcessWave, Layout_FramesBeyond32Bits_FailBeforeAnythingIsTouched) {
    for (const std::int32_t frames : {913045, 2147483647}) {
        WaveStage stage;
        stage.wave.Before = frames;
        const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
        ASSERT_EQ(stage.Scan(source), 0);
        EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.ProcessWave(false); }), 6);
        EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), source));
        EXPECT_FALSE(stage.app.folder.Exists("a.wav.BAK"));
    }
}

TEST(ProcessWave, Layout_LengthBeyond32Bits_FailsBeforeAnythingIsTouched) {
    WaveStage stage;
    stage.wave.Before = 900000;
    stage.wave.After = 900000;
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    ASSERT_EQ(stage.Scan(source), 0);
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.ProcessWave(false); }), 6);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), source));
}

TEST(ProcessWave, Header_FieldsAreThoseOfTheScanAndNothingElseSurvives) {
    WaveStage stage;
    const std::string source = Wav()
                                   .Mono()
                                   .Rate(48000)
                                   .FormatExtra("extra")
                                   .Chunk("LIST", "ahead")
                                   .Silence(600)
                                   .Tone(2 * Block)
                                   .Chunk("id3 ", "behind")
                                   .Bytes();
    ASSERT_EQ(ScanAndProcess(stage, source), 0);
    const std::string audio = Wav().Tone(2 * Block).AudioBytes();
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), Wav().Mono().Rate(48000).Audio(audio).Bytes()));
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav.BAK"), source));
}

TEST(ProcessWave, Header_FieldsThatDoNotFitEachOther_AreWrittenAsScanned) {
    WaveStage stage;
    std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    source.replace(28, 6, "\1\2\3\4\5\6");
    ASSERT_EQ(ScanAndProcess(stage, source), 0);
    EXPECT_EQ(stage.app.folder.Read("a.wav").substr(28, 6), "\1\2\3\4\5\6");
}

TEST(ProcessWave, Raw_AudioStartsAtByte4AndGetsAHeader) {
    WaveStage stage;
    stage.wave.RAW = true;
    const std::string raw = Wav().Silence(400).Tone(3 * Block).Silence(600).AudioBytes();
    ASSERT_EQ(ScanAndProcess(stage, raw), 0);
    ASSERT_EQ(stage.wave.TrimStart, 400);
    ASSERT_EQ(stage.wave.TrimEnd, 132696);
    EXPECT_TRUE(
        SameBytes(stage.app.folder.Read("a.wav"), Wav().Audio(raw.substr(404, 132696 - 400)).Bytes()));
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav.BAK"), raw));
}

TEST(ProcessWave, Silence_OfALengthBelow0_CopiesNothingAndStatesIt) {
    WaveStage stage;
    const std::string source = Wav().Silence(4 * Block).Bytes();
    ASSERT_EQ(ScanAndProcess(stage, source), 0);
    EXPECT_TRUE(
        SameBytes(stage.app.folder.Read("a.wav"), Wav().DataSize(-88200).RiffSize(36 - 88200).Bytes()));
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav.BAK"), source));
}

TEST(ProcessWave, Truncated_SourceShorterThanItSays_KeepsAllThatIsThere) {
    WaveStage stage;
    const std::string audio = Wav().Tone(2 * Block).AudioBytes();
    ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(600).Audio(audio).DataSize(1000000).Bytes()), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), Wav().Audio(audio).Bytes()));
}

// What would change nothing.

TEST(ProcessWave, Unchanged_KeepsNameContentAndDateAndNoBackup) {
    WaveStage stage;
    stage.wave.Format = 1;
    const std::string right = Wav().Silence(2 * Frame).Tone(40 * Frame).Silence(5 * Frame).Bytes();
    const std::string path = stage.app.folder.Write("a.wav", right);
    stage.app.folder.Write("a.wav.BAK", "former");
    const auto date = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000);
    std::filesystem::last_write_time(path, date);
    ASSERT_EQ(stage.wave.ScanWave(path, true), 0);
    stage.events.clear();
    // A wish to normalise goes with it.
    stage.wave.SetNRLevel(50);
    stage.wave.SetNRBelow(100);
    EXPECT_EQ(stage.wave.ProcessWave(true), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), right));
    EXPECT_EQ(std::filesystem::last_write_time(path), date);
    EXPECT_FALSE(stage.app.folder.Exists("a.wav.BAK"));
    EXPECT_EQ(stage.events, (RaisedEvents{{"Status", 0}}));
}

TEST(ProcessWave, Unchanged_Within16BytesAtBothEnds_IsLeftAlone) {
    struct Row {
        std::size_t before;
        std::size_t after;
        bool rewritten;
    };
    constexpr std::size_t Wanted = 3 * Frame;
    constexpr Row Rows[] = {{Wanted, Wanted, false},
                            {Wanted + 16, Wanted, false},
                            {Wanted - 16, Wanted, false},
                            {Wanted, Wanted + 16, false},
                            {Wanted, Wanted - 16, false},
                            {Wanted + 20, Wanted, true},
                            {Wanted - 20, Wanted, true},
                            {Wanted, Wanted + 20, true},
                            {Wanted, Wanted - 20, true},
                            {0, Wanted, true},
                            {Wanted, 0, true}};
    for (const Row& row : Rows) {
        WaveStage stage;
        stage.wave.Before = stage.wave.After = 3;
        const std::string source = Wav().Silence(row.before).Tone(2 * Block).Silence(row.after).Bytes();
        ASSERT_EQ(ScanAndProcess(stage, source), 0);
        EXPECT_EQ(stage.app.folder.Exists("a.wav.BAK"), row.rewritten) << row.before << " " << row.after;
        if (!row.rewritten) {
            EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), source));
        }
    }
}

TEST(ProcessWave, Unchanged_FillUpToWholeFrames_CountsAsMissingSilence) {
    WaveStage stage;
    stage.wave.Format = 1;
    ASSERT_EQ(
        ScanAndProcess(stage, Wav().Silence(2 * Frame).Tone(40 * Frame + 1000).Silence(5 * Frame).Bytes()),
        0);
    EXPECT_TRUE(stage.app.folder.Exists("a.wav.BAK"));
    EXPECT_EQ(stage.app.folder.Read("a.wav").size(), 44 + 48 * Frame);
}

TEST(ProcessWave, Rewrite_OfARewrittenFile_ChangesNothing) {
    for (std::int32_t format = 0; format <= 5; ++format) {
        WaveStage stage;
        stage.wave.Format = format;
        stage.wave.Before = stage.wave.After = 1;
        ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(60000).Tone(3 * Block).Silence(70000).Bytes()), 0);
        const std::string first = stage.app.folder.Read("a.wav");
        ASSERT_EQ(ScanAndProcess(stage, first), 0);
        EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), first)) << format;
        EXPECT_FALSE(stage.app.folder.Exists("a.wav.BAK")) << format;
    }
}

// Events.

TEST(ProcessWave, Events_WithSilenceAtBothEnds_ComeInThisOrder) {
    WaveStage stage;
    stage.wave.Before = 1;
    stage.wave.After = 2;
    ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(10000).Tone(2 * Block + 100).Silence(10000).Bytes()), 0);
    EXPECT_EQ(stage.events, (RaisedEvents{{"Status", 0},
                                          {"MinStatus", 0},
                                          {"Status", 0},
                                          {"MaxStatus", 2352 + 88300 + 4704},
                                          {"Status", 2352},
                                          {"Status", 44100 + 2352},
                                          {"Status", 88200 + 2352},
                                          {"Status", 88300 + 2352},
                                          {"Status", 88300 + 2352 + 4704}}));
}

TEST(ProcessWave, Events_WithoutSilence_StillEndAtTheMaximum) {
    WaveStage stage;
    ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(600).Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(stage.events, (RaisedEvents{{"Status", 0},
                                          {"MinStatus", 0},
                                          {"Status", 0},
                                          {"MaxStatus", 88200},
                                          {"Status", 44100},
                                          {"Status", 88200},
                                          {"Status", 88200},
                                          {"Status", 88200}}));
}

TEST(ProcessWave, Events_EveryBlock_ServesTheEventLoop) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(600).Tone(3 * Block + 4).Bytes()), 0);
    stage.app.desktop.servedEvents = 0;
    ASSERT_EQ(stage.wave.ProcessWave(false), 0);
    EXPECT_EQ(stage.app.desktop.servedEvents, 3);
}

// Normalising.

TEST(ProcessWave, Normalize_BelowTheLevel_AmplifiesTheAudioAlone) {
    WaveStage stage;
    stage.wave.SetNRLevel(100);
    stage.wave.SetNRAbove(98);
    stage.wave.SetNRBelow(90);
    stage.wave.Before = 1;
    Wav file = Wav().Samples({16383, 16383, -16384, -16384}).Tone(3 * Block + 6, 16000);
    ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(600).Audio(file.AudioBytes()).Bytes(), true), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"),
                          Wav().Silence(Frame).Audio(Amplified(file.AudioBytes(), 2.0F)).Bytes()));
}

TEST(ProcessWave, Normalize_DefaultLevels_RoundTheProductsHalfToEven) {
    WaveStage stage;
    stage.wave.SetNRLevel(95);
    stage.wave.SetNRAbove(98);
    stage.wave.SetNRBelow(85);
    const std::string audio = Wav().Samples({9999, 9999, -9999, -9999}).Tone(3 * Block, 9000).AudioBytes();
    ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(600).Audio(audio).Bytes(), true), 0);
    const auto gain = static_cast<float>(95 * 32767.0 / 100 / 9999);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), Wav().Audio(Amplified(audio, gain)).Bytes()));
}

TEST(ProcessWave, Normalize_PeakInTheLastPart_IsHeldAtTheLimit) {
    WaveStage stage;
    stage.wave.SetNRLevel(100);
    stage.wave.SetNRBelow(100);
    const std::string audio = Wav()
                                  .Samples({16383, 16383, -16384, -16384})
                                  .Tone(3 * Block, 16000)
                                  .Samples({30000, -30000})
                                  .AudioBytes();
    ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(600).Audio(audio).Bytes(), true), 0);
    const std::string written = stage.app.folder.Read("a.wav");
    EXPECT_EQ(SamplesOf(written.substr(written.size() - 4)), (std::vector{32767, -32768}));
}

TEST(ProcessWave, Normalize_LevelWithinTheBounds_CopiesTheAudio) {
    WaveStage stage;
    stage.wave.SetNRLevel(100);
    stage.wave.SetNRAbove(60);
    stage.wave.SetNRBelow(40);
    const std::string audio =
        Wav().Samples({16383, 16383, -16384, -16384}).Tone(3 * Block, 16000).AudioBytes();
    ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(600).Audio(audio).Bytes(), true), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), Wav().Audio(audio).Bytes()));
}

TEST(ProcessWave, Normalize_ScannedWithoutPeaks_CopiesTheAudio) {
    WaveStage stage;
    stage.wave.SetNRLevel(95);
    stage.wave.SetNRBelow(100);
    const std::string audio = Wav().Tone(3 * Block).AudioBytes();
    ASSERT_EQ(stage.Scan(Wav().Silence(600).Audio(audio).Bytes(), false), 0);
    ASSERT_EQ(stage.wave.ProcessWave(true), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), Wav().Audio(audio).Bytes()));
}

TEST(ProcessWave, Normalize_NotAsked_CopiesTheAudio) {
    WaveStage stage;
    stage.wave.SetNRLevel(95);
    stage.wave.SetNRBelow(100);
    const std::string audio = Wav().Tone(3 * Block).AudioBytes();
    ASSERT_EQ(stage.Scan(Wav().Silence(600).Audio(audio).Bytes(), true), 0);
    ASSERT_EQ(stage.wave.ProcessWave(false), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), Wav().Audio(audio).Bytes()));
}

TEST(ProcessWave, Normalize_SettingSeparately_TakesACommonGainForCloseChannels) {
    Wav source;
    for (std::size_t i = 0; i < Block; ++i) source.Samples({10000, 9900, -10000, -9900});
    for (const bool separately : {false, true}) {
        WaveStage stage;
        stage.app.state.NormalizeSeparately = separately;
        stage.wave.SetNRLevel(100);
        stage.wave.SetNRBelow(100);
        ASSERT_EQ(ScanAndProcess(stage, Wav().Silence(600).Audio(source.AudioBytes()).Bytes(), true), 0);
        const std::vector<int> first = SamplesOf(stage.app.folder.Read("a.wav").substr(44, 4));
        EXPECT_EQ(first, (std::vector{32767, separately ? 32439 : 32767}));
    }
}

TEST(ProcessWave, Normalize_LevelOf0_IsADivisionByZeroThatTouchesNothing) {
    WaveStage stage;
    const std::string source = Wav().Silence(600).Tone(3 * Block).Bytes();
    ASSERT_EQ(stage.Scan(source, true), 0);
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.ProcessWave(true); }), 11);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), source));
    EXPECT_FALSE(stage.app.folder.Exists("a.wav.BAK"));
}

// The backup.

TEST(ProcessWave, Backup_OfAFormerRun_IsReplaced) {
    WaveStage stage;
    stage.app.folder.Write("a.wav.BAK", "former");
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    ASSERT_EQ(ScanAndProcess(stage, source), 0);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav.BAK"), source));
}

TEST(ProcessWave, Backup_OfAFormerRunThatIsReadOnly_StopsBeforeAnythingIsTouched) {
    WaveStage stage;
    stage.app.files.SetReadOnly(stage.app.folder.Write("a.wav.BAK", "former"), true);
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    ASSERT_EQ(stage.Scan(source), 0);
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.ProcessWave(false); }), 70);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), source));
    EXPECT_EQ(stage.app.folder.Read("a.wav.BAK"), "former");
}

TEST(ProcessWave, Backup_NameThatIsAFolder_StopsBeforeAnythingIsTouched) {
    WaveStage stage;
    stage.app.files.CreateFolder("a.wav.BAK");
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    ASSERT_EQ(stage.Scan(source), 0);
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.ProcessWave(false); }), 58);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), source));
}

TEST(ProcessWave, Backup_OfALinkedFile_LiesBesideTheFile) {
    WaveStage stage;
    stage.app.files.CreateFolder("music");
    const std::string source = Wav().Silence(600).Tone(2 * Block).Bytes();
    stage.app.folder.Write("music/real.wav", source);
    std::filesystem::create_symlink("music/real.wav", "link.wav");
    ASSERT_EQ(stage.wave.ScanWave("link.wav", false), 0);
    ASSERT_EQ(stage.wave.ProcessWave(false), 0);
    EXPECT_TRUE(std::filesystem::is_symlink("link.wav"));
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("music/real.wav"), Wav().Tone(2 * Block).Bytes()));
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("music/real.wav.BAK"), source));
    EXPECT_FALSE(stage.app.folder.Exists("link.wav.BAK"));
}

TEST(ProcessWave, NewFile_TakesOverThePermissions) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(600).Tone(2 * Block).Bytes()), 0);
    std::filesystem::permissions("a.wav", std::filesystem::perms(0640));
    ASSERT_EQ(stage.wave.ProcessWave(false), 0);
    EXPECT_EQ(std::filesystem::status("a.wav").permissions(), std::filesystem::perms(0640));
}

TEST(ProcessWave, FileThatIsGone_IsAFailure) {
    WaveStage stage;
    ASSERT_EQ(stage.Scan(Wav().Silence(600).Tone(2 * Block).Bytes()), 0);
    std::filesystem::remove("a.wav");
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.ProcessWave(false); }), 53);
}

TEST(ProcessWave, FileThatDiffersInCaseOnly_IsNotTakenForIt) {
    WaveStage stage;
    const std::string source = Wav().Silence(600).Tone(2 * Block).Silence(600).Bytes();
    stage.app.folder.Write("A.wav", "another one");
    ASSERT_EQ(stage.Scan(source), 0);
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.ProcessWave(false); }), 58);
    EXPECT_TRUE(SameBytes(stage.app.folder.Read("a.wav"), source));
    EXPECT_EQ(stage.app.folder.Read("A.wav"), "another one");
    EXPECT_FALSE(stage.app.folder.Exists("a.wav.BAK"));
}

TEST(ProcessWave, BackupsOfTwoSpellings_AreBothKept) {
    WaveStage stage;
    stage.app.folder.Write("a.wav.BAK", "first");
    stage.app.folder.Write("A.wav.BAK", "second");
    ASSERT_EQ(stage.Scan(Wav().Silence(600).Tone(2 * Block).Bytes()), 0);
    EXPECT_EQ(RuntimeErrorOf([&] { stage.wave.ProcessWave(false); }), 58);
    EXPECT_EQ(stage.app.folder.Read("a.wav.BAK") + stage.app.folder.Read("A.wav.BAK"), "firstsecond");
}

}  // namespace zefta::test
