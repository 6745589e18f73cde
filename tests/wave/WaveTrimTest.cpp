#include <filesystem>

#include <gtest/gtest.h>

#include "core/BlockCopy.h"
#include "core/Options.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveTrim.h"

namespace zefta::test {
namespace {

class WaveTrimTest : public ::testing::Test {
  protected:
    void Run(std::vector<std::string> tokens) {
        tokens.insert(tokens.begin(), "/wt");
        ParseCommandLine(app, CommandLine(std::move(tokens)));
        WaveTrimJob(app);
    }

    TestApp app;
    const std::string tone = ToneBytes(3 * WaveBlockSize);
    const std::string original = Wav().Silence(4000).Audio(tone).Silence(4000).Bytes();
    const std::string trimmed = Wav().Silence(2352).Audio(tone).Silence(2352).Bytes();
};

TEST_F(WaveTrimTest, NoFileSpec_WorksOnAllWavFilesOfTheCurrentFolder) {
    app.folder.Write("a.wav", original);
    app.folder.Write("B.WAV", original);
    app.folder.Write("c.mp3", original);
    std::filesystem::create_directory(app.folder / "d.wav");
    Run({"/before", "1", "/after", "1"});
    EXPECT_EQ(app.folder.Read("a.wav"), trimmed);
    EXPECT_EQ(app.folder.Read("B.WAV"), trimmed);
    EXPECT_EQ(app.folder.Read("c.mp3"), original);
    EXPECT_EQ(app.folder.Read("a.wav.BAK"), original);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(WaveTrimTest, Cancelled_EndsBehindTheFileAtHand) {
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) app.folder.Write(name, original);
    app.desktop.cancelsFromItem = 2;
    Run({"/before", "1", "/after", "1"});
    int rewritten = 0;
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) rewritten += app.folder.Read(name) == trimmed;
    EXPECT_EQ(rewritten, 1);
}

TEST_F(WaveTrimTest, FolderPart_IsWalkedInEveryForm) {
    std::filesystem::create_directory(app.folder / "sub");
    for (const std::string& spec :
         {std::string("sub/x.wav"), std::string("sub\\X.WAV"), app.folder / "sub/*.wav"}) {
        app.folder.Write("sub/x.wav", original);
        Run({spec, "/nb", "/before", "1", "/after", "1"});
        EXPECT_EQ(app.folder.Read("sub/x.wav"), trimmed) << spec;
    }
}

TEST_F(WaveTrimTest, Options_ReachTheWaveFile) {
    app.folder.Write("a.wav",
                     Wav().Sample(7).Sample(-8).Silence(4000).Tone(2 * WaveBlockSize, 16384).Bytes());
    Run({"/f5", "/zx", "/norm", "/norm_level", "100", "/norm_below", "90"});
    const std::string result = app.folder.Read("a.wav");
    EXPECT_EQ(result.size(), 44 + 2 * WaveBlockSize + 141120);
    EXPECT_EQ(result.substr(44, 2), "\xFF\x7F");
}

TEST_F(WaveTrimTest, Raw_IsTakenWithoutAQuestion) {
    app.folder.Write("a.wav", tone);
    Run({"/raw"});
    EXPECT_TRUE(app.desktop.questions.empty());
    EXPECT_TRUE(app.folder.Exists("a.wav.BAK") || app.folder.Read("a.wav") == tone);
}

TEST_F(WaveTrimTest, NoBackup_DeletesItAfterSuccessOnly) {
    app.folder.Write("a.wav", original);
    Run({"/nb"});
    EXPECT_FALSE(app.folder.Exists("a.wav.BAK"));
    EXPECT_EQ(app.folder.Read("a.wav"), Wav().Audio(tone).Bytes());
}

TEST_F(WaveTrimTest, NoBackup_AfterAFailure_KeepsIt) {
    app.folder.Write("a.wav", original);
    for (int nth = 1; nth < 40; ++nth) {
        std::filesystem::remove(app.folder / "a.wav.BAK");
        app.folder.Write("a.wav", original);
        FaultInjectingFileSystem failing(app.TestWorld::files);
        failing.faults.plan = {FaultPlan::Mode::FromTheNthOn, nth, ErrorNumber::DiskFull};
        App failingApp(app.machine, failing, app.desktop, app.processes, app.userSettings,
                       app.machineSettings);
        ParseCommandLine(failingApp, CommandLine({"/wt", "/nb"}));
        WaveTrimJob(failingApp);
        const bool rewritten =
            app.folder.Exists("a.wav") && app.folder.Read("a.wav") == Wav().Audio(tone).Bytes();
        const bool untouched = app.folder.Exists("a.wav") && app.folder.Read("a.wav") == original;
        const bool backedUp = app.folder.Exists("a.wav.BAK") && app.folder.Read("a.wav.BAK") == original;
        EXPECT_TRUE(rewritten || untouched || backedUp) << nth;
    }
}

TEST_F(WaveTrimTest, SecondRun_KeepsOnlyTheFileAsItLastFoundIt) {
    app.folder.Write("a.wav", original);
    app.folder.Write("a.wav.BAK", "older");
    Run({"/before", "1", "/after", "1"});
    EXPECT_EQ(app.folder.Read("a.wav.BAK"), original);
    Run({"/f0"});
    Run({"/f4"});
    EXPECT_NE(app.folder.Read("a.wav.BAK"), original);
}

TEST_F(WaveTrimTest, NoFormat_SaysOkAndChangesNothing) {
    app.folder.Write("a.wav", original);
    app.folder.Write("b.wav", "RIFFxxxxAVI ");
    Run({"/nf"});
    ASSERT_EQ(app.desktop.boxes.size(), 2U);
    for (const auto& box : app.desktop.boxes) {
        EXPECT_EQ(box.text, "OK");
        EXPECT_EQ(box.kind, BoxKind::Plain);
    }
    EXPECT_EQ(app.folder.Read("a.wav"), original);
}

TEST_F(WaveTrimTest, ScanFailure_IsToldAndTheWalkGoesOn) {
    app.folder.Write("a.wav", "RIFFxxxxAVI ");
    app.folder.Write("b.wav", original);
    app.folder.Write("c.wav", Wav().Bits(8).Tone(50000).Bytes());
    Run({"/nb", "/dontshowexec"});
    EXPECT_EQ(app.folder.Read("b.wav"), Wav().Audio(tone).Bytes());
    ASSERT_EQ(app.desktop.boxes.size(), 2U);
    std::string texts = app.desktop.boxes[0].text + app.desktop.boxes[1].text;
    EXPECT_NE(texts.find("An error occured while scanning file \"" + (app.folder / "a.wav") +
                         "\":\r\n\r\nIs not a valid WAVe format file.."),
              std::string::npos);
    EXPECT_NE(texts.find("Incompatible format detected"), std::string::npos);
    EXPECT_EQ(app.desktop.progressViewsOpened, 0);
}

TEST_F(WaveTrimTest, FileWithoutFoundAudio_IsRefusedAndKept) {
    std::string streamed = original;
    streamed.replace(4, 4, "\xFF\xFF\xFF\xFF");
    app.folder.Write("a.wav", streamed);
    Run({"/nb"});
    EXPECT_EQ(app.folder.Read("a.wav"), streamed);
    EXPECT_NE(app.desktop.boxes.at(0).text.find("Scan process have not been passed successfully!"),
              std::string::npos);
}

TEST_F(WaveTrimTest, RuntimeFailureOfOneFile_IsToldAndTheWalkGoesOn) {
    app.folder.Write("a.wav", original);
    app.files.SetReadOnly(app.folder.Write("a.wav.BAK", "x"), true);
    app.folder.Write("b.wav", original);
    Run({"/nb"});
    EXPECT_EQ(app.folder.Read("a.wav"), original);
    EXPECT_EQ(app.folder.Read("b.wav"), Wav().Audio(tone).Bytes());
    EXPECT_TRUE(app.desktop.boxes.at(0).text.starts_with("Error #70\r\n\r\nPermission denied"));
}

TEST_F(WaveTrimTest, Progress_IsShownOnlyWhenWanted) {
    app.folder.Write("a.wav", original);
    Run({"/showexec", "/before", "1"});
    EXPECT_EQ(app.desktop.progressViewsOpened, 1);
    ASSERT_FALSE(app.desktop.reports.empty());
    EXPECT_EQ(app.desktop.reports.front().status, "Scanning...");
    EXPECT_EQ(app.desktop.reports.back().status, "Saving...");
    EXPECT_EQ(app.desktop.reports.back().fileName, app.folder / "a.wav");
    EXPECT_EQ(app.desktop.reports.back().maximum, static_cast<std::int32_t>(2352 + tone.size()));
    EXPECT_EQ(app.desktop.reports.back().value, app.desktop.reports.back().maximum);
    EXPECT_EQ(app.desktop.reports.back().labels.at("lblStartOffsetValue"), "4 000 bytes");
    EXPECT_EQ(app.desktop.reports.back().labels.at("lblFramesAfter"), "1 frames");
}

}  // namespace
}  // namespace zefta::test
