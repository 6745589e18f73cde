#include <QMessageBox>
#include <QRadioButton>
#include <QStatusBar>
#include <filesystem>

#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "toolkit/DialogAtHand.h"
#include "ui/FileInfoStage.h"
#include "ui/TypeKeys.h"
#include "ui/tags/ChangeTagsExDialog.h"

namespace zefta::test {
namespace {

using Names = std::vector<std::string>;

class ChangeTagsExDialogTest : public FileInfoStage<ChangeTagsExDialog> {
  protected:
    void WriteMp3(const std::string& name, const std::string& title = "Old Title") {
        const Id3v1 end = {title, "Old Artist", "Old Album", "1990", "Old Mix", 3, 17};
        app.folder.Write(name, Mp3().Size(3000).Behind(end.Bytes()).Bytes());
    }

    void OpenOn(const Names& names) {
        const std::vector<TagRow> rows = LoadTagRows(app, app.folder.Path(), names).value();
        dialog = std::make_unique<ChangeTagsExDialog>(
            app, app.folder.Path(), rows,
            [this](const std::string& name) {
                told.push_back(name);
                if (whenTold) whenTold();
            },
            nullptr);
        ShowInFront(*dialog);
    }

    GridView& Grid() const { return *Find<GridView>("flxFiles"); }
    std::string Cell(int row, int column) const {
        return FromQt(Grid().model()->index(row, column).data().toString());
    }
    Names RowTexts(int row) const {
        Names texts;
        for (int column = 0; column < TagColumnCount; ++column) texts.push_back(Cell(row, column));
        return texts;
    }
    void TypeInto(int row, int column, const std::string& text) const {
        Grid().setFocus();
        Grid().SelectCell(row, column);
        TypeKeys(text);
    }
    void Choose(const char* option) const {
        QTest::mouseClick(Find<QRadioButton>(option), Qt::LeftButton, {}, QPoint(8, 8));
    }

    ID3Tag Tag(const std::string& name) { return wave.GetMP3FileInfo(app.folder / name); }
    std::string Status() const { return FromQt(Find<QStatusBar>("stb")->currentMessage()); }
    std::string Stored(const char* key) const {
        return app.userSettings.GetValue("Settings", key).value_or("none");
    }

    Names told;
    /// The person acts while the file is dealt with.
    std::function<void()> whenTold;
};

TEST_F(ChangeTagsExDialogTest, Opening_ShowsTheTagsOfTheFiles) {
    WriteMp3("b.mp3");
    WriteMp3("a.mp3", "Other");
    OpenOn({"b.mp3", "a.mp3"});
    EXPECT_EQ(FromQt(dialog->windowTitle()), "Kestrin Zeftaworks - advanced tags update");
    Names headings;
    for (int column = 0; column < TagColumnCount; ++column)
        headings.push_back(FromQt(Grid().model()->headerData(column, Qt::Horizontal).toString()));
    EXPECT_EQ(headings, (Names{"File", "No.", "Artist", "Title", "Mix", "Album", "Year"}));
    EXPECT_EQ(RowTexts(0), (Names{"b.mp3", "3", "Old Artist", "Old Title", "Old Mix", "Old Album", "1990"}));
    EXPECT_EQ(RowTexts(1), (Names{"a.mp3", "3", "Old Artist", "Other", "Old Mix", "Old Album", "1990"}));
    EXPECT_TRUE(Find<QRadioButton>("optAllFirstLettersCaps")->isChecked());
    EXPECT_TRUE(Check("chkUpdateAllColumns")->isChecked());
    EXPECT_EQ(FromQt(Box("cmbTemplates")->currentText()), "%T(%M)");
    EXPECT_EQ(Box("cmbTemplates")->count(), 14);
    EXPECT_EQ(Focus(), "flxFiles");
    ExpectUsable(*dialog);
}

TEST_F(ChangeTagsExDialogTest, NameThatIsNoUtf8_IsShownAndItsFileWritten) {
    WriteMp3("Caf\xE9.mp3");
    OpenOn({"Caf\xE9.mp3"});
    EXPECT_EQ(Cell(0, FileColumn), "Café.mp3");
    TypeInto(0, TitleColumn, "New");
    Click("OKButton");
    EXPECT_EQ(Tag("Caf\xE9.mp3").Title, "New");
}

TEST_F(ChangeTagsExDialogTest, Ok_WritesTheRows_AlsoWhatIsBeingTyped) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    OpenOn({"a.mp3", "b.mp3"});
    TypeInto(0, TrackColumn, "07");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    Grid().SelectCell(1, ArtistColumn);
    QTest::keyClick(&Grid(), Qt::Key_Delete);
    TypeInto(1, TitleColumn, "Typed");
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(told, (Names{"a.mp3", "b.mp3"}));
    EXPECT_EQ(Tag("a.mp3").TrackNumber, 7);
    EXPECT_EQ(Tag("a.mp3").ID3v2Extension.TrackNumber, "07");
    EXPECT_EQ(Tag("b.mp3").Artist, "");
    EXPECT_EQ(Tag("b.mp3").ID3v2Extension.Artist, "");
    EXPECT_EQ(Tag("b.mp3").Title, "Typed");
    EXPECT_EQ(Tag("b.mp3").Genre, 17);
}

TEST_F(ChangeTagsExDialogTest, Defaults_GoToEveryRow) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Type("txtDefArtist", "Default");
    Type("txtDefYear", "1984");
    Box("cmbGenre")->setFocus();
    TypeKeys("Jazz");
    Click("OKButton");
    EXPECT_EQ(Tag("a.mp3").Artist, "Default");
    EXPECT_EQ(Tag("a.mp3").Album, "Old Album");
    EXPECT_EQ(Tag("a.mp3").Year, "1984");
    EXPECT_EQ(Tag("a.mp3").Genre, 8);
}

TEST_F(ChangeTagsExDialogTest, DefaultsThatDoNotPass_KeepTheDialog) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Type("txtDefYear", "19x9");
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Focus(), "txtDefYear");
    Type("txtDefYear", "1999");
    Box("cmbGenre")->setFocus();
    TypeKeys("Kitchen");
    Click("OKButton");
    EXPECT_EQ(Focus(), "cmbGenre");
    EXPECT_TRUE(told.empty());
}

TEST_F(ChangeTagsExDialogTest, ChangeCase_OfAllColumns_IsOneStep) {
    WriteMp3("a.mp3", "mIxEd cASE");
    WriteMp3("b.mp3", "oTHER");
    OpenOn({"a.mp3", "b.mp3"});
    Choose("optFirstLetterCaps");
    Click("cmdChangeCase");
    EXPECT_EQ(RowTexts(0), (Names{"a.mp3", "3", "Old artist", "Mixed case", "Old mix", "Old album", "1990"}));
    EXPECT_EQ(Cell(1, TitleColumn), "Other");
    Choose("optAllFirstLettersCaps");
    Click("cmdChangeCase");
    EXPECT_EQ(Cell(0, TitleColumn), "Mixed Case");
    Grid().setFocus();
    QTest::keyClick(&Grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell(0, TitleColumn), "Mixed case");
    QTest::keyClick(&Grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(RowTexts(0), (Names{"a.mp3", "3", "Old Artist", "mIxEd cASE", "Old Mix", "Old Album", "1990"}));
    EXPECT_EQ(Cell(1, TitleColumn), "oTHER");
}

TEST_F(ChangeTagsExDialogTest, ChangeCase_OfTheCurrentColumn_LeavesTheOthers) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Toggle("chkUpdateAllColumns");
    Choose("optFirstLetterCaps");
    Grid().SelectCell(0, AlbumColumn);
    Click("cmdChangeCase");
    EXPECT_EQ(RowTexts(0), (Names{"a.mp3", "3", "Old Artist", "Old Title", "Old Mix", "Old album", "1990"}));
}

TEST_F(ChangeTagsExDialogTest, RetrieveTags_FillsTheCellsByTheTemplate_InOneStep) {
    WriteMp3("01 - Band - Song (Live).mp3");
    WriteMp3("Single.mp3");
    OpenOn({"01 - Band - Song (Live).mp3", "Single.mp3"});
    Box("cmbTemplates")->setCurrentIndex(2);
    Click("cmdRetrieveTags");
    EXPECT_EQ(RowTexts(0),
              (Names{"01 - Band - Song (Live).mp3", "01", "Band", "Song", "Live", "Old Album", "1990"}));
    EXPECT_EQ(Cell(1, TitleColumn), "Single");
    Grid().setFocus();
    QTest::keyClick(&Grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell(0, TitleColumn), "Old Title");
    EXPECT_EQ(Cell(1, TitleColumn), "Old Title");
    Box("cmbTemplates")->setCurrentIndex(5);
    Click("cmdRetrieveTags");
    EXPECT_EQ(Cell(0, TitleColumn), "Old Title") << "this one finds nothing";
}

TEST_F(ChangeTagsExDialogTest, TrackAboveAByte_StopsTheUpdateAtItsCell) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    WriteMp3("c.mp3");
    OpenOn({"a.mp3", "b.mp3", "c.mp3"});
    TypeInto(0, ArtistColumn, "New");
    TypeInto(1, TrackColumn, "256");
    Click("OKButton");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_NE(app.desktop.boxes[0].text.find("#6"), std::string::npos) << app.desktop.boxes[0].text;
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(told, Names{"a.mp3"});
    EXPECT_EQ(Tag("a.mp3").Artist, "New");
    EXPECT_EQ(Grid().currentIndex().row(), 1);
    EXPECT_EQ(Grid().currentIndex().column(), TrackColumn);
    EXPECT_EQ(Focus(), "flxFiles");
}

TEST_F(ChangeTagsExDialogTest, WhileItWorks_TheStatusBarTellsTheFile) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    OpenOn({"a.mp3", "b.mp3"});
    Names statuses;
    app.desktop.whileServing = [&] {
        statuses.push_back(Status());
        EXPECT_FALSE(Find<QPushButton>("OKButton")->isEnabled());
        EXPECT_FALSE(Find<QPushButton>("CancelButton")->isEnabled());
        EXPECT_FALSE(Grid().isEnabled());
    };
    Click("OKButton");
    EXPECT_EQ(statuses, (Names{"", "[1/2] a.mp3", "[2/2] b.mp3"}));
}

TEST_F(ChangeTagsExDialogTest, CancelOfTheWork_KeepsTheRows) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    OpenOn({"a.mp3", "b.mp3"});
    TypeInto(1, ArtistColumn, "New");
    app.desktop.whileServing = [&] {
        if (told.size() == 1) QTest::keyClick(dialog.get(), Qt::Key_Escape);
    };
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(told, Names{"a.mp3"});
    EXPECT_EQ(Tag("b.mp3").Artist, "Old Artist");
    EXPECT_EQ(Cell(1, ArtistColumn), "New");
    app.desktop.whileServing = {};
    Click("OKButton");
    EXPECT_EQ(Tag("b.mp3").Artist, "New");
    EXPECT_FALSE(IsOpen());
}

TEST_F(ChangeTagsExDialogTest, CancelOfTheRestAtABox_KeepsTheRows) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    OpenOn({"a.mp3", "b.mp3"});
    TypeInto(1, ArtistColumn, "New");
    app.TestWorld::files.SetReadOnly(app.folder / "a.mp3", true);
    // The question about the first one is left with the rest.
    app.desktop.asksToCancel = [this] { return !app.desktop.questions.empty(); };
    Click("OKButton");
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(told, Names{"a.mp3"});
    EXPECT_EQ(Tag("b.mp3").Artist, "Old Artist");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Cell(1, ArtistColumn), "New");
}

TEST_F(ChangeTagsExDialogTest, ValueThatIsUndoneBehindACancel_IsWritten) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    OpenOn({"a.mp3", "b.mp3"});
    TypeInto(0, ArtistColumn, "New");
    Press(Qt::Key_Return);
    app.desktop.asksToCancel = [this] { return told.size() == 1; };
    Click("OKButton");
    app.desktop.asksToCancel = {};
    EXPECT_EQ(Tag("a.mp3").Artist, "New");
    Grid().setFocus();
    QTest::keyClick(&Grid(), Qt::Key_Z, Qt::ControlModifier);
    Click("OKButton");
    EXPECT_EQ(Tag("a.mp3").Artist, "Old Artist");
}

TEST_F(ChangeTagsExDialogTest, CancelWhileTheLastFileIsWritten_ClosesAsAllIsDone) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    whenTold = [this] { QTest::keyClick(dialog.get(), Qt::Key_Escape); };
    Click("OKButton");
    EXPECT_EQ(told, Names{"a.mp3"});
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(ChangeTagsExDialogTest, FilesThatWereNotWritten_KeepTheDialogAndWhatWasTyped) {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) WriteMp3(name);
    OpenOn({"a.mp3", "b.mp3", "c.mp3"});
    TypeInto(0, TitleColumn, "First");
    TypeInto(1, TitleColumn, "Second");
    const std::string away = app.folder.Read("b.mp3");
    std::filesystem::remove(app.folder / "b.mp3");
    std::filesystem::remove(app.folder / "c.mp3");
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ(Status(), "Files that were not written: 1. What was entered for them is still here.");
    EXPECT_EQ(Tag("a.mp3").Title, "First");
    EXPECT_EQ(Cell(1, TitleColumn), "Second");
    EXPECT_EQ(Grid().currentIndex().row(), 1);
    app.folder.Write("b.mp3", away);
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Tag("b.mp3").Title, "Second");
}

TEST_F(ChangeTagsExDialogTest, DefaultsThatReachedNotAllFiles_KeepTheDialog) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Type("txtDefArtist", "Everyone");
    std::filesystem::remove(app.folder / "a.mp3");
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
}

TEST_F(ChangeTagsExDialogTest, FilesOfWhichNothingWasTyped_AreLeftWithoutAWord) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    std::filesystem::remove(app.folder / "a.mp3");
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
}

TEST_F(ChangeTagsExDialogTest, ClosingDuringTheWork_EndsItAndAsksAboutTheRest) {
    for (const bool isMeant : {false, true}) {
        WriteMp3("a.mp3");
        WriteMp3("b.mp3");
        OpenOn({"a.mp3", "b.mp3"});
        TypeInto(1, TitleColumn, "New");
        app.desktop.questions.clear();
        app.desktop.answers = {isMeant};
        whenTold = [this] { dialog->close(); };
        Click("OKButton");
        EXPECT_EQ(app.desktop.questions.size(), 1U);
        EXPECT_EQ(IsOpen(), !isMeant);
        EXPECT_EQ(Tag("b.mp3").Title, "Old Title");
    }
}

TEST_F(ChangeTagsExDialogTest, QuestionDuringTheWork_HasNoHourglass) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    TypeInto(0, TitleColumn, "New");
    whenTold = [this] {
        EXPECT_NE(QApplication::overrideCursor(), nullptr);
        QMessageBox question(dialog.get());
        question.setWindowModality(Qt::ApplicationModal);
        question.show();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        question.hide();
        EXPECT_NE(QApplication::overrideCursor(), nullptr);
    };
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ChangeTagsExDialogTest, Undo_WorksFromTheButtonThatMadeTheChange) {
    WriteMp3("a.mp3", "mIxEd cASE");
    OpenOn({"a.mp3"});
    Choose("optFirstLetterCaps");
    auto* change = Find<QPushButton>("cmdChangeCase");
    change->setFocus();
    QTest::keyClick(change, Qt::Key_Space);
    EXPECT_EQ(Cell(0, TitleColumn), "Mixed case");
    QTest::keyClick(change, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Cell(0, TitleColumn), "mIxEd cASE");
    QTest::keyClick(change, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Cell(0, TitleColumn), "Mixed case");
}

TEST_F(ChangeTagsExDialogTest, BlankDefaultYear_ClearsTheYears) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Type("txtDefYear", " ");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "cmbGenre");
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Tag("a.mp3").Year, "");
    EXPECT_EQ(Tag("a.mp3").Artist, "Old Artist");
}

TEST_F(ChangeTagsExDialogTest, PlaceAndChoices_AreStoredOnTheWayOut) {
    app.userSettings.Apply({{"Settings", "ChangeTagsExWidth", "12000"},
                            {"Settings", "ChangeTagsExHeight", "9000"},
                            {"Settings", "ChangeTagsExWindowState", "0"}});
    app.state.ChangeTags_AllFirstCaps = false;
    app.state.ChangeTags_AllTags = false;
    app.state.ChangeTags_ReverseFormat = 8;
    OpenOn({});
    EXPECT_EQ(dialog->size(), QSize(800, 600));
    EXPECT_TRUE(Find<QRadioButton>("optFirstLetterCaps")->isChecked());
    EXPECT_FALSE(Check("chkUpdateAllColumns")->isChecked());
    EXPECT_EQ(Box("cmbTemplates")->currentIndex(), 8);
    dialog->resize(780, 620);
    Box("cmbTemplates")->setCurrentIndex(11);
    Choose("optAllFirstLettersCaps");
    Toggle("chkUpdateAllColumns");
    Click("CancelButton");
    EXPECT_EQ(Stored("ChangeTagsExWidth"), std::to_string(780 * 15));
    EXPECT_EQ(Stored("ChangeTagsExHeight"), std::to_string(620 * 15));
    EXPECT_NE(Stored("ChangeTagsExLeft"), "none");
    EXPECT_NE(Stored("ChangeTagsExTop"), "none");
    EXPECT_EQ(Stored("ChangeTagsExWindowState"), "0");
    EXPECT_EQ(Stored("ChangeTags_ReverseFormat"), "11");
    EXPECT_EQ(Stored("ChangeTags_AllFirstCaps"), "True");
    EXPECT_EQ(Stored("ChangeTags_AllTags"), "True");
}

TEST_F(ChangeTagsExDialogTest, Escape_AsksBeforeItLosesWhatWasTyped) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    TypeInto(0, TitleColumn, "New");
    Press(Qt::Key_Escape);
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(app.desktop.questions.empty()) << "this one only leaves the cell";
    EXPECT_EQ(Cell(0, TitleColumn), "Old Title");
    TypeInto(0, TitleColumn, "New");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_TRUE(IsOpen());
    app.desktop.answers = {true};
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Tag("a.mp3").Title, "Old Title");
}

TEST_F(ChangeTagsExDialogTest, CancelButtonOrNothingChanged_ClosesAtOnce) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    OpenOn({"a.mp3"});
    TypeInto(0, TitleColumn, "New");
    Click("CancelButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(app.desktop.questions.empty());
    EXPECT_EQ(Tag("a.mp3").Title, "Old Title");
}

}  // namespace
}  // namespace zefta::test
