#include <filesystem>

#include <gtest/gtest.h>

#include "cd/GrabTracks.h"
#include "support/FakeDisc.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

using Texts = std::vector<std::string>;

class GrabTracksTest : public ::testing::Test {
  protected:
    GrabTracksTest() {
        disc.AddTrack(true, 4);
        disc.AddTrack(false, 9);
        disc.AddTrack(true, 2);
    }

    GrabEnd Grab() {
        return GrabTracks(app, disc, {"/dev/sr0", app.folder / "in"},
                          [this](std::int32_t track, std::int32_t last, std::int32_t thousandths) {
                              progress.push_back(std::to_string(track) + "/" + std::to_string(last) + " " +
                                                 std::to_string(thousandths));
                          });
    }

    Texts Files() const {
        Texts names;
        if (!std::filesystem::exists(app.folder / "in")) return names;
        for (const auto& entry : std::filesystem::directory_iterator(app.folder / "in"))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    static std::string Wave(char byte, int sectors) {
        return Wav().Audio(std::string(static_cast<std::size_t>(sectors) * DiscSectorBytes, byte)).Bytes();
    }

    TestApp app;
    FakeDisc disc;
    Texts progress;
};

TEST_F(GrabTracksTest, AudioTracks_BecomeWavFilesNumberedAsOnTheDisc) {
    EXPECT_EQ(Grab(), GrabEnd::Done);
    EXPECT_EQ(Files(), (Texts{"Track01.WAV", "Track03.WAV"}));
    EXPECT_EQ(app.folder.Read("in/Track01.WAV"), Wave(1, 4));
    EXPECT_EQ(app.folder.Read("in/Track03.WAV"), Wave(3, 2));
    EXPECT_EQ(disc.read, (std::vector<std::int32_t>{1, 3}));
    EXPECT_EQ(progress, (Texts{"1/3 166", "1/3 333", "1/3 500", "1/3 666", "3/3 833", "3/3 1000"}));
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(GrabTracksTest, FirstNumberThatIsHigher_Counts) {
    disc.contents.FirstNumber = 4;
    Grab();
    EXPECT_EQ(Files(), (Texts{"Track04.WAV", "Track06.WAV"}));
}

TEST_F(GrabTracksTest, FileThatIsThere_StaysUnlessThePersonSaysSo) {
    std::filesystem::create_directories(app.folder / "in");
    app.folder.Write("in/track01.wav", "mine");
    app.folder.Write("in/Track03.WAV", "mine too");
    app.desktop.answers = {false, true};
    EXPECT_EQ(Grab(), GrabEnd::Done);
    EXPECT_EQ(app.folder.Read("in/track01.wav"), "mine");
    EXPECT_EQ(app.folder.Read("in/Track03.WAV"), Wave(3, 2));
    ASSERT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_EQ(app.desktop.questions[0].text, app.messages.GetMessage(33109, app.folder / "in/Track01.WAV"));
    EXPECT_TRUE(app.desktop.questions[0].noIsDefault);
    EXPECT_EQ(disc.read, std::vector<std::int32_t>{3});
}

TEST_F(GrabTracksTest, FileThatComesMeanwhile_IsNotWrittenOver) {
    app.desktop.whenBatch = [this](std::size_t item, std::size_t) {
        if (item == 1) app.folder.Write("in/Track01.WAV", "mine");
    };
    EXPECT_EQ(Grab(), GrabEnd::Stopped);
    EXPECT_EQ(app.folder.Read("in/Track01.WAV"), "mine");
    EXPECT_EQ(Files(), Texts{"Track01.WAV"});
    EXPECT_TRUE(app.desktop.boxes.at(0).text.starts_with("Error #58"));
}

TEST_F(GrabTracksTest, TrackThatCannotBeRead_LeavesNothingAndTheNextFollows) {
    disc.damaged = {1};
    EXPECT_EQ(Grab(), GrabEnd::Done);
    EXPECT_EQ(Files(), Texts{"Track03.WAV"});
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_NE(app.desktop.boxes[0].text.find("Track01.WAV"), std::string::npos);
    EXPECT_EQ(progress.back(), "3/3 1000");
}

TEST_F(GrabTracksTest, TrackThatGivesTooLittle_IsNone) {
    disc.missing[3] = 2;
    Grab();
    EXPECT_EQ(Files(), Texts{"Track01.WAV"});
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
}

TEST_F(GrabTracksTest, Cancelled_InTheMidstOfATrackLeavesNoPieceOfIt) {
    app.desktop.asksToCancel = [this] { return progress.size() >= 5; };
    EXPECT_EQ(Grab(), GrabEnd::Cancelled);
    EXPECT_EQ(Files(), Texts{"Track01.WAV"});
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(GrabTracksTest, NoDisc_MakesNoFolder) {
    disc.isThere = false;
    EXPECT_EQ(Grab(), GrabEnd::NoDisc);
    EXPECT_FALSE(app.folder.Exists("in"));
    disc.isThere = true;
    disc.contents = {};
    disc.AddTrack(false, 5);
    EXPECT_EQ(Grab(), GrabEnd::NoDisc);
}

TEST_F(GrabTracksTest, FolderThatCannotBeMade_IsTold) {
    app.folder.Write("in", "a file");
    EXPECT_EQ(Grab(), GrabEnd::Stopped);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(disc.read.empty());
}

TEST_F(GrabTracksTest, EachRefusedOperation_LeavesNoHalfFileUnderItsName) {
    for (int operation = 1; operation < 60; ++operation) {
        std::filesystem::remove_all(app.folder / "in");
        std::filesystem::create_directories(app.folder / "in");
        FaultInjectingFileSystem files(app.TestWorld::files);
        files.faults.plan = {FaultPlan::Mode::OnlyTheNth, operation, ErrorNumber::DiskFull};
        TestApp faulty(&files);
        GrabTracks(faulty, disc, {"", app.folder / "in"}, {});
        for (const std::string& name : Files()) {
            EXPECT_EQ(app.folder.Read("in/" + name), name == "Track01.WAV" ? Wave(1, 4) : Wave(3, 2))
                << operation << " " << name;
        }
    }
}

class OutsideGrabberTest : public ::testing::Test {
  protected:
    bool Start(const std::string& value) {
        app.machineSettings.values[{"SOFTWARE\\CD DAE 99", "value1"}] = value;
        return StartOutsideGrabber(app, app.folder / "in");
    }

    TestApp app;
};

TEST_F(OutsideGrabberTest, NoneNamed_StartsNothing) {
    EXPECT_FALSE(StartOutsideGrabber(app, "in"));
    EXPECT_FALSE(Start(" "));
    EXPECT_TRUE(app.processes.started.empty());
}

TEST_F(OutsideGrabberTest, Folder_HoldsItsProgram) {
    std::filesystem::create_directories(app.folder / "CD DAE");
    EXPECT_TRUE(Start(app.folder / "CD DAE"));
    EXPECT_EQ(app.processes.started, Texts{"\"" + (app.folder / "CD DAE") + "/cddae99.exe\""});
}

TEST_F(OutsideGrabberTest, Program_IsStartedItself) {
    EXPECT_TRUE(Start("asunder"));
    EXPECT_EQ(app.processes.started, Texts{"\"asunder\""});
}

TEST_F(OutsideGrabberTest, Folder_IsTheCurrentOneOfTheGrabberAlone) {
    Start("asunder");
    EXPECT_TRUE(app.folder.Exists("in"));
    EXPECT_EQ(app.files.CurrentFolder(), app.folder.Path());
}

}  // namespace
}  // namespace zefta::test
