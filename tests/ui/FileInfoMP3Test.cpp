#include "toolkit/EventCounter.h"
#include "ui/FileInfoMP3Stage.h"
#include "ui/info/ShowFileInformation.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

TEST_F(FileInfoMP3Test, Load_ShowsBothTagsAndTheMeasures) {
    OpenTagged();
    EXPECT_EQ(FromQt(dialog->windowTitle()), "a.mp3 - file information");
    EXPECT_EQ(TextOf("txtFileName"), app.folder / "a.mp3");
    const std::pair<const char*, std::string> texts[] = {
        {"txtTitle", "Old song"}, {"txtArtist", "Old ann"},      {"txtAlbum", "Old debut"},
        {"txtYear", "1999"},      {"txtMix", "Old mix"},         {"txtTrackNumber", "9"},
        {"txtTitle2", "Song"},    {"txtMix2", "Live"},           {"txtArtist2", "Ann"},
        {"txtAlbum2", "Debut"},   {"txtYear2", "2001"},          {"txtComments2", "Comment"},
        {"txtComposer", "Bach"},  {"txtCopyright", "Copy"},      {"txtURL", "http://x"},
        {"txtEncodedBy", "Me"},   {"txtOriginalArtist", "Orig"}, {"txtTrackNumber2", "3/12"},
    };
    for (const auto& [control, text] : texts) EXPECT_EQ(TextOf(control), text) << control;
    EXPECT_EQ(FromQt(Box("cmbGenre")->currentText()), "Rock");
    EXPECT_EQ(FromQt(Box("cmbGenreWithIDs")->currentText()), "Rock");
    EXPECT_TRUE(Check("chkEnable")->isChecked());
    EXPECT_EQ(LabelOf("lblFileInfo"), MeasuresText(Now("a.mp3").Tag));
    EXPECT_NE(LabelOf("lblFileInfo").find("44100 kHz\r\n Joint Stereo\r\n"), std::string::npos);
    EXPECT_EQ(LabelOf("lblEncoder"), "LAME3.100");
    EXPECT_EQ(Focus(), "txtTitle");
    EXPECT_TRUE(Find<QWidget>("fraLyrics")->isHidden());
    EXPECT_TRUE(Find<QLabel>("lblWriteNote")->isHidden());
}

TEST_F(FileInfoMP3Test, EveryControl_HasANameForScreenReaders) {
    OpenTagged();
    ExpectUsable(*dialog);
    EXPECT_EQ(FromQt(Line("txtTitle2")->accessibleName()), "ID3v2: Title");
}

TEST_F(FileInfoMP3Test, MissingFile_GivesEmptyFieldsAndClosesOnOK) {
    Show("none.mp3");
    EXPECT_EQ(TextOf("txtTitle"), "");
    EXPECT_EQ(LabelOf("lblFileInfo"), "");
    EXPECT_FALSE(Check("chkEnable")->isChecked());
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(app.folder.Exists("none.mp3"));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(FileInfoMP3Test, Enable_SwitchesAllControlsOfID3v2) {
    Open("a.mp3", Stream());
    const char* controls[] = {"txtTitle2",    "txtArtist2",
                              "txtAlbum2",    "txtYear2",
                              "txtMix2",      "txtComments2",
                              "txtComposer",  "txtOriginalArtist",
                              "txtCopyright", "txtURL",
                              "txtEncodedBy", "txtTrackNumber2",
                              "cmbGenre",     "chkRemoveUnknownFrames",
                              "cmdCopy2to1"};
    for (const char* control : controls) EXPECT_FALSE(Find<QWidget>(control)->isEnabled()) << control;
    Toggle("chkEnable");
    for (const char* control : controls) EXPECT_TRUE(Find<QWidget>(control)->isEnabled()) << control;
    Toggle("chkEnable");
    for (const char* control : controls) EXPECT_FALSE(Find<QWidget>(control)->isEnabled()) << control;
    EXPECT_TRUE(Find<QWidget>("cmdCopy1to2")->isEnabled());
}

TEST_F(FileInfoMP3Test, UnknownFrames_AreToldWithTheirSize) {
    OpenTagged();
    EXPECT_EQ(FromQt(Check("chkRemoveUnknownFrames")->text()), "Remove unknown frames while updating file");
    Open("b.mp3", Id3v2(RawFrame("APIC", Audio(1526)), 2000) + Stream());
    EXPECT_EQ(FromQt(Check("chkRemoveUnknownFrames")->text()),
              "Remove unknown frames while updating file (1.5K)");
}

TEST_F(FileInfoMP3Test, GenreThatIsTyped_BecomesTheEntryWhenTheFocusGoes) {
    Open("a.mp3", Stream());
    Toggle("chkEnable");
    QComboBox* genre = Box("cmbGenre");
    const auto entryAfter = [&](const char* text) {
        genre->setFocus();
        genre->lineEdit()->selectAll();
        QTest::keyClicks(genre->lineEdit(), text);
        Press(Qt::Key_Tab);
        return FromQt(genre->currentText()) + "/" + FromQt(genre->itemText(genre->currentIndex()));
    };
    EXPECT_EQ(entryAfter("Jazz"), "Jazz/Jazz");
    EXPECT_EQ(entryAfter("Pop"), "Pop/Pop");
    EXPECT_TRUE(entryAfter("My own").starts_with("My own/"));
    EXPECT_TRUE(entryAfter("rock").starts_with("rock/"));
}

// --- the year

TEST_F(FileInfoMP3Test, YearThatIsNoNumber_KeepsTheFocus) {
    OpenTagged();
    for (const char* field : {"txtYear", "txtYear2"}) {
        for (const char* year : {"19x9", "0199", "-199"}) {
            Type(field, year);
            Press(Qt::Key_Tab);
            EXPECT_EQ(Focus(), field) << year;
            QTest::mouseClick(Line("txtComposer"), Qt::LeftButton);
            EXPECT_EQ(Focus(), field) << year;
        }
        for (const char* year : {"1999", ""}) {
            Type(field, year);
            Press(Qt::Key_Tab);
            EXPECT_NE(Focus(), field) << year;
        }
    }
}

TEST_F(FileInfoMP3Test, TwoYearsThatAreNoNumbers_DoNotFightForTheFocus) {
    Open("a.mp3", Stream() + Id3v1{.title = "T", .year = "19x9"}.Bytes());
    Click("cmdCopy1to2");
    Type("txtYear", "18x8");
    const EventCounter gained(*Line("txtYear"), QEvent::FocusIn);
    QTest::mouseClick(Line("txtYear2"), Qt::LeftButton);
    QTest::qWait(50);
    EXPECT_EQ(Focus(), "txtYear");
    EXPECT_EQ(gained.Count(), 1);
}

TEST_F(FileInfoMP3Test, YearThatIsNoNumber_IsNotSaved) {
    OpenTagged();
    const std::string before = app.folder.Read("a.mp3");
    Type("txtYear2", "19x9");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsOpen());
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Focus(), "txtYear2");
    EXPECT_EQ(app.folder.Read("a.mp3"), before);
    Click("CancelButton");
    EXPECT_FALSE(IsOpen());
}

TEST_F(FileInfoMP3Test, YearOfATagThatIsSwitchedOff_DoesNotMatter) {
    OpenTagged();
    Type("txtYear2", "19x9");
    Check("chkEnable")->setChecked(false);
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
}

TEST_F(FileInfoMP3Test, YearAsTheFileHasIt_LetsTheFocusGo) {
    Open("a.mp3", Stream() + Id3v1{.title = "T", .year = "19x9"}.Bytes());
    Line("txtYear")->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_NE(Focus(), "txtYear");
}

// --- copies between the tags

TEST_F(FileInfoMP3Test, Copy1to2_FillsAndEnablesID3v2) {
    Open("a.mp3", Stream() + OldTag.Bytes());
    Click("cmdCopy1to2");
    EXPECT_EQ(TextOf("txtTitle2"), "Old song");
    EXPECT_EQ(TextOf("txtArtist2"), "Old ann");
    EXPECT_EQ(TextOf("txtAlbum2"), "Old debut");
    EXPECT_EQ(TextOf("txtYear2"), "1999");
    EXPECT_EQ(TextOf("txtMix2"), "Old mix");
    EXPECT_EQ(TextOf("txtTrackNumber2"), "9");
    EXPECT_EQ(FromQt(Box("cmbGenre")->currentText()), "Rock");
    EXPECT_TRUE(Check("chkEnable")->isChecked());
    EXPECT_TRUE(Line("txtTitle2")->isEnabled());
    EXPECT_TRUE(Find<QWidget>("cmdCopy2to1")->isEnabled());
}

TEST_F(FileInfoMP3Test, Copy1to2_WithoutAGenre_LeavesTheOther) {
    Open("a.mp3", Id3v2(OwnFrames(), 600) + Stream() + Id3v1{.title = "T"}.Bytes());
    EXPECT_EQ(FromQt(Box("cmbGenreWithIDs")->currentText()), "No genre");
    Click("cmdCopy1to2");
    EXPECT_EQ(FromQt(Box("cmbGenre")->currentText()), "Rock");
}

TEST_F(FileInfoMP3Test, Copy2to1_FillsID3v1) {
    Open("a.mp3", Id3v2(OwnFrames(), 600) + Stream());
    Click("cmdCopy2to1");
    EXPECT_EQ(TextOf("txtTitle"), "Song");
    EXPECT_EQ(TextOf("txtArtist"), "Ann");
    EXPECT_EQ(TextOf("txtAlbum"), "Debut");
    EXPECT_EQ(TextOf("txtYear"), "2001");
    EXPECT_EQ(TextOf("txtMix"), "Live");
    EXPECT_EQ(TextOf("txtTrackNumber"), "3/12");
    EXPECT_EQ(Box("cmbGenreWithIDs")->currentData().toInt(), 17);
    Click("OKButton");
    EXPECT_EQ(Now("a.mp3").TrackNumber, "3");
}

TEST_F(FileInfoMP3Test, Copy2to1_OfAGenreOfItsOwn_LeavesTheOther) {
    OpenTagged();
    for (const char* genre : {"My own", "No genre", ""}) {
        Box("cmbGenre")->setEditText(genre);
        Click("cmdCopy2to1");
        EXPECT_EQ(Box("cmbGenreWithIDs")->currentData().toInt(), 17) << genre;
    }
}

TEST_F(FileInfoMP3Test, CopyLyricsto2_TakesTheMixApartAndEnables) {
    Open("a.mp3", Stream() + Lyrics("Song (Live)", "Ann"));
    EXPECT_FALSE(Find<QWidget>("fraLyrics")->isHidden());
    EXPECT_TRUE(Line("txtTitle3")->isReadOnly());
    EXPECT_EQ(TextOf("txtTitle3"), "Song (Live)");
    EXPECT_EQ(TextOf("txtArtist3"), "Ann");
    Click("cmdCopyLyricsto2");
    EXPECT_EQ(TextOf("txtTitle2"), "Song");
    EXPECT_EQ(TextOf("txtMix2"), "Live");
    EXPECT_EQ(TextOf("txtArtist2"), "Ann");
    EXPECT_TRUE(Check("chkEnable")->isChecked());
    EXPECT_TRUE(Line("txtTitle2")->isEnabled());
}

TEST_F(FileInfoMP3Test, CopyLyricsto2_OfNothing_EnablesNothing) {
    Open("a.mp3", Stream() + Lyrics("", ""));
    Click("cmdCopyLyricsto2");
    EXPECT_FALSE(Check("chkEnable")->isChecked());
}

// --- OK and Cancel

std::string WrittenTag(const std::string& title, int track, int genre) {
    const auto given = [](std::string text, std::size_t width) {
        text.resize(width, '\0');
        return text;
    };
    return "TAG" + given(title + " ", 30) + given("Old ann ", 30) + given("Old debut ", 30) + "1999" +
           given("Old mix ", 29) + static_cast<char>(track) + static_cast<char>(genre);
}

TEST_F(FileInfoMP3Test, OK_WritesWhatIsInTheControlsAndNotAByteMore) {
    OpenTagged();
    Type("txtTitle", "New");
    Type("txtTrackNumber", "12");
    Box("cmbGenreWithIDs")->setCurrentText("Jazz");
    Type("txtArtist2", "Bob");
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    std::string frames = OwnFrames();
    frames.replace(frames.find("Ann"), 3, "Bob");
    EXPECT_EQ(app.folder.Read("a.mp3"), Id3v2(frames, 600) + Stream() + WrittenTag("New", 12, 8));
}

TEST_F(FileInfoMP3Test, Return_IsOKFromAField) {
    OpenTagged();
    Type("txtTitle", "New");
    Press(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(Now("a.mp3").Tag.Title, "New");
}

TEST_F(FileInfoMP3Test, EscapeAndCancel_ChangeNothing) {
    for (const bool byKey : {true, false}) {
        OpenTagged();
        const std::string before = app.folder.Read("a.mp3");
        Type("txtTitle", "New");
        if (byKey) {
            Press(Qt::Key_Escape);
        } else {
            Click("CancelButton");
        }
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(dialog->result(), QDialog::Rejected);
        EXPECT_EQ(app.folder.Read("a.mp3"), before);
    }
}

TEST_F(FileInfoMP3Test, EmptiedTitle_IsABlankInTheFile) {
    OpenTagged();
    Type("txtTitle", "");
    Click("OKButton");
    EXPECT_TRUE(app.folder.Read("a.mp3").ends_with(WrittenTag("", 9, 17)));
}

TEST_F(FileInfoMP3Test, Disabled_RemovesTheTag) {
    OpenTagged();
    Toggle("chkEnable");
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.mp3"), Stream() + WrittenTag("Old song", 9, 17));
}

TEST_F(FileInfoMP3Test, RemoveUnknownFrames_TakesThemOut) {
    Open("a.mp3", Id3v2(OwnFrames() + RawFrame("APIC", Audio(100)), 600) + Stream() + OldTag.Bytes());
    Toggle("chkRemoveUnknownFrames");
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.mp3"), Id3v2(OwnFrames(), 600) + Stream() + WrittenTag("Old song", 9, 17));
}

TEST_F(FileInfoMP3Test, CommentOfManyLines_StaysWhatItIs) {
    const std::string comment = "one\r\ntwo\nthree\ttab";
    const std::string bytes = Id3v2(OwnFrames(comment), 600) + Stream();
    Open("a.mp3", bytes + OldTag.Bytes());
    Type("txtArtist2", "Ann");
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.mp3"), bytes + WrittenTag("Old song", 9, 17));
}

TEST_F(FileInfoMP3Test, CommentOfManyLines_KeepsTheOtherLinesWhenItIsEdited) {
    Open("a.mp3", Id3v2(OwnFrames("one\ntwo"), 600) + Stream());
    QTest::keyClick(Line("txtComments2"), Qt::Key_End);
    QTest::keyClicks(Line("txtComments2"), "!");
    Click("OKButton");
    EXPECT_EQ(Now("a.mp3").Tag.ID3v2Extension.Comments, "one\ntwo!");
}

TEST_F(FileInfoMP3Test, GenreWithoutAName_Stays) {
    Open("a.mp3", Stream() + Id3v1{.title = "T", .genre = 200}.Bytes());
    EXPECT_EQ(FromQt(Box("cmbGenreWithIDs")->currentText()), "(200)");
    Click("OKButton");
    EXPECT_EQ(Now("a.mp3").Tag.Genre, 200);
}

TEST_F(FileInfoMP3Test, ReadOnly_NoLeavesTheDialogOpen_YesWrites) {
    const std::string path = app.folder.Write("a.mp3", Stream());
    app.files.SetReadOnly(path, true);
    Show("a.mp3");
    app.desktop.answers = {false, true};
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.mp3"), Stream());
    EXPECT_TRUE(Find<QLabel>("lblWriteNote")->isHidden());
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_NE(app.folder.Read("a.mp3"), Stream());
}

TEST_F(FileInfoMP3Test, TagThatCantBeCarriedWhole_IsAskedAbout) {
    const std::string compressed = "TIT2"s + "\0\0\0\x05"s + "\0\x80"s + "\0abcd"s;
    const std::string before = Id3v2(compressed, 502) + Stream();
    Open("a.mp3", before);
    app.desktop.answers = {false, true};
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.mp3"), before);
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    ASSERT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_TRUE(app.desktop.questions[0].noIsDefault);
}

TEST_F(FileInfoMP3Test, TagThatAnotherProgramHasChangedMeanwhile_IsAskedAbout) {
    OpenTagged();
    FileInformation theirs = Now("a.mp3");
    theirs.Tag.Album = "Theirs";
    SaveFileInformation(app, app.folder / "a.mp3", theirs, {});
    Type("txtTitle", "Mine");
    app.desktop.answers = {false};
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_TRUE(app.desktop.questions[0].noIsDefault);
    EXPECT_EQ(Now("a.mp3").Tag.Album, "Theirs");
    app.desktop.answers = {true};
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Now("a.mp3").Tag.Title, "Mine");
}

TEST_F(FileInfoMP3Test, TrackNumberThatIsNone_IsToldAndLeavesTheDialogOpen) {
    Open("a.mp3", Stream());
    Type("txtTrackNumber", "256");
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.folder.Read("a.mp3"), Stream());
}

TEST_F(FileInfoMP3Test, WriteNote_IsShownWhileTheFileIsWritten) {
    Open("a.mp3", Stream());
    EXPECT_EQ(LabelOf("lblWriteNote"), "Updating file... please wait...");
    const EventCounter shown(*Find<QLabel>("lblWriteNote"), QEvent::Show);
    Click("OKButton");
    EXPECT_EQ(shown.Count(), 1);
    EXPECT_TRUE(Find<QLabel>("lblWriteNote")->isHidden());
}

// --- by the kind of the file

TEST(ShowFileInformation, OpensTheDialogOfTheKindAndTellsWhetherItWasOK) {
    TestApp app;
    WaveFile wave(app);
    app.defaultWaveFile = &wave;
    const std::pair<std::string, std::string> cases[] = {
        {"a.mp3", "frmFileInfo"},
        {"a.OGG", "frmFileInfoOgg"},
        {"a.mpc", "frmFileInfoMPEGplus"},
        {"a.Mp+", "frmFileInfoMPEGplus"},
    };
    for (const auto& [name, expected] : cases) {
        for (const char* button : {"OKButton", "CancelButton"}) {
            std::string shown;
            QTimer::singleShot(0, [&] {
                QWidget* dialog = QApplication::activeModalWidget();
                ASSERT_NE(dialog, nullptr);
                shown = FromQt(dialog->objectName());
                QTest::mouseClick(dialog->findChild<QPushButton*>(button), Qt::LeftButton);
            });
            EXPECT_EQ(ShowFileInformation(app, app.folder / name, nullptr),
                      button == std::string("OKButton"));
            EXPECT_EQ(shown, expected);
        }
    }
    EXPECT_FALSE(ShowFileInformation(app, app.folder / "a.wav", nullptr));
}

}  // namespace
}  // namespace zefta::test
