// frmCDBase: what it shows at first, its rules, keys, settings and files.

#include "cd/CDInfoFile.h"
#include "encoding/ModeCatalogue.h"
#include "ui/CDBaseStage.h"
#include "ui/FileInfoStage.h"

namespace zefta::test {
namespace {

class CDBaseTest : public CDBaseStage {};

TEST_F(CDBaseTest, Captions_AreTheMessages) {
    Open();
    EXPECT_EQ(FromQt(dialog->windowTitle()), "Audio CD compression");
    struct Row {
        const char* control;
        std::int32_t message;
    };
    for (const Row& row : {Row{"cmdImportData", 33013}, Row{"cmdCDDAE", 33014}, Row{"cmdSimulateCD", 33015},
                           Row{"cmdSave", 33016}, Row{"cmdLoad", 33017}, Row{"cmdOK", 33018},
                           Row{"cmdCancel", 33019}, Row{"chkShutdown", 33020}, Row{"chkTrimSilence", 33021},
                           Row{"chkReduceLevel", 33022}, Row{"chkDeleteAfterCompress", 33023},
                           Row{"chkNormalize", 33024}, Row{"chkNormalizeSeparately", 33026},
                           Row{"chkNoPlaylists", 33027}, Row{"chkTreatAsCompilation", 33009}})
        EXPECT_EQ(FromQt(Find<QAbstractButton>(row.control)->text()), Message(row.message)) << row.control;
    for (const Row& row : {Row{"txtSourceFolder", 33003}, Row{"txtArtist", 33005}, Row{"txtAlbum", 33006},
                           Row{"txtYear", 33007}, Row{"txtLength", 33008}, Row{"cmbBitRate", 33011},
                           Row{"txtTargetFolder", 33012}, Row{"cmbGenre", 33025}})
        EXPECT_EQ(FromQt(Find<QWidget>(row.control)->accessibleName()), Message(row.message)) << row.control;
}

TEST_F(CDBaseTest, EveryControl_CanBeReachedAndTold) {
    Open();
    ExpectUsable(*dialog);
    for (const QPushButton* button : dialog->findChildren<QPushButton*>()) {
        const bool isTold = !button->text().isEmpty() || !button->accessibleName().isEmpty();
        EXPECT_TRUE(isTold && button->focusPolicy() != Qt::NoFocus) << FromQt(button->objectName());
        EXPECT_FALSE(button->autoDefault()) << FromQt(button->objectName());
    }
    for (const QLabel* label : dialog->findChildren<QLabel*>()) {
        const bool isStatus = label->objectName() == "lblStatus";
        EXPECT_TRUE(isStatus || label->buddy() != nullptr) << FromQt(label->text());
    }
}

TEST_F(CDBaseTest, ToolTips_TellTheKeys) {
    Open();
    struct Row {
        const char* control;
        const char* keys;
    };
    for (const Row& row :
         {Row{"cmbBrowseForSourceFolder", " (Alt-F1)"}, Row{"cmdBrowseForTargetFolder", " (Alt-F2)"},
          Row{"cmdImportData", " (Ctrl-R)"}, Row{"cmdSave", " (Ctrl-S)"}, Row{"cmdLoad", " (Ctrl-L)"},
          Row{"cmdOK", " (Ctrl-Enter)"}})
        EXPECT_TRUE(Find<QWidget>(row.control)->toolTip().endsWith(row.keys)) << row.control;
}

TEST_F(CDBaseTest, FirstValues_AreThoseOfTheSettings) {
    app.state.CompressCD_SourceFolder = "/music/in";
    app.state.CompressCD_TargetFolder = "/music/out";
    app.state.CompressCD_Bitrate = 2014;
    app.state.TrimSilence = app.state.Normalize = app.state.NormalizeSeparately = true;
    app.state.DeleteAfterCompress = true;
    Open();
    EXPECT_EQ(TextOf("txtSourceFolder"), "/music/in");
    EXPECT_EQ(TextOf("txtTargetFolder"), "/music/out");
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbBitRate")->currentText()), "Ogg Vorbis Q=4");
    for (const char* name :
         {"chkTrimSilence", "chkNormalize", "chkNormalizeSeparately", "chkDeleteAfterCompress"})
        EXPECT_TRUE(Check(name)->isChecked()) << name;
    for (const char* name : {"chkReduceLevel", "chkNoPlaylists", "chkShutdown", "chkTreatAsCompilation"})
        EXPECT_FALSE(Check(name)->isChecked()) << name;
    EXPECT_FALSE(IsEnabled("cmdSave"));
    EXPECT_FALSE(IsEnabled("cmdOK"));
    EXPECT_TRUE(Find<QLineEdit>("txtLength")->isReadOnly());
    EXPECT_TRUE(Find<QPushButton>("cmdStop")->isHidden());
}

TEST_F(CDBaseTest, Modes_AreThoseOfTheCatalogueThatAreEnabled) {
    app.state.EnableLAME128 = false;
    Open();
    const auto* box = Find<QComboBox>("cmbBitRate");
    EXPECT_EQ(static_cast<std::size_t>(box->count()), FillEncodingModes(app.state).items.size());
    EXPECT_EQ(FromQt(box->itemText(0)), "LAME 160 kbps");
    EXPECT_EQ(FromQt(box->currentText()), "LAME 320 kbps");
}

TEST_F(CDBaseTest, Normalising_NeedsTheTrimming) {
    Open();
    EXPECT_FALSE(IsEnabled("chkNormalize"));
    EXPECT_FALSE(IsEnabled("chkNormalizeSeparately"));
    Toggle("chkTrimSilence");
    EXPECT_TRUE(IsEnabled("chkNormalize"));
    EXPECT_FALSE(IsEnabled("chkNormalizeSeparately"));
    Toggle("chkNormalize");
    EXPECT_TRUE(IsEnabled("chkNormalizeSeparately"));
    Toggle("chkTrimSilence");
    EXPECT_FALSE(IsEnabled("chkNormalize"));
    EXPECT_FALSE(IsEnabled("chkNormalizeSeparately"));
}

TEST_F(CDBaseTest, ReducedLevel_IsForLameAloneAndTheTickComesBack) {
    Open();
    Toggle("chkReduceLevel");
    for (const char* mode : {"MPEGplus Standard", "Ogg Vorbis Q=5"}) {
        ChooseMode(mode);
        EXPECT_FALSE(IsEnabled("chkReduceLevel")) << mode;
        EXPECT_FALSE(Check("chkReduceLevel")->isChecked()) << mode;
    }
    ChooseMode("LAME 128 kbps");
    EXPECT_TRUE(IsEnabled("chkReduceLevel"));
    EXPECT_TRUE(Check("chkReduceLevel")->isChecked());
}

TEST_F(CDBaseTest, Folders_AreBrowsedFor) {
    Open();
    app.desktop.folders = {"/music/in", "/music/out", ""};
    Click("cmbBrowseForSourceFolder");
    Key(Qt::Key_F2, Qt::AltModifier);
    EXPECT_EQ(TextOf("txtSourceFolder"), "/music/in");
    EXPECT_EQ(TextOf("txtTargetFolder"), "/music/out");
    Key(Qt::Key_F1, Qt::AltModifier);
    EXPECT_EQ(TextOf("txtSourceFolder"), "/music/in");
    EXPECT_EQ(app.desktop.questions.at(0).text, Message(33101));
    EXPECT_EQ(app.desktop.questions.at(1).text, Message(33102));
    Click("cmdBrowseForTargetFolder");
    EXPECT_EQ(app.desktop.questions.at(3).text, Message(33102));
}

TEST_F(CDBaseTest, FolderWithoutUnicodeName_StaysWhatItIs) {
    app.state.CompressCD_SourceFolder = "/music/\xE9t\xE9";
    Open();
    EXPECT_EQ(TextOf("txtSourceFolder"), "/music/été");
    dialog->close();
    EXPECT_EQ(app.state.CompressCD_SourceFolder, "/music/\xE9t\xE9");
}

TEST_F(CDBaseTest, Image_IsChosenAndKept) {
    Open();
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbDrive")->itemText(0)), "/dev/sr0");
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbDrive")->currentText()), "");
    app.desktop.inputs = {"/music/disc.cue"};
    Click("cmdBrowseForImage");
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(disc.sources, Texts{"/music/disc.cue"});
    dialog->close();
    EXPECT_EQ(Setting("CompressCD_Device"), "/music/disc.cue");
    Open();
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbDrive")->currentText()), "/music/disc.cue");
}

TEST_F(CDBaseTest, ImageWithoutUnicodeName_StaysWhatItIs) {
    const std::string image = "/music/\xE9t\xE9/disc.cue";
    Open();
    app.desktop.inputs = {image};
    Click("cmdBrowseForImage");
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbDrive")->currentText()), "/music/été/disc.cue");
    Click("cmdImportData");
    EXPECT_EQ(disc.sources, Texts{image});
    dialog->close();
    EXPECT_EQ(Setting("CompressCD_Device"), image);
    Open();
    Click("cmdImportData");
    EXPECT_EQ(disc.sources.back(), image);
    Find<QComboBox>("cmbDrive")->setCurrentIndex(0);
    Click("cmdImportData");
    EXPECT_EQ(disc.sources.back(), "/dev/sr0");
}

TEST_F(CDBaseTest, Settings_AreSavedOnLeaving) {
    Open();
    Type("txtSourceFolder", "/a");
    Type("txtTargetFolder", "/b");
    ChooseMode("LAME 192 kbps");
    Click("cmdCancel");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(Setting("CompressCD_SourceFolder"), "/a");
    EXPECT_EQ(Setting("CompressCD_TargetFolder"), "/b");
    EXPECT_EQ(Setting("CompressCD_Bitrate"), "192");
    EXPECT_EQ(Setting("CompressCD_Device"), "none");
}

TEST_F(CDBaseTest, Escape_Leaves) {
    Open();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(CDBaseTest, EnterInALine_StartsNothing) {
    Open();
    Key(Qt::Key_R, Qt::ControlModifier);
    Find<QLineEdit>("txtArtist")->setFocus();
    Key(Qt::Key_Return);
    EXPECT_TRUE(app.desktop.questions.empty());
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_TRUE(dialog->isVisible());
}

// CD information files.

TEST_F(CDBaseTest, Save_OffersTheNameAndWritesWhatIsShown) {
    app.state.CompressCD_SourceFolder = app.folder.Path();
    Open();
    Key(Qt::Key_R, Qt::ControlModifier);
    Type("txtYear", "1999");
    Toggle("chkTreatAsCompilation");
    Find<QComboBox>("cmbGenre")->setEditText("Jazz");
    auto* list = Find<QListWidget>("lstTracks");
    list->setFocus();
    list->setCurrentRow(1);
    Key(Qt::Key_Space);
    app.desktop.inputs = {app.folder / "x.zfc"};
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(app.desktop.questions.at(0).text, Message(33106));
    EXPECT_EQ(app.desktop.questions.at(0).caption, Message(33108));
    EXPECT_EQ(app.desktop.questions.at(0).defaultAnswer, app.folder / "Band - Debut.zfc");
    CDInfo info;
    LoadCDInfo(app, app.folder / "x.zfc", info);
    EXPECT_EQ(info.Artist, "Band");
    EXPECT_EQ(info.Title, "Debut");
    EXPECT_EQ(info.Year, "1999");
    EXPECT_EQ(info.Genre, "Jazz");
    EXPECT_EQ(info.Compilation, 1);
    EXPECT_EQ(info.Source, app.folder.Path());
    EXPECT_EQ(info.Length, 285);
    EXPECT_EQ(info.BitrateIndex, Find<QComboBox>("cmbBitRate")->currentIndex());
    ASSERT_EQ(info.Tracks.size(), 2U);
    EXPECT_EQ(info.Tracks[0].Name, "One / Live");
    EXPECT_TRUE(info.Tracks[0].Selected);
    EXPECT_FALSE(info.Tracks[1].Selected);
    EXPECT_NE(app.folder.Read("x.zfc").find("BitrateText=LAME 320 kbps \n"), std::string::npos);
    EXPECT_NE(Setting("Bitrate"), "none");
}

TEST_F(CDBaseTest, Save_AsksBeforeItWritesOver) {
    app.folder.Write("x.zfc", "mine");
    Open();
    Click("cmdImportData");
    app.desktop.inputs = {app.folder / "x.zfc", app.folder / "x.zfc", ""};
    app.desktop.answers = {false, true};
    Click("cmdSave");
    EXPECT_EQ(app.folder.Read("x.zfc"), "mine");
    EXPECT_EQ(app.desktop.questions.at(1).text, Message(33109, app.folder / "x.zfc"));
    Click("cmdSave");
    EXPECT_NE(app.folder.Read("x.zfc").find("Artist=Band"), std::string::npos);
    Click("cmdSave");
    EXPECT_EQ(app.desktop.questions.size(), 5U);
}

TEST_F(CDBaseTest, Save_ThatFailsIsToldAndTheDialogStays) {
    Open();
    Click("cmdImportData");
    app.desktop.inputs = {app.folder / "no/such/x.zfc"};
    Click("cmdSave");
    EXPECT_TRUE(LastBox().starts_with("Error #"));
    EXPECT_TRUE(dialog->isVisible());
}

const std::string AlbumFile =
    "[Options]\nArtist=Ann \nTitle=First \nYear=2001 \nTracks=2 \nLength=65 \nSource=/src \n"
    "Target= \nBitrateIndex=2 \nCompilation=1\nGenre=Rock \n"
    "[Names]\n01=One / Live \n02=Two \n[Times]\n01=60\n02=5\n[Selected]\n01=0\n02=-1\n";

TEST_F(CDBaseTest, Load_ShowsTheFile) {
    app.folder.Write("config.zfc", AlbumFile);
    app.state.CompressCD_SourceFolder = app.folder.Path();
    app.state.CompressCD_TargetFolder = "/target";
    Open();
    app.desktop.inputs = {app.folder / "config.zfc"};
    Key(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(app.desktop.questions.at(0).caption, Message(33107));
    EXPECT_EQ(app.desktop.questions.at(0).defaultAnswer, app.folder / "config.zfc");
    EXPECT_EQ(TextOf("txtArtist"), "Ann");
    EXPECT_EQ(TextOf("txtAlbum"), "First");
    EXPECT_EQ(TextOf("txtYear"), "2001");
    EXPECT_EQ(TextOf("txtLength"), "1:05");
    EXPECT_EQ(TextOf("txtSourceFolder"), "/src");
    EXPECT_EQ(TextOf("txtTargetFolder"), "/target");
    EXPECT_EQ(Find<QComboBox>("cmbBitRate")->currentIndex(), 2);
    EXPECT_TRUE(Check("chkTreatAsCompilation")->isChecked());
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbGenre")->currentText()), "Rock");
    EXPECT_GE(Find<QComboBox>("cmbGenre")->currentIndex(), 0);
    EXPECT_EQ(Lines(), (Texts{"01. One / Live (1:00)", "*02. Two (0:05)"}));
    EXPECT_TRUE(IsEnabled("cmdSave") && IsEnabled("cmdOK"));
}

TEST_F(CDBaseTest, Load_WithoutTracksLeavesTheListEmptyAndTheJobAllowed) {
    app.folder.Write("empty.zfc", "[Options]\nTracks=0\n");
    Open();
    app.desktop.inputs = {app.folder / "empty.zfc"};
    Click("cmdLoad");
    EXPECT_TRUE(Lines().empty());
    EXPECT_TRUE(IsEnabled("cmdOK"));
}

TEST_F(CDBaseTest, Load_OfAModeBeyondTheListKeepsTheMode) {
    app.folder.Write("a.zfc", "[Options]\nBitrateIndex=999\n");
    Open();
    app.desktop.inputs = {app.folder / "a.zfc"};
    Click("cmdLoad");
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbBitRate")->currentText()), "LAME 320 kbps");
}

TEST_F(CDBaseTest, Load_CancelledOrOfAFileThatIsGoneChangesNothing) {
    Open();
    Type("txtArtist", "Mine");
    app.desktop.inputs = {"", app.folder / "gone.zfc"};
    Click("cmdLoad");
    EXPECT_TRUE(app.desktop.boxes.empty());
    Click("cmdLoad");
    EXPECT_EQ(LastBox(), Message(1009, app.folder / "gone.zfc"));
    EXPECT_EQ(TextOf("txtArtist"), "Mine");
    EXPECT_FALSE(IsEnabled("cmdOK"));
}

TEST_F(CDBaseTest, Load_OfANumberThatIsNoneIsTold) {
    app.folder.Write("a.zfc", "[Options]\nArtist=X\nTracks=99999999999\n");
    Open();
    app.desktop.inputs = {app.folder / "a.zfc"};
    Click("cmdLoad");
    EXPECT_TRUE(LastBox().starts_with("Error #6"));
    EXPECT_EQ(TextOf("txtArtist"), "");
}

TEST_F(CDBaseTest, FileOfTheCommandLine_IsShownAtOnce) {
    app.folder.Write("Album.ZFC", AlbumFile);
    app.state.FileSpec = "Album.ZFC";
    Open();
    EXPECT_EQ(TextOf("txtArtist"), "Ann");
    EXPECT_TRUE(IsEnabled("cmdOK"));
}

TEST_F(CDBaseTest, BothLanguages_HaveRoomForTheirTexts) {
    for (const char* language : {"en_GB", "ru_RU"}) {
        TestWorld world;
        world.machine.language = language;
        App other(world.machine, world.files, world.desktop, world.processes, world.userSettings,
                  world.machineSettings);
        CDBaseDialog shown(other, {disc, database, {}});
        shown.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown));
        for (const QAbstractButton* button : shown.findChildren<QAbstractButton*>()) {
            const int width = button->fontMetrics().horizontalAdvance(button->text());
            EXPECT_TRUE(button->isHidden() || button->width() >= width) << FromQt(button->text());
        }
        for (const QLabel* label : shown.findChildren<QLabel*>()) {
            const int width = label->wordWrap() ? 0 : label->sizeHint().width();
            EXPECT_GE(label->width(), width) << FromQt(label->text());
        }
    }
}

}  // namespace
}  // namespace zefta::test
