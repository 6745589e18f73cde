// What the trim job says and leaves behind when something is wrong with a file, a folder or the disk.

#include <filesystem>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "core/Options.h"
#include "support/FaultInjectingFileSystem.h"
#include "wave/WaveStage.h"
#include "wave/WaveTrim.h"

namespace zefta::test {

namespace {

std::string Untrimmed() {
    return Wav().Silence(5000).Tone(2 * Block).Silence(7000).Bytes();
}
std::string Trimmed() {
    return Wav().Tone(2 * Block).Bytes();
}

void RunJob(App& app, std::vector<std::string> options = {}) {
    options.insert(options.begin(), "/wavetrim");
    ASSERT_TRUE(ParseCommandLine(app, CommandLine(options)));
    WaveTrimJob(app);
}

/// The box about "a.wav". The text ends in a full stop of its own, and the message adds one.
std::string Complaint(const TestApp& app, const std::string& doing, const std::string& text) {
    return "An error occured while " + doing + " file \"" + app.files.CurrentFolder() + "/a.wav\":\r\n\r\n" +
           text + ".";
}

bool Holds(const TestApp& app, const std::string& name, const std::string& content) {
    return app.folder.Exists(name) && app.folder.Read(name) == content;
}

/// A folder that tells one of its files twice.
class RepeatingFileSystem : public FaultInjectingFileSystem {
  public:
    using FaultInjectingFileSystem::FaultInjectingFileSystem;

    std::vector<FolderEntry> List(const std::string&) const override {
        return {{"a.wav"}, {"a.wav"}, {"b.wav"}};
    }
};

}  // namespace

TEST(WaveTrimFailures, EveryScanCode_HasItsText) {
    struct Row {
        std::string bytes;
        std::string text;
    };
    const std::vector<Row> rows = {
        {"no RIFF", "Is not a valid RIFF format file."},
        {Wav().FormType("AVI ").Bytes(), "Is not a valid WAVe format file."},
        {Wav().FormatSize(15).Bytes(), "Bad WAVe format tag detected."},
        {Wav().Bits(24).Tone(Block).Bytes(),
         "Incompatible format detected, only 16 bit and 44100 or 48000 Hz stereo PCM WAVe files allowed."},
        {Wav().Tone(400).Bytes(), "The file is too small to process."},
    };
    for (const Row& row : rows) {
        TestApp app;
        app.folder.Write("a.wav", row.bytes);
        RunJob(app, {"/nb"});
        ASSERT_EQ(app.desktop.boxes.size(), 1U) << row.text;
        EXPECT_EQ(app.desktop.boxes[0].text, Complaint(app, "scanning", row.text));
        EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
        EXPECT_EQ(app.folder.Read("a.wav"), row.bytes);
    }
}

TEST(WaveTrimFailures, ReadOnlyFile_CannotBeOpened) {
    TestApp app;
    app.files.SetReadOnly(app.folder.Write("a.wav", Untrimmed()), true);
    RunJob(app);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, Complaint(app, "scanning", "We can not open the file."));
}

TEST(WaveTrimFailures, LinkToNowhere_IsNotFound) {
    TestApp app;
    std::filesystem::create_symlink("absent", "a.wav");
    RunJob(app);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, Complaint(app, "scanning", "File not found."));
}

TEST(WaveTrimFailures, ProcessCodes_HaveTheirTextsAndTheBackupStays) {
    struct Row {
        int operation;
        std::string text;
    };
    // Operations of the rewrite: move, open, create.
    for (const Row& row : {Row{2, "We can not open the file."}, Row{3, "We can not created the file."}}) {
        PosixFileSystem real;
        FaultInjectingFileSystem files(real);
        TestApp app(&files);
        const std::string path = app.folder.Write("a.wav", Untrimmed());
        WaveFile(app).ScanWave(path, false);
        const int operationsOfScan = files.faults.operations;
        files.faults.operations = 0;
        files.faults.plan = {FaultPlan::Mode::OnlyTheNth, operationsOfScan + row.operation,
                             ErrorNumber::DiskFull};
        RunJob(app, {"/nb", "/z"});
        ASSERT_EQ(app.desktop.boxes.size(), 1U);
        EXPECT_EQ(app.desktop.boxes[0].text, Complaint(app, "processing", row.text));
        EXPECT_TRUE(SameBytes(app.folder.Read("a.wav.BAK"), Untrimmed()));
        EXPECT_FALSE(app.folder.Exists("a.wav"));
    }
}

TEST(WaveTrimFailures, DamagedFile_IsToldByNumberAndTheWalkGoesOn) {
    TestApp app;
    app.folder.Write("a.wav", Wav().DataAheadOfFormat().Tone(2 * Block).Bytes());
    app.folder.Write("b.wav", Untrimmed());
    RunJob(app, {"/nb"});
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, "Error #11\r\n\r\nDivision by zero");
    EXPECT_TRUE(SameBytes(app.folder.Read("b.wav"), Trimmed()));
}

TEST(WaveTrimFailures, LevelOf0_IsToldAndTheFileStays) {
    TestApp app;
    app.folder.Write("a.wav", Untrimmed());
    RunJob(app, {"/nb", "/norm", "/norm_level", "0"});
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, "Error #11\r\n\r\nDivision by zero");
    EXPECT_TRUE(SameBytes(app.folder.Read("a.wav"), Untrimmed()));
}

TEST(WaveTrimFailures, FileWithoutHeader_IsTakenWhenThePersonSaysSo) {
    const std::string raw = Wav().Silence(4000).Tone(3 * Block).AudioBytes();
    for (const bool answer : {false, true}) {
        TestApp app;
        app.folder.Write("a.wav", raw);
        app.desktop.answers = {answer};
        RunJob(app);
        EXPECT_EQ(app.desktop.questions.size(), 1U);
        EXPECT_EQ(app.folder.Read("a.wav") != raw, answer);
        EXPECT_EQ(app.desktop.boxes.empty(), answer);
    }
}

TEST(WaveTrimFailures, MissingFolder_IsAFailureOfTheJob) {
    TestApp app;
    EXPECT_EQ(RuntimeErrorOf([&] { RunJob(app, {"absent/*.wav"}); }), 76);
}

TEST(WaveTrimFailures, FolderThatTellsAFileTwice_EndsTheWalk) {
    PosixFileSystem real;
    RepeatingFileSystem files(real);
    TestApp app(&files);
    app.folder.Write("a.wav", Untrimmed());
    app.folder.Write("b.wav", Untrimmed());
    RunJob(app);
    EXPECT_TRUE(SameBytes(app.folder.Read("a.wav"), Trimmed()));
    EXPECT_TRUE(SameBytes(app.folder.Read("a.wav.BAK"), Untrimmed()));
    EXPECT_TRUE(SameBytes(app.folder.Read("b.wav"), Untrimmed()));
}

TEST(WaveTrimFailures, NameThatIsNoText_IsTrimmedAndShownThroughTheCodePage) {
    TestApp app;
    const std::string good = "caf\xE9 [1].wav";
    const std::string bad = "bad\xE9.wav";
    app.folder.Write(good, Untrimmed());
    app.folder.Write(bad, "no RIFF");
    RunJob(app);
    EXPECT_TRUE(SameBytes(app.folder.Read(good), Trimmed()));
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_NE(app.desktop.boxes[0].text.find("/bad\xC3\xA9.wav\""), std::string::npos);
}

TEST(WaveTrimFailures, LinkedFile_LosesTheBackupBesideTheRealOne) {
    TestApp app;
    app.files.CreateFolder("music");
    app.folder.Write("music/real.wav", Untrimmed());
    std::filesystem::create_symlink("music/real.wav", "a.wav");
    RunJob(app, {"/nb"});
    EXPECT_TRUE(std::filesystem::is_symlink("a.wav"));
    EXPECT_TRUE(SameBytes(app.folder.Read("music/real.wav"), Trimmed()));
    EXPECT_FALSE(app.folder.Exists("music/real.wav.BAK"));
    EXPECT_FALSE(app.folder.Exists("a.wav.BAK"));
}

TEST(WaveTrimFailures, NoBackup_FaultAtAnyOperation_NeverLosesTheAudio) {
    for (const auto mode : {FaultPlan::Mode::OnlyTheNth, FaultPlan::Mode::FromTheNthOn}) {
        for (int nth = 1;; ++nth) {
            PosixFileSystem real;
            FaultInjectingFileSystem files(real);
            TestApp app(&files);
            app.folder.Write("a.wav", Untrimmed());
            files.faults.plan = {mode, nth, ErrorNumber::DiskFull};
            RunJob(app, {"/nb"});
            const bool isRewritten = Holds(app, "a.wav", Trimmed());
            EXPECT_TRUE(isRewritten || Holds(app, "a.wav", Untrimmed()) ||
                        Holds(app, "a.wav.BAK", Untrimmed()))
                << nth;
            EXPECT_TRUE(isRewritten || app.desktop.HasComplained()) << nth;
            if (files.faults.operations < nth) break;
        }
    }
}

TEST(WaveTrimFailures, NoBackup_NewFileThatMayNotHaveReachedTheDisk_KeepsTheBackup) {
    PosixFileSystem real;
    FaultInjectingFileSystem files(real);
    int operations = 0;
    for (const int fromTheEnd : {-1, 0, 1, 2}) {
        TestApp app(&files);
        app.folder.Write("a.wav", Untrimmed());
        files.faults.operations = 0;
        files.faults.plan = {fromTheEnd == -1 ? FaultPlan::Mode::Never : FaultPlan::Mode::OnlyTheNth,
                             operations - fromTheEnd, ErrorNumber::DeviceIoError};
        RunJob(app, {"/nb"});
        // The first run only counts: its last operations are to open, to flush, to delete.
        if (fromTheEnd == -1) operations = files.faults.operations;
        EXPECT_TRUE(SameBytes(app.folder.Read("a.wav"), Trimmed())) << fromTheEnd;
        EXPECT_EQ(Holds(app, "a.wav.BAK", Untrimmed()), fromTheEnd != -1) << fromTheEnd;
        // A backup that can't be deleted stays without a word.
        EXPECT_EQ(app.desktop.HasComplained(), fromTheEnd == 1) << fromTheEnd;
    }
}

}  // namespace zefta::test
