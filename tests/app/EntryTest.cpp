#include <sstream>

#include <gtest/gtest.h>

#include "app/Entry.h"
#include "app/JobTable.h"
#include "core/OptionTable.h"
#include "support/FakeAgent.h"
#include "support/FakeWindows.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"

namespace zefta::test {
namespace {

class EntryTest : public ::testing::Test {
  protected:
    int Run(const std::vector<std::string>& arguments) { return RunZefta(app, arguments, output); }

    std::string LastBox() { return app.desktop.boxes.empty() ? "" : app.desktop.boxes.back().text; }

    TestApp app;
    std::ostringstream output;
};

TEST_F(EntryTest, HelpAndVersion_AreAnsweredOnTheOutput) {
    EXPECT_EQ(Run({"--version"}), 0);
    EXPECT_EQ(output.str(), "Kestrin Zeftaworks 2.00 (Build 1)\n");
    for (const char* question : {"--help", "-h"}) {
        output.str("");
        EXPECT_EQ(Run({question}), 0);
        EXPECT_NE(output.str().find("/encode, /e [mode] [mask]"), std::string::npos);
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EntryTest, EveryJob_HasItsRow) {
    for (const int code : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 13, 14, 15, 16, 17, 19, 20, 21})
        EXPECT_NE(FindJob(code), nullptr) << code;
    for (const int code : {0, 11, 12, 18, 22}) EXPECT_EQ(FindJob(code), nullptr) << code;
}

TEST_F(EntryTest, EveryJobOption_ReachesItsRowAndNoneIsSilentlyNothing) {
    for (const Option& option : OptionTable()) {
        if (option.group != OptionGroup::Job) continue;
        const std::string name(option.names.substr(0, option.names.find(' ')));
        app.state = AppState();
        app.desktop.boxes.clear();
        const int status = Run({name, name == "/copy" ? "x.m3u" : "nothing.none"});
        const Job* job = FindJob(app.state.JobCode);
        if (name == "/lng") continue;
        ASSERT_NE(job, nullptr) << name;
        EXPECT_EQ(job->name, name);
        if (job->run == nullptr) {
            EXPECT_EQ(status, job->needsDisplay ? 2 : 1) << name;
            EXPECT_EQ(app.desktop.boxes.size(), 1U) << name;
        }
    }
}

TEST_F(EntryTest, JobThatIsAWindow_OpensIt) {
    app.TestWorld::machine.hasDisplay = true;
    EXPECT_EQ(Run({"/setup"}), 1);
    EXPECT_EQ(LastBox(), "/setup is not part of this build.");
    FakeWindows windows;
    app.desktop.boxes.clear();
    EXPECT_EQ(RunZefta(app, {"/setup"}, output, [&] { return OpenedWindows{&windows, false}; }), 0);
    EXPECT_EQ(windows.calls, std::vector<std::string>{"options"});
}

TEST_F(EntryTest, Agent_IsStartedAndTheOneThatRunsClosed) {
    FakeAgent agent;
    agent.runs = true;
    app.App::agent = &agent;
    EXPECT_EQ(Run({"/agent"}), 0);
    EXPECT_EQ(agent.closed.size(), 1U);
    EXPECT_EQ(app.processes.started, std::vector<std::string>{"/opt/zefta/zeftaa.exe"});
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EntryTest, Agent_ThatIsMissing_EndsWith53) {
    app.processes.canStartPrograms = false;
    EXPECT_EQ(Run({"/agent"}), 1);
    EXPECT_TRUE(LastBox().starts_with("Error #53")) << LastBox();
}

TEST_F(EntryTest, JobThatNeedsADisplay_SaysThatThereIsNone) {
    for (const char* job : {"/setup", "/cdda"}) {
        EXPECT_EQ(Run({job}), 2);
        EXPECT_TRUE(LastBox().ends_with(" needs a display, and there is none.")) << LastBox();
    }
}

/// A display that is named; what comes of opening it is the test's.
class EntryOnADisplayTest : public EntryTest {
  protected:
    EntryOnADisplayTest() {
        app.TestWorld::machine.hasDisplay = true;
        app.folder.Write("a.mp3", Audio(300) + Id3v1{.title = "Song"}.Bytes());
    }

    int RunWithWindows(const std::vector<std::string>& arguments) {
        return RunZefta(app, arguments, output, [this] { return opened; });
    }

    FakeWindows windows;
    OpenedWindows opened = {&windows};
};

TEST_F(EntryOnADisplayTest, Windows_AreRun) {
    const std::string file = app.folder / "a.mp3";
    const std::pair<std::vector<std::string>, std::string> rows[] = {{{}, "main window"},
                                                                     {{app.folder.Path()}, "main window"},
                                                                     {{"/xyz"}, "main window"},
                                                                     {{file}, "information " + file}};
    for (const auto& [arguments, call] : rows) {
        windows.calls.clear();
        EXPECT_EQ(RunWithWindows(arguments), 0) << call;
        EXPECT_EQ(windows.calls, std::vector<std::string>{call});
    }
    EXPECT_EQ(output.str(), "");
    EXPECT_TRUE(app.desktop.notes.empty());
}

TEST_F(EntryOnADisplayTest, AudioCD_IsAWindowThatMayStartFromAFile) {
    for (const auto& arguments : std::vector<std::vector<std::string>>{
             {"/compress_audio_cd"}, {"/cdda", "Album.zfc"}, {"/CDDA", "/music/Album.zfc", "/trim"}})
        EXPECT_EQ(RunWithWindows(arguments), 0);
    EXPECT_EQ(windows.calls,
              (std::vector<std::string>{"audio CD ", "audio CD Album.zfc", "audio CD /music/Album.zfc"}));
    EXPECT_TRUE(app.desktop.boxes.empty());
    opened = {};
    EXPECT_EQ(RunWithWindows({"/cdda"}), 1);
    EXPECT_EQ(LastBox(), "/compress_audio_cd is not part of this build.");
}

TEST_F(EntryOnADisplayTest, DisplayThatFails_WindowsBecomeTextAndTheReasonIsNoted) {
    opened = {nullptr, true};
    EXPECT_EQ(RunWithWindows({app.folder.Path()}), 0);
    EXPECT_NE(output.str().find("\na.mp3\t"), std::string::npos) << output.str();
    output.str("");
    EXPECT_EQ(RunWithWindows({"a.mp3"}), 0);
    EXPECT_NE(output.str().find("\nTitle: Song\n"), std::string::npos) << output.str();
    EXPECT_EQ(app.desktop.notes, std::vector<std::string>(
                                     2, "No window is shown: the display of this session can't be opened."));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EntryOnADisplayTest, DisplayThatFails_JobThatNeedsItEndsWith2) {
    opened = {nullptr, true};
    for (const char* job : {"/setup", "/cdda"}) {
        EXPECT_EQ(RunWithWindows({job}), 2);
        EXPECT_TRUE(LastBox().ends_with(" needs a display, and the display of this session can't be opened."))
            << LastBox();
    }
    EXPECT_EQ(RunWithWindows({"-Embedding"}), 0);
}

TEST_F(EntryOnADisplayTest, FolderOfTheMainWindow_IsReadMeanwhile) {
    app.folder.Write("a.mp3", "");
    app.folder.Write("b.mp3", "");
    RunWithWindows({app.folder.Path()});
    EXPECT_EQ(windows.rowsAhead, 2U);
    windows.rowsAhead.reset();
    RunWithWindows({app.folder / "a.mp3"});
    EXPECT_FALSE(windows.rowsAhead) << "a file is no folder";
}

TEST_F(EntryTest, NoArgumentOrFolder_IsTheMainWindow) {
    app.TestWorld::machine.hasDisplay = true;
    EXPECT_EQ(Run({}), 1);
    EXPECT_EQ(LastBox(), "The main window is not part of this build.");
    EXPECT_EQ(Run({app.folder.Path()}), 1);
    EXPECT_EQ(app.state.CurrentFolder, app.folder.Path());
    EXPECT_EQ(Run({"/xyz"}), 1);
}

TEST_F(EntryTest, Embedding_EndsAtOnce) {
    EXPECT_EQ(Run({"-Embedding"}), 0);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EntryTest, ExistingFile_WavDoesNothing_CompressedShowsItsInformation) {
    app.folder.Write("a.wav", "x");
    app.folder.Write("a.mp3", Audio(300) + Id3v1{.title = "Song"}.Bytes());
    EXPECT_EQ(Run({"a.wav"}), 0);
    EXPECT_EQ(output.str(), "");
    EXPECT_EQ(Run({"a.mp3"}), 0);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_NE(output.str().find("a.mp3\n428 bytes\n"), std::string::npos) << output.str();
    EXPECT_NE(output.str().find("\n\nID3v1\nTitle: Song\n"), std::string::npos) << output.str();
    app.TestWorld::machine.hasDisplay = true;
    EXPECT_EQ(Run({"a.mp3"}), 1);
    EXPECT_TRUE(LastBox().starts_with("The file information is not part of this ")) << LastBox();
}

TEST_F(EntryTest, Help_OpensTheManualOfTheProgramsFolder) {
    app.processes.ownPath = app.folder / "zefta";
    app.folder.Write("ReadMe.html", "x");
    for (const char* option : {"/help", "/h", "/?"}) EXPECT_EQ(Run({option}), 0) << option;
    EXPECT_EQ(app.desktop.openedDocuments, std::vector<std::string>(3, app.folder / "ReadMe.html"));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(EntryTest, Help_WithoutTheManual_EndsWith53) {
    app.processes.ownPath = app.folder / "zefta";
    EXPECT_EQ(Run({"/help"}), 1);
    EXPECT_EQ(LastBox(), "Error #53\r\n\r\nFile not found: " + (app.folder / "ReadMe.html"));
    EXPECT_TRUE(app.desktop.openedDocuments.empty());
}

TEST_F(EntryTest, Help_WithoutAViewer_SaysWhereTheManualIs) {
    app.processes.ownPath = app.folder / "zefta";
    app.folder.Write("ReadMe.html", "x");
    app.desktop.canOpenDocuments = false;
    EXPECT_EQ(Run({"/help"}), 1);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_EQ(LastBox(), "No program was found that opens " + (app.folder / "ReadMe.html") + ".");
}

TEST_F(EntryTest, Lng_WritesTheTemplate) {
    EXPECT_EQ(Run({"/lng"}), 0);
    EXPECT_TRUE(app.folder.Exists("zefta.lng"));
}

TEST_F(EntryTest, UntrappedFailure_EndsWithItsTextAndStatus1) {
    EXPECT_EQ(Run({"/wt", "/before", "abc"}), 1);
    EXPECT_EQ(LastBox(), "Error #13\r\n\r\nType mismatch");
    EXPECT_EQ(Run({"/e", "no/such/*.wav"}), 1);
    EXPECT_TRUE(LastBox().starts_with("Error #76\r\n\r\nPath not found")) << LastBox();
}

TEST_F(EntryTest, Settings_AreLoadedBeforeTheCommandLineAndNeverSavedByAJob) {
    app.userSettings.values[{"Settings", "PriorityClass"}] = "idle";
    app.userSettings.values[{"Settings", "NormalizeLevel"}] = "77";
    EXPECT_EQ(Run({"/wt", "/high", "/norm_above", "50"}), 0);
    EXPECT_EQ(app.state.PriorityClass, 128);
    EXPECT_EQ(app.state.NormalizeLevel, 77);
    EXPECT_EQ(app.state.NormalizeAbove, 50);
    EXPECT_EQ(app.userSettings.applied, 0);
}

TEST_F(EntryTest, Encode_TagsThroughTheSharedWaveFileAndLetsItGo) {
    app.folder.Write("a.wav", Wav().Tone(1000).Bytes());
    app.processes.tool = [&](const auto&) { app.folder.Write("a.MP3", Audio(300)); };
    EXPECT_EQ(Run({"/e", "128", "a.wav", "/notrim"}), 0);
    EXPECT_TRUE(app.folder.Read("a.MP3").starts_with("ID3"));
    EXPECT_EQ(app.defaultWaveFile, nullptr);
}

}  // namespace
}  // namespace zefta::test
