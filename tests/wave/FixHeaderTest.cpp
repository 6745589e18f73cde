#include <filesystem>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "support/FaultInjectingFileSystem.h"
#include "wave/FixHeader.h"
#include "wave/WaveStage.h"

namespace zefta::test {
namespace {

constexpr std::size_t RatePosition = 24;

void RunJob(App& app, std::vector<std::string> options = {}) {
    options.insert(options.begin(), "/fixheader");
    ASSERT_TRUE(ParseCommandLine(app, CommandLine(options)));
    FixHeaderJob(app);
}

std::string WithRateBytes(std::string bytes, const std::string& rate) {
    return bytes.replace(RatePosition, rate.size(), rate);
}

std::string At96000() {
    return Wav().Rate(96000).Tone(1000).Bytes();
}

}  // namespace

TEST(FixHeader, Rate_GoesToTwoBytesAndAllElseStays) {
    struct Row {
        std::string frequency;
        std::string bytes;
    };
    const std::vector<Row> rows = {
        {"48000", "\x80\xBB"},
        {"0", std::string(2, '\0')},
        {"65535", "\xFF\xFF"},
        // 96000 is 0x17700: its upper half is not written.
        {"96000", std::string("\x00\x77", 2)},
        {"-1", "\xFF\xFF"},
        {"-2147483648", std::string(2, '\0')},
        {"22050.5 Hz", "\x22\x56"},
        {"none", std::string(2, '\0')},
    };
    for (const Row& row : rows) {
        TestApp app;
        app.folder.Write("a.wav", At96000());
        RunJob(app, {"a.wav", "/freq", row.frequency});
        EXPECT_TRUE(SameBytes(app.folder.Read("a.wav"), WithRateBytes(At96000(), row.bytes)))
            << row.frequency;
        EXPECT_TRUE(app.desktop.boxes.empty());
    }
}

TEST(FixHeader, NoRateGiven_Is44100) {
    TestApp app;
    app.folder.Write("a.wav", Wav().Rate(8000).Tone(1000).Bytes());
    RunJob(app);
    EXPECT_TRUE(
        SameBytes(app.folder.Read("a.wav"), WithRateBytes(Wav().Rate(8000).Tone(1000).Bytes(), "\x44\xAC")));
}

TEST(FixHeader, NumberBeyond32Bits_FailsWith6) {
    TestApp app;
    EXPECT_EQ(RuntimeErrorOf([&] { RunJob(app, {"/freq", "99999999999"}); }), 6);
}

TEST(FixHeaderJob, Mask_TakesAllMatchingFilesAndNoOther) {
    TestApp app;
    for (const std::string name : {"a1.wav", "A2.WAV", "b.wav", "a3.wav.BAK", "a4.mp3"})
        app.folder.Write(name, At96000());
    RunJob(app, {"a*.WAV", "/freq", "48000"});
    const std::string mended = WithRateBytes(At96000(), "\x80\xBB");
    EXPECT_TRUE(SameBytes(app.folder.Read("a1.wav"), mended));
    EXPECT_TRUE(SameBytes(app.folder.Read("A2.WAV"), mended));
    for (const std::string name : {"b.wav", "a3.wav.BAK", "a4.mp3"})
        EXPECT_TRUE(SameBytes(app.folder.Read(name), At96000())) << name;
}

TEST(FixHeaderJob, FolderOfTheMask_BecomesCurrent) {
    TestApp app;
    app.files.CreateFolder("sub");
    app.folder.Write("sub/a.wav", At96000());
    RunJob(app, {"sub/*.wav", "/freq", "48000"});
    EXPECT_TRUE(SameBytes(app.folder.Read("sub/a.wav"), WithRateBytes(At96000(), "\x80\xBB")));
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "sub");
}

TEST(FixHeaderJob, MissingFolder_Fails76) {
    TestApp app;
    EXPECT_EQ(RuntimeErrorOf([&] { RunJob(app, {"absent/*.wav"}); }), 76);
}

TEST(FixHeaderJob, NameThatIsNoWavFile_IsRefused) {
    for (const std::string spec : {"a.mp3", "*.*", "a.wave", "wav"}) {
        TestApp app;
        app.folder.Write("a.mp3", At96000());
        app.folder.Write("a.wav", At96000());
        RunJob(app, {spec});
        ASSERT_EQ(app.desktop.boxes.size(), 1U) << spec;
        EXPECT_EQ(app.desktop.boxes[0].text, "This one is not a valid file!");
        EXPECT_TRUE(SameBytes(app.folder.Read("a.wav"), At96000()));
        EXPECT_TRUE(SameBytes(app.folder.Read("a.mp3"), At96000()));
    }
}

TEST(FixHeaderJob, NoFileMatches_SaysNothing) {
    TestApp app;
    RunJob(app, {"absent.wav"});
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_TRUE(std::filesystem::is_empty(app.folder.Path()));
}

TEST(FixHeaderJob, ReadOnlyFile_IsToldAndTheOthersAreMended) {
    TestApp app;
    app.files.SetReadOnly(app.folder.Write("a.wav", At96000()), true);
    app.folder.Write("b.wav", At96000());
    RunJob(app, {"/freq", "48000"});
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, "Error opening the file specified!");
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_TRUE(SameBytes(app.folder.Read("a.wav"), At96000()));
    EXPECT_TRUE(SameBytes(app.folder.Read("b.wav"), WithRateBytes(At96000(), "\x80\xBB")));
}

TEST(FixHeaderJob, LinkToNowhere_IsTold) {
    TestApp app;
    std::filesystem::create_symlink("absent", "a.wav");
    RunJob(app);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, "Error opening the file specified!");
    EXPECT_FALSE(app.folder.Exists("absent"));
}

TEST(FixHeaderJob, Pipe_IsPassedOver) {
    TestApp app;
    ASSERT_EQ(std::system("mkfifo a.wav"), 0);
    RunJob(app);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(FixHeader, FileThatEndsInsideTheHeader_GrowsToTheField) {
    TestApp app;
    app.folder.Write("a.wav", "RIFF");
    RunJob(app, {"/freq", "48000"});
    EXPECT_EQ(app.folder.Read("a.wav"), "RIFF" + std::string(20, '\0') + "\x80\xBB");
}

TEST(FixHeaderJob, FullDisk_IsToldAndTheWalkGoesOn) {
    PosixFileSystem real;
    FaultInjectingFileSystem files(real);
    TestApp app(&files);
    app.folder.Write("a.wav", At96000());
    app.folder.Write("b.wav", At96000());
    // Operations of one file: open, write.
    files.faults.plan = {FaultPlan::Mode::OnlyTheNth, 2, ErrorNumber::DiskFull};
    RunJob(app, {"/freq", "48000"});
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, "Error #61\r\n\r\nDisk full");
    EXPECT_EQ(files.faults.operations, 4);
}

}  // namespace zefta::test
