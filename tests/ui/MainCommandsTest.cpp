#include <map>
#include <set>

#include "platform/CommandText.h"
#include "support/TagBuilders.h"
#include "ui/CommandStage.h"

namespace zefta::test {
namespace {

std::string Song(const std::string& title) {
    Id3v1 tag;
    tag.artist = "A";
    tag.title = title;
    return Mp3().Behind(tag.Bytes()).Bytes();
}

class MainCommandsTest : public CommandStage {
  protected:
    /// Encoders leave a stream under the last path of their command line.
    void PlayEncoder() {
        app.processes.tool = [](const RecordingProcesses::Run& run) {
            WriteWholeFile(SplitCommandLine(run.commandLine).back().text, Mp3().Bytes());
        };
    }

    bool HasRow(const std::string& name) { return HasCell(name, 0, 1); }

    bool HasCell(const std::string& text, int firstColumn = 0, int endColumn = 8) {
        for (int row = 0; row < View().model()->rowCount(); ++row) {
            for (int column = firstColumn; column < endColumn; ++column) {
                if (FromQt(View().model()->index(row, column).data().toString()) == text) return true;
            }
        }
        return false;
    }

    /// Of the dialog that is open; "" for none.
    static std::string NameOfDialog() {
        const QWidget* dialog = QApplication::activeModalWidget();
        return dialog != nullptr ? FromQt(dialog->objectName()) : std::string();
    }
};

// File menu.

TEST_F(MainCommandsTest, OpenFolder_EntersWhatWasChosen) {
    MakeFolder("sub");
    Open();
    app.desktop.folders = {PathOf("sub")};
    ClickItem("mnuFileOpenFolder");
    EXPECT_EQ(app.desktop.questions[0].text, Message(32001));
    EXPECT_EQ(Browser().Folder(), PathOf("sub"));
    EXPECT_EQ(Browser().History().front(), PathOf("sub"));
    Key(Qt::Key_F3);
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_EQ(Browser().Folder(), PathOf("sub"));
}

TEST_F(MainCommandsTest, Rename_FileKeepsItsExtensionAndItsRowIsRefilled) {
    Make("a.mp3", Song("One"));
    Open();
    ClickRow("a.mp3");
    app.desktop.inputs = {"b"};
    ClickItem("mnuFileRename");
    EXPECT_EQ(app.desktop.questions[0].defaultAnswer, "a");
    EXPECT_TRUE(Exists("b.mp3"));
    EXPECT_TRUE(HasRow("b.mp3"));
    EXPECT_FALSE(HasRow("a.mp3"));
}

TEST_F(MainCommandsTest, RenameKeys_F2AndF6) {
    MakeFolder("sub");
    Open();
    ClickRow("sub");
    Key(Qt::Key_F2);
    Key(Qt::Key_F6);
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_TRUE(Exists("sub"));
    app.desktop.inputs = {"other"};
    Key(Qt::Key_F6);
    EXPECT_TRUE(HasRow("other"));
}

TEST_F(MainCommandsTest, Rename_WayUpOrNothing_AsksNothing) {
    Open();
    ClickRow("..");
    Key(Qt::Key_F2);
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(MainCommandsTest, Rename_Failure_IsToldAndTheRowStays) {
    Make("a.mp3", Song("One"));
    Make("b.mp3", Song("Two"));
    Open();
    ClickRow("a.mp3");
    app.desktop.inputs = {"b"};
    Key(Qt::Key_F2);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(HasRow("a.mp3"));
}

TEST_F(MainCommandsTest, Rename_IntoAnotherFolder_TakesTheRowOut) {
    Make("a.mp3", Song("One"));
    MakeFolder("sub");
    Open();
    ClickRow("a.mp3");
    app.desktop.inputs = {"sub/a"};
    Key(Qt::Key_F2);
    EXPECT_TRUE(Exists("sub/a.mp3"));
    EXPECT_FALSE(HasRow("a.mp3"));
}

TEST_F(MainCommandsTest, Delete_AsksAndTakesTheRowsOut) {
    Make("a.mp3", Song("One"));
    Make("b.mp3", Song("Two"));
    Open();
    SelectRows({"a.mp3", "b.mp3"});
    ClickItem("mnuFileDelete");
    EXPECT_EQ(Question(), Message(32003) + ": " + Message(32018));
    EXPECT_TRUE(HasRow("a.mp3"));
    AnswerYes();
    Key(Qt::Key_Delete);
    EXPECT_FALSE(HasRow("a.mp3"));
    EXPECT_FALSE(Exists("b.mp3"));
}

TEST_F(MainCommandsTest, DeleteKeys_DelAndF8) {
    Make("a.mp3", Song("One"));
    Open();
    ClickRow("a.mp3");
    Key(Qt::Key_Delete);
    Key(Qt::Key_F8);
    EXPECT_EQ(app.desktop.questions.size(), 2U);
}

TEST_F(MainCommandsTest, Delete_FolderThatHoldsAnything_AsksTwice) {
    MakeFolder("sub");
    Make("sub/x.txt");
    Open();
    ClickRow("sub");
    AnswerYes(2);
    Key(Qt::Key_Delete);
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_EQ(Question(1), Message(32003) + ": " + Message(32019, PathOf("sub")));
    EXPECT_FALSE(Exists("sub"));
}

TEST_F(MainCommandsTest, Refresh_ShowsWhatIsNew) {
    Open();
    Make("a.mp3", Song("One"));
    ClickItem("mnuFileRefresh");
    EXPECT_TRUE(HasRow("a.mp3"));
}

TEST_F(MainCommandsTest, Exit_ClosesTheWindow) {
    Open();
    app.messages.LanguageStrings["1"] = "x";
    ClickItem("mnuFileExit");
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(app.messages.LanguageStrings.empty());
}

TEST_F(MainCommandsTest, ExitKey_CtrlW) {
    Open();
    Key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
}

// Menus of the kinds.

TEST_F(MainCommandsTest, PlayAndAppend_OfEveryMenu) {
    Make("a.mp3", Song("One"));
    Make("b.wav");
    Make("c.m3u");
    Open();
    const std::map<std::string, std::string> rows = {
        {"mnuMP3", "a.mp3"}, {"mnuWAVe", "b.wav"}, {"mnuM3U", "c.m3u"}};
    for (const auto& [menu, row] : rows) {
        ClickRow(row);
        ClickItem(menu + "Play");
        ClickItem(menu + "Append");
        ASSERT_GE(app.desktop.played.size(), 2U);
        EXPECT_FALSE(app.desktop.played[app.desktop.played.size() - 2].append);
        EXPECT_TRUE(app.desktop.played.back().append);
        EXPECT_EQ(app.desktop.played.back().text, menu == "mnuM3U" ? "" : PathOf(row) + "\n");
        EXPECT_EQ(Status(), row);
    }
    EXPECT_EQ(app.files.List(temporary.Path()).size(), 6U);
    window.reset();
    EXPECT_EQ(app.files.List(temporary.Path()).size(), 0U);
}

TEST_F(MainCommandsTest, Play_NoPlayer_IsTold) {
    Make("b.wav");
    Open();
    ClickRow("b.wav");
    app.desktop.canPlay = false;
    Key(Qt::Key_X);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
}

TEST_F(MainCommandsTest, EncodeItems_AskAndEncode) {
    Make("b.wav");
    Open();
    PlayEncoder();
    const std::map<std::string, std::pair<std::string, int>> items = {
        {"mnuWAVeEncode_192", {"lame.exe -m s -h -b 192 --lowpass 19.0 ", 32011}},
        {"mnuWAVeEncode_555", {"lame.exe -m s -h -v -V 0 ", 32011}},
        {"mnuWAVeEncode_1160", {"lame.exe -m s -h --lowpass 18.0 --resample 44.1 --abr 160", 32011}},
        {"mnuWAVeEncode_9002", {"lame.exe -m s -q0 -b 320 --lowpass 20.0", 32011}},
        {"mnuWAVeEncodeOgg_5", {"oggenc.exe -b256kbps ", 32013}},
        {"mnuWAVeEncodeOgg_18", {"oggenc.exe -q8 ", 32013}},
        {"mnuWAVeEncodeMPPlus_4", {"mppenc.exe  -v --overwrite --xtreme ", 32021}},
    };
    for (const auto& [item, expected] : items) {
        ClickRow("b.wav");
        ClickItem(item);
        EXPECT_EQ(app.desktop.questions.back().text, Message(expected.second)) << item;
        EXPECT_TRUE(app.processes.runs.empty()) << item;
        ClickRow("b.wav");
        AnswerYes();
        ClickItem(item);
        ASSERT_EQ(app.processes.runs.size(), 1U) << item;
        EXPECT_EQ(CommandLines()[0].substr(0, expected.first.size()), expected.first) << item;
        app.processes.runs.clear();
    }
}

TEST_F(MainCommandsTest, Encode_ListIsMadeAnewAndTagged) {
    Make("b.wav");
    Open();
    PlayEncoder();
    ClickRow("b.wav");
    AnswerYes();
    ClickItem("mnuWAVeEncode_128");
    EXPECT_TRUE(HasRow("b.MP3"));
    EXPECT_EQ(wave.GetMP3FileInfo(PathOf("b.MP3")).Title, "b");
}

TEST_F(MainCommandsTest, Encode_StatusTellsTheFileAtHand) {
    Make("a.wav");
    Make("b.wav");
    Open();
    SelectRows({"a.wav", "b.wav"});
    AnswerYes();
    Texts statuses;
    app.processes.tool = [&](const RecordingProcesses::Run&) { statuses.push_back(Status()); };
    ClickItem("mnuWAVeEncode_128");
    EXPECT_EQ(statuses, (Texts{"[1/2] a.wav", "[2/2] b.wav"}));
}

TEST_F(MainCommandsTest, ReEncodeItems_AskAndDecode) {
    Make("a.mp3", Song("One"));
    Open();
    const std::map<std::string, int> items = {{"mnuMP3_ReEncodingMP3_128", 32010},
                                              {"mnuMP3_ReEncodingOGG_15", 32012},
                                              {"mnuMP3_ReEncodingMPPlus_3", 32022}};
    for (const auto& [item, title] : items) {
        ClickRow("a.mp3");
        ClickItem(item);
        EXPECT_EQ(Question(app.desktop.questions.size() - 1), Message(title) + ": " + Message(32020));
        EXPECT_TRUE(app.processes.runs.empty());
        ClickRow("a.mp3");
        AnswerYes();
        ClickItem(item);
        ASSERT_FALSE(app.processes.runs.empty());
        EXPECT_NE(CommandLines()[0].find("--decode"), std::string::npos);
        EXPECT_EQ(app.desktop.boxes.back().text, "File not found!");
        app.processes.runs.clear();
    }
}

TEST_F(MainCommandsTest, Decode_AsksAndDecodes) {
    Make("a.mp3", Song("One"));
    Open();
    ClickRow("a.mp3");
    ClickItem("mnuMP3DecodeAll");
    EXPECT_EQ(Question(), Message(32006) + ": " + Message(32007));
    AnswerYes();
    app.processes.tool = [&](const RecordingProcesses::Run&) { Make("a.mp3.wav"); };
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(CommandLines(), (Texts{"lame.exe --mp3input --decode \"" + PathOf("a.mp3") + "\""}));
    EXPECT_TRUE(HasRow("a.mp3.wav"));
}

TEST_F(MainCommandsTest, RenameSelected_FailedRowsStaySelected) {
    Make("1.mp3", Song("One"));
    Make("2.mp3", Mp3().Bytes());
    Make("3.mp3", Song("Three"));
    Open();
    SelectRows({"2.mp3", "3.mp3", "1.mp3"});
    AnswerYes();
    ClickItem("mnuMP3Rename_2");
    EXPECT_EQ(Question(), Message(32004) + ": " + Message(32023, "Artist - Title (Mix).MP3"));
    EXPECT_TRUE(HasRow("A - One.MP3"));
    EXPECT_TRUE(HasRow("A - Three.MP3"));
    EXPECT_EQ(SelectedNames(), (Texts{"2.mp3"}));
}

TEST_F(MainCommandsTest, RenameSelected_ByTheTemplateOfThePerson) {
    app.state.CustomRenameTemplate = "%T";
    Make("1.mp3", Song("One"));
    Open();
    ClickRow("1.mp3");
    ClickItem("mnuMP3Rename_6");
    EXPECT_EQ(Question(), Message(32004) + ": " + Message(32023, "%T"));
    EXPECT_TRUE(Exists("1.mp3"));
    EXPECT_EQ(SelectedNames(), (Texts{"1.mp3"}));
}

TEST_F(MainCommandsTest, RenamesOfTheFolder_KeepTheFocusedRow) {
    Make("1.mp3", Song("One"));
    Make("2.mp3", Song("Two"));
    Make("list.m3u", "1.mp3\n");
    Open();
    ClickRow("list.m3u");
    AnswerYes();
    ClickItem("mnuM3URenameFiles_1");
    EXPECT_EQ(Question(), Message(32004) + ": " + Message(32009));
    EXPECT_TRUE(HasRow("A - One.MP3"));
    EXPECT_TRUE(HasRow("2.mp3"));
    EXPECT_EQ(SelectedNames(), (Texts{"list.m3u"}));
    AnswerYes();
    ClickItem("mnuToolsRename_3");
    EXPECT_TRUE(HasRow("One.MP3"));
    EXPECT_TRUE(HasRow("Two.MP3"));
    EXPECT_EQ(SelectedNames(), (Texts{"list.m3u"}));
    Make("list.m3u", "Two.MP3\n");
    AnswerYes();
    ClickItem("mnuToolsAutoRename_1");
    EXPECT_TRUE(HasRow("A - Two.MP3"));
    EXPECT_TRUE(HasRow("One.MP3"));
}

TEST_F(MainCommandsTest, RenamesOfTheFolder_AnswerNo_DoNothing) {
    Make("1.mp3", Song("One"));
    Open();
    ClickItem("mnuToolsRename_1");
    ClickItem("mnuToolsAutoRename_1");
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_TRUE(Exists("1.mp3"));
}

TEST_F(MainCommandsTest, CopyPlaylist_AsksWhereAndShowsTheNewFolder) {
    Make("a.wav");
    Make("c.m3u", "a.wav\n");
    Open();
    ClickRow("c.m3u");
    app.desktop.folders = {Music()};
    ClickItem("mnuM3UCopy");
    EXPECT_TRUE(Exists("c/(001) a.wav") && Exists("c/c.m3u"));
    EXPECT_TRUE(HasRow("c"));
    EXPECT_EQ(SelectedNames(), (Texts{"c.m3u"}));
}

TEST_F(MainCommandsTest, Properties_ShowTheDialogOfTheKindAndFillTheRowAnew) {
    Make("a.mp3", Song("One"));
    Open();
    ClickRow("a.mp3");
    std::string dialog;
    const auto change = [&] {
        dialog = NameOfDialog();
        Make("a.mp3", Song("Two"));
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    };
    QTimer::singleShot(0, change);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(dialog, "frmFileInfo");
    EXPECT_TRUE(HasCell("Two"));
    QTimer::singleShot(0, change);
    Key(Qt::Key_3, Qt::AltModifier);
    EXPECT_FALSE(window->Commands().IsRunning());
    dialog.clear();
    QTimer::singleShot(0, change);
    app.state.FilePropertiesOnDblClick = true;
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf("a.mp3"));
    EXPECT_EQ(dialog, "frmFileInfo");
}

TEST_F(MainCommandsTest, Properties_OfAFileOfAnotherTool_AreNone) {
    Make("a.lqt");
    Open();
    ClickRow("a.lqt");
    ClickItem("mnuMP3Properties");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, Message(32008));
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
}

// Tools and help.

TEST_F(MainCommandsTest, MakeList_SelectsTheList) {
    Make("a.wav");
    Open();
    app.state.TargetPath = "elsewhere.m3u";
    app.state.UsePaths = true;
    ClickRow("a.wav");
    Key(Qt::Key_G, Qt::ControlModifier);
    EXPECT_EQ(ReadWholeFile(PathOf("!Playlist.m3u")), "#EXTM3U\na.wav\n");
    EXPECT_EQ(SelectedNames(), (Texts{"!Playlist.m3u"}));
}

TEST_F(MainCommandsTest, PlayFolder_AndAppendFolder) {
    Make("a.wav");
    Open();
    ClickItem("mnuToolsPlayFolder");
    Key(Qt::Key_L, Qt::ControlModifier);
    ASSERT_EQ(app.desktop.played.size(), 2U);
    EXPECT_EQ(app.desktop.played[0].path, temporary / "Playlist.m3u");
    EXPECT_EQ(app.desktop.played[0].text, "#EXTM3U\n" + PathOf("a.wav") + "\n");
    EXPECT_FALSE(app.desktop.played[0].append);
    EXPECT_TRUE(app.desktop.played[1].append);
}

TEST_F(MainCommandsTest, CompressCD_StartsTheProgramItself) {
    Open();
    Key(Qt::Key_F11);
    EXPECT_EQ(app.processes.started, (Texts{"\"/opt/zefta/zefta\" /compress_audio_cd"}));
    app.processes.canStartPrograms = false;
    ClickItem("mnuToolsCompressCD");
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
}

TEST_F(MainCommandsTest, SysTray_StartsTheAgent) {
    Open();
    EXPECT_FALSE(Item("mnuToolsSysTray").isChecked());
    ClickItem("mnuToolsSysTray");
    EXPECT_TRUE(Item("mnuToolsSysTray").isChecked());
    EXPECT_EQ(app.processes.started.size(), 1U);
    ClickItem("mnuToolsSysTray");
    EXPECT_FALSE(Item("mnuToolsSysTray").isChecked());
    EXPECT_EQ(app.processes.started.size(), 1U);
    app.processes.canStartPrograms = false;
    ClickItem("mnuToolsSysTray");
    EXPECT_FALSE(Item("mnuToolsSysTray").isChecked());
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
}

TEST_F(MainCommandsTest, HelpContents_IsAPlainBox) {
    Open();
    ClickItem("mnuHelpContents");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, "HELP Contents");
    EXPECT_EQ(app.desktop.boxes[0].caption, "Debug");
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Plain);
}

TEST_F(MainCommandsTest, WebPages_OpenInTheBrowser) {
    Open();
    ClickItem("mnuHelpWWWKestrin");
    ClickItem("mnuHelpWWWProgram");
    ClickItem("mnuHelpWWWDownloads");
    EXPECT_EQ(app.desktop.openedDocuments,
              (Texts{"http://" + Message(5), "http://" + Message(6), "http://" + Message(4)}));
    EXPECT_EQ(Message(5).find("://"), std::string::npos);
}

TEST_F(MainCommandsTest, About_IsADialog) {
    Open();
    std::string dialog;
    QTimer::singleShot(500, [&] {
        dialog = NameOfDialog();
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    });
    ClickItem("mnuHelpAbout");
    EXPECT_EQ(dialog, "frmAbout");
}

TEST_F(MainCommandsTest, EveryCommandOfTheTables_HasAHandler) {
    Make("e.lqt");
    Open();
    const std::set<Command> handled = window->Commands().Handled();
    for (const MenuRow& row : MenuTable())
        EXPECT_TRUE(row.command == Command::None || handled.contains(row.command)) << row.control;
    for (const IndexedList& list : IndexedLists()) EXPECT_TRUE(handled.contains(list.command)) << list.list;
    for (const ToolRow& row : ToolTable()) EXPECT_TRUE(handled.contains(row.command)) << row.key;
}

TEST_F(MainCommandsTest, Failure_IsShownAndTheNextCommandIsHeard) {
    Make("a.mp3", Song("One"));
    Open();
    std::filesystem::remove_all(Music());
    ClickRow("a.mp3");
    Key(Qt::Key_G, Qt::ControlModifier);
    EXPECT_FALSE(app.desktop.boxes.empty());
    EXPECT_FALSE(window->Commands().IsRunning());
}

}  // namespace
}  // namespace zefta::test
