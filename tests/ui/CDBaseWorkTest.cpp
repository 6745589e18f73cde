// frmCDBase: reading the disc, the grabber, the job.

#include <QMenu>
#include <QTimer>

#include "ui/CDBaseStage.h"
#include "ui/cd/MatchDialog.h"

namespace zefta::test {
namespace {

class CDBaseWorkTest : public CDWorkStage {};

TEST_F(CDBaseWorkTest, ReadCDInfo_FillsTheAlbumAndSelectsAllTracks) {
    Open();
    Type("txtYear", "1900");
    app.desktop.answers = {true};
    Click("cmdImportData");
    EXPECT_EQ(TextOf("txtArtist"), "Band");
    EXPECT_EQ(TextOf("txtAlbum"), "Debut");
    EXPECT_EQ(TextOf("txtYear"), "");
    EXPECT_EQ(TextOf("txtLength"), "4:45");
    EXPECT_EQ(Lines(), (Texts{"*01. One / Live (3:45)", "*02. Two (1:00)"}));
    EXPECT_TRUE(IsEnabled("cmdSave") && IsEnabled("cmdOK"));
    EXPECT_EQ(Status(), "");
}

TEST_F(CDBaseWorkTest, ReadCDInfo_AsksTheDatabaseOfTheSettings) {
    app.userSettings.values[{"Settings", "CompressCD_Server"}] = "127.0.0.1";
    Open();
    Click("cmdImportData");
    ASSERT_EQ(database.asked.size(), 1U);
    EXPECT_EQ(database.asked[0].Server, "127.0.0.1");
    EXPECT_EQ(database.asked[0].Port, 8880);
    EXPECT_EQ(database.asked[0].ClientName, "EasyCD");
    EXPECT_EQ(database.asked[0].ClientVersion, "2.0.1");
}

TEST_F(CDBaseWorkTest, ReadCDInfo_WithoutADiscSaysSo) {
    disc.isThere = false;
    Open();
    Click("cmdImportData");
    EXPECT_EQ(LastBox(), "No audio compact disc found.");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(IsEnabled("cmdOK"));
    EXPECT_TRUE(IsEnabled("cmdImportData"));
}

TEST_F(CDBaseWorkTest, ReadCDInfo_TellsWhatTheDatabaseLacks) {
    database.matches.clear();
    Open();
    Click("cmdImportData");
    EXPECT_EQ(Status(), "The database does not know this disc.");
    EXPECT_EQ(Lines(), (Texts{"*01.  (3:45)", "*02.  (1:00)"}));
    database.failure = "time-out";
    Click("cmdImportData");
    EXPECT_EQ(Status(), "The database could not be asked. (time-out)");
    EXPECT_TRUE(IsEnabled("cmdOK"));
}

TEST_F(CDBaseWorkTest, ReadCDInfo_KeepsTheWindowAliveAndClosedToAnythingElse) {
    Open();
    bool wasServed = false;
    app.desktop.whileServing = [&] {
        wasServed = true;
        EXPECT_EQ(Status(), "Connecting to CDDB...");
        EXPECT_TRUE(Find<QPushButton>("cmdStop")->isVisible());
        for (const char* name : {"cmdImportData", "cmdCDDAE", "cmdSimulateCD", "cmdSave", "cmdLoad", "cmdOK",
                                 "cmdCancel", "lstTracks", "txtArtist", "cmbDrive"})
            EXPECT_FALSE(IsEnabled(name)) << name;
        Key(Qt::Key_R, Qt::ControlModifier);
        Key(Qt::Key_Escape);
    };
    Find<QPushButton>("cmdImportData")->setFocus();
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(wasServed);
    // Escape ends the work and leaves the window open.
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(Status(), "Ended before it was done.");
    EXPECT_EQ(disc.sources.size(), 1U);
    EXPECT_EQ(dialog->focusWidget()->objectName(), "cmdImportData");
    EXPECT_FALSE(IsEnabled("cmdOK"));
}

TEST_F(CDBaseWorkTest, ReadCDInfo_StoppedByItsButtonOrEscape) {
    Open();
    for (const bool byKey : {false, true}) {
        app.desktop.whileServing = [&] { byKey ? Key(Qt::Key_Escape) : Click("cmdStop"); };
        Click("cmdImportData");
        EXPECT_EQ(Status(), "Ended before it was done.");
        EXPECT_TRUE(Lines().empty());
    }
    app.desktop.whileServing = {};
    Click("cmdImportData");
    EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(CDBaseWorkTest, SeveralEntries_AreChosenFromByKeys) {
    database.matches.push_back({"jazz", "22222222", "Öther", "Second"});
    database.albums["22222222"] = {"Öther", "Second", {"Uno"}};
    Open();
    bool wasAsked = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, dialog.get(), [&] {
        auto* chooser = qobject_cast<MatchDialog*>(QApplication::activeModalWidget());
        if (chooser == nullptr || wasAsked || !QTest::qWaitForWindowActive(chooser, 0)) return;
        wasAsked = true;
        auto* list = chooser->findChild<QListWidget*>("lstMatches");
        EXPECT_EQ(FromQt(list->item(1)->text()), "Öther - Second (jazz)");
        EXPECT_EQ(chooser->focusWidget(), list);
        EXPECT_FALSE(list->accessibleName().isEmpty());
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
    });
    timer.start(5);
    Click("cmdImportData");
    EXPECT_TRUE(wasAsked);
    EXPECT_EQ(TextOf("txtArtist"), "Öther");
    EXPECT_EQ(Lines().front(), "*01. Uno (3:45)");
}

TEST_F(CDBaseWorkTest, SeveralEntries_NoneOfThemLeavesTheNamesEmpty) {
    database.matches.push_back({"jazz", "22222222", "Other", "Second"});
    Open();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, dialog.get(), [] {
        if (auto* chooser = qobject_cast<MatchDialog*>(QApplication::activeModalWidget()))
            QTest::keyClick(chooser, Qt::Key_Escape);
    });
    timer.start(5);
    Click("cmdImportData");
    EXPECT_EQ(TextOf("txtArtist"), "");
    EXPECT_EQ(Lines(), (Texts{"*01.  (3:45)", "*02.  (1:00)"}));
}

TEST_F(CDBaseWorkTest, SimulateCD_MakesTracksWithoutNames) {
    Open();
    app.desktop.inputs = {"12"};
    Click("cmdSimulateCD");
    EXPECT_EQ(app.desktop.questions.at(0).text, Message(33111));
    EXPECT_EQ(app.desktop.questions.at(0).caption, Message(33110));
    ASSERT_EQ(Lines().size(), 12U);
    EXPECT_EQ(Lines()[0], "*01.  (00:00)");
    EXPECT_EQ(Lines()[11], "*12.  (00:00)");
    EXPECT_TRUE(IsEnabled("cmdSave") && IsEnabled("cmdOK"));
}

TEST_F(CDBaseWorkTest, SimulateCD_WithoutANumberDoesNothing) {
    Open();
    for (const char* answer : {"", "many", "-3", "99999", "track 5"}) {
        app.desktop.inputs = {answer};
        Click("cmdSimulateCD");
        EXPECT_TRUE(Lines().empty()) << answer;
        EXPECT_FALSE(IsEnabled("cmdOK")) << answer;
    }
}

TEST_F(CDBaseWorkTest, DoubleClickOrF2_EditsANameAndKeepsLengthAndTick) {
    Open();
    Click("cmdImportData");
    app.desktop.inputs = {"Uno / Live", "Dos", "", " "};
    DoubleClickTrack(0);
    EXPECT_EQ(app.desktop.questions.at(0).text, Message(33112));
    EXPECT_EQ(app.desktop.questions.at(0).defaultAnswer, "One / Live");
    EXPECT_EQ(Lines(), (Texts{"*01. Uno / Live (3:45)", "*02. Two (1:00)"}));
    auto* list = Find<QListWidget>("lstTracks");
    list->setFocus();
    list->setCurrentRow(1);
    Key(Qt::Key_F2);
    EXPECT_EQ(Lines()[1], "*02. Dos (1:00)");
    Key(Qt::Key_Return);
    EXPECT_EQ(Lines()[1], "*02. Dos (1:00)");
    Key(Qt::Key_F2);
    EXPECT_EQ(Lines()[1], "*02.  (1:00)");
}

// The grabber.

TEST_F(CDBaseWorkTest, Grabber_IsTheOneOfTheMachine) {
    app.machineSettings.values[{"SOFTWARE\\CD DAE 99", "value1"}] = "asunder";
    Open();
    Click("cmdCDDAE");
    EXPECT_EQ(app.processes.started, Texts{"\"asunder\""});
    EXPECT_TRUE(disc.read.empty());
    app.processes.canStartPrograms = false;
    Click("cmdCDDAE");
    EXPECT_TRUE(LastBox().starts_with("Error #53"));
}

TEST_F(CDBaseWorkTest, Grabber_OfOurOwnReadsTheDiscIntoTheSourceFolder) {
    disc.contents = {};
    disc.AddTrack(true, 3);
    disc.AddTrack(true, 1);
    Open();
    std::vector<int> values;
    app.desktop.whileServing = [&] { values.push_back(Find<QProgressBar>("pbProgress")->value()); };
    Click("cmdCDDAE");
    EXPECT_TRUE(app.folder.Exists("in/Track01.WAV"));
    EXPECT_TRUE(app.folder.Exists("in/Track02.WAV"));
    EXPECT_EQ(Status(), "The tracks are in the source folder.");
    EXPECT_GE(*std::max_element(values.begin(), values.end()), 750);
    EXPECT_TRUE(Find<QPushButton>("cmdStop")->isHidden());
}

TEST_F(CDBaseWorkTest, Grabber_AsksForAFolderWhenThereIsNone) {
    disc.contents = {};
    disc.AddTrack(true, 1);
    Open();
    Type("txtSourceFolder", "");
    Click("cmdCDDAE");
    EXPECT_TRUE(disc.read.empty());
    app.desktop.folders = {app.folder / "in"};
    Click("cmdCDDAE");
    EXPECT_TRUE(app.folder.Exists("in/Track01.WAV"));
}

TEST_F(CDBaseWorkTest, Grabber_WithoutADiscSaysSo) {
    disc.isThere = false;
    Open();
    Click("cmdCDDAE");
    EXPECT_EQ(LastBox(), Message(33104));
}

TEST_F(CDBaseWorkTest, Grabber_IsStopped) {
    Open();
    int served = 0;
    app.desktop.whileServing = [&] {
        if (++served == 20) Key(Qt::Key_Escape);
    };
    Click("cmdCDDAE");
    EXPECT_EQ(Status(), "Ended before it was done.");
    EXPECT_TRUE(std::filesystem::is_empty(app.folder / "in"));
    EXPECT_TRUE(dialog->isVisible());
}

// The job.

TEST_F(CDBaseWorkTest, Compress_RunsTheJobUnselectsTheTracksAndShowsTheTitle) {
    OpenWithTracks();
    Find<QListWidget>("lstTracks")->item(1)->setCheckState(Qt::Unchecked);
    ChooseMode("LAME 128 kbps");
    std::string title;
    whileTool = [&] {
        title = FromQt(dialog->windowTitle());
        EXPECT_FALSE(IsEnabled("cmdCancel"));
    };
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(title, "[1/2] One / Live");
    EXPECT_EQ(FromQt(dialog->windowTitle()), Message(33001));
    EXPECT_TRUE(app.folder.Exists("out/Band - One (Live).MP3"));
    EXPECT_EQ(app.folder.Read("out/Band - Debut.m3u"), "Band - One (Live).MP3\n");
    EXPECT_EQ(Lines(), (Texts{"01. One / Live (3:45)", "02. Two (1:00)"}));
    EXPECT_EQ(app.state.JobCode, 14);
    EXPECT_EQ(Setting("Bitrate"), "128");
    EXPECT_EQ(app.state.CompressCD_Bitrate, 128);
    EXPECT_TRUE(IsEnabled("cmdOK") && IsEnabled("cmdCancel"));
    EXPECT_EQ(powerOffs, 0);
}

TEST_F(CDBaseWorkTest, Compress_TakesEverySwitch) {
    OpenWithTracks();
    Find<QListWidget>("lstTracks")->item(1)->setCheckState(Qt::Unchecked);
    for (const char* name : {"chkTrimSilence", "chkNormalize", "chkNormalizeSeparately", "chkReduceLevel",
                             "chkDeleteAfterCompress", "chkNoPlaylists", "chkShutdown"})
        Toggle(name);
    Click("cmdOK");
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_NE(app.processes.runs[0].commandLine.find(" /norm "), std::string::npos);
    EXPECT_NE(app.processes.runs[1].commandLine.find(" --scale 0.95 "), std::string::npos);
    EXPECT_TRUE(app.state.NormalizeSeparately);
    EXPECT_FALSE(app.folder.Exists("in/Track01.WAV"));
    EXPECT_TRUE(app.folder.Exists("in/Track02.WAV"));
    EXPECT_FALSE(app.folder.Exists("out/Band - Debut.m3u"));
    EXPECT_EQ(powerOffs, 1);
}

TEST_F(CDBaseWorkTest, Compress_StoppedEndsBehindTheTrackAndDoesNotPowerOff) {
    OpenWithTracks();
    app.desktop.answers = {true};
    Toggle("chkShutdown");
    whileTool = [this] { Click("cmdStop"); };
    Click("cmdOK");
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_EQ(Lines(), (Texts{"01. One / Live (3:45)", "*02. Two (1:00)"}));
    EXPECT_EQ(Status(), "Ended before it was done.");
    EXPECT_EQ(powerOffs, 0);
}

TEST_F(CDBaseWorkTest, Compress_StoppedDuringTheLastTrackDoesNotPowerOff) {
    OpenWithTracks();
    Find<QListWidget>("lstTracks")->item(1)->setCheckState(Qt::Unchecked);
    Toggle("chkShutdown");
    whileTool = [this] { Click("cmdStop"); };
    Click("cmdOK");
    EXPECT_EQ(Status(), "Tracks compressed: 1 of 1.");
    EXPECT_EQ(powerOffs, 0);
}

TEST_F(CDBaseWorkTest, EncoderThatHangs_IsEndedByStoppingTwice) {
    OpenWithTracks();
    whileTool = [this] {
        EXPECT_FALSE(dialog->WantsToolEnded());
        Click("cmdStop");
        EXPECT_FALSE(dialog->WantsToolEnded());
        EXPECT_EQ(dialog->focusWidget()->objectName(), "cmdStop");
        app.desktop.questions.clear();
        app.desktop.answers = {false, true};
        Click("cmdStop");
        EXPECT_FALSE(dialog->WantsToolEnded());
        Key(Qt::Key_Escape);
        EXPECT_TRUE(dialog->WantsToolEnded());
        Key(Qt::Key_Escape);
        ASSERT_EQ(app.desktop.questions.size(), 2U);
        EXPECT_TRUE(app.desktop.questions[0].noIsDefault);
    };
    app.desktop.answers = {true};
    Click("cmdOK");
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_EQ(Status(), "Ended before it was done.");
    whileTool = [this] { EXPECT_FALSE(dialog->WantsToolEnded()); };
    app.desktop.answers = {true};
    Click("cmdOK");
    EXPECT_FALSE(dialog->IsCancelled());
}

TEST_F(CDBaseWorkTest, UndividedNames_AreAskedAbout) {
    for (const bool areTitles : {true, false}) {
        OpenWithTracks();
        Find<QListWidget>("lstTracks")->item(0)->setCheckState(Qt::Unchecked);
        app.desktop.answers = {areTitles, true};
        app.desktop.questions.clear();
        Click("cmdOK");
        ASSERT_EQ(app.desktop.questions.size(), areTitles ? 1U : 2U);
        EXPECT_NE(app.desktop.questions[0].text.find("\nTwo\n"), std::string::npos);
        // Without an answer names are divided as files of albums have always been read.
        EXPECT_TRUE(app.desktop.questions[0].noIsDefault);
        EXPECT_EQ(app.folder.Exists("out/Band - Two.MP3"), true);
        EXPECT_EQ(app.folder.Read("out/Band - Debut.m3u"), areTitles ? "Band - Two.MP3\n" : "Band -.MP3\n");
    }
}

TEST_F(CDBaseWorkTest, NoToBothQuestionsAboutNames_IsTheWayBack) {
    OpenWithTracks();
    Toggle("chkDeleteAfterCompress");
    Click("cmdOK");
    ASSERT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_EQ(app.desktop.questions[1].text, "Begin without these titles?");
    EXPECT_TRUE(app.desktop.questions[1].noIsDefault);
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_TRUE(app.folder.Exists("in/Track02.WAV"));
    EXPECT_EQ(Lines(), (Texts{"*01. One / Live (3:45)", "*02. Two (1:00)"}));
}

TEST_F(CDBaseWorkTest, NamesWithAnEmptyEnd_AreAskedAboutToo) {
    OpenWithTracks();
    app.desktop.inputs = {"Ann / Song / "};
    DoubleClickTrack(0);
    Toggle("chkTreatAsCompilation");
    Find<QListWidget>("lstTracks")->item(1)->setCheckState(Qt::Unchecked);
    app.desktop.questions.clear();
    app.desktop.answers = {true};
    Click("cmdOK");
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(app.folder.Read("out/Band - Debut.m3u"), "Ann - Song.MP3\n");
}

TEST_F(CDBaseWorkTest, Compress_TellsHowManyResultsThereAre) {
    OpenWithTracks();
    std::filesystem::remove(app.folder / "in/Track01.WAV");
    app.desktop.answers = {true};
    Click("cmdOK");
    EXPECT_EQ(Status(), "Tracks compressed: 1 of 2.");
}

TEST_F(CDBaseWorkTest, HeldKeys_CountOnce) {
    Open();
    const auto hold = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        for (const bool isRepeated : {false, true, true}) {
            QKeyEvent event(QEvent::KeyPress, key, modifiers, {}, isRepeated);
            QApplication::sendEvent(dialog->focusWidget(), &event);
        }
    };
    hold(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(disc.sources.size(), 1U);
    Find<QListWidget>("lstTracks")->setFocus();
    hold(Qt::Key_F2, Qt::NoModifier);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
}

TEST_F(CDBaseWorkTest, Keys_WorkFromEveryControl) {
    OpenWithTracks();
    for (const char* name : {"lstTracks", "txtArtist", "cmbGenre", "cmbDrive", "cmbBitRate", "chkTrimSilence",
                             "cmdCancel", "txtSourceFolder"}) {
        disc.sources.clear();
        Find<QWidget>(name)->setFocus();
        Key(Qt::Key_R, Qt::ControlModifier);
        EXPECT_EQ(disc.sources.size(), 1U) << name;
        app.desktop.questions.clear();
        Key(Qt::Key_L, Qt::ControlModifier);
        Key(Qt::Key_S, Qt::ControlModifier);
        Key(Qt::Key_F1, Qt::AltModifier);
        Key(Qt::Key_F2, Qt::AltModifier);
        EXPECT_EQ(app.desktop.questions.size(), 4U) << name;
        Find<QListWidget>("lstTracks")->item(1)->setCheckState(Qt::Unchecked);
        app.processes.runs.clear();
        Key(Qt::Key_Return, Qt::ControlModifier);
        EXPECT_EQ(app.processes.runs.size(), 1U) << name;
        EXPECT_TRUE(dialog->isVisible()) << name;
    }
}

TEST_F(CDBaseWorkTest, Compress_AsksForTheFoldersThatAreMissing) {
    OpenWithTracks();
    Type("txtSourceFolder", "");
    Type("txtTargetFolder", "");
    app.desktop.answers = {true};
    Click("cmdOK");
    EXPECT_TRUE(app.processes.runs.empty());
    app.desktop.folders = {app.folder / "in", app.folder / "out"};
    Click("cmdOK");
    EXPECT_EQ(app.processes.runs.size(), 2U);
}

TEST_F(CDBaseWorkTest, Progress_IsTheTrackAtHand) {
    OpenWithTracks();
    app.desktop.answers = {true};
    app.desktop.whenBatch = [this](std::size_t item, std::size_t count) { dialog->ShowBatch(item, count); };
    std::vector<int> values;
    whileTool = [&] {
        values.push_back(Find<QProgressBar>("pbProgress")->value());
        EXPECT_EQ(Find<QProgressBar>("pbProgress")->maximum(), 2);
    };
    Click("cmdOK");
    EXPECT_EQ(values, (std::vector<int>{0, 1}));
}

}  // namespace
}  // namespace zefta::test
