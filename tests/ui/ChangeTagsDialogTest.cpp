#include <QStatusBar>
#include <QToolTip>
#include <QWheelEvent>

#include "support/Mp3Builder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "toolkit/DialogAtHand.h"
#include "ui/FileInfoStage.h"
#include "ui/TypeKeys.h"
#include "ui/WindowTexts.h"
#include "ui/tags/ChangeTagsDialog.h"

namespace zefta::test {
namespace {

using Names = std::vector<std::string>;

class ChangeTagsDialogTest : public FileInfoStage<ChangeTagsDialog> {
  protected:
    void WriteMp3(const std::string& name) {
        const Id3v1 end = {"Old Title", "Old Artist", "Old Album", "1990", "Old Mix", 3, 17};
        app.folder.Write(name, Mp3().Size(3000).Behind(end.Bytes()).Bytes());
    }

    void OpenOn(const Names& selected, const Names& all = {}) {
        dialog = std::make_unique<ChangeTagsDialog>(
            app, TagFiles{app.folder.Path(), selected, all},
            [this](const std::string& name) {
                told.push_back(name);
                if (whenTold) whenTold();
            },
            nullptr);
        ShowInFront(*dialog);
    }

    ID3Tag Tag(const std::string& name) { return wave.GetMP3FileInfo(app.folder / name); }
    std::string Status() const { return FromQt(Find<QStatusBar>("stb")->currentMessage()); }

    Names told;
    /// The person acts while the file is dealt with.
    std::function<void()> whenTold;
};

TEST_F(ChangeTagsDialogTest, Captions_AreTheMessages) {
    OpenOn({"a.mp3"});
    EXPECT_EQ(FromQt(dialog->windowTitle()), "Kestrin Zeftaworks - massive tags update");
    EXPECT_EQ(LabelOf("lblNote"), "Tag fields with non empty values will be written to all selected files.");
    for (const char* name : {"txtArtist", "txtTitle", "txtMix", "txtAlbum", "txtYear"})
        EXPECT_EQ(TextOf(name), "") << name;
    EXPECT_EQ(FromQt(Box("cmbGenre")->currentText()), "");
    EXPECT_EQ(FromQt(Line("txtMix")->accessibleName()), "Mix");
    ExpectUsable(*dialog);
}

TEST_F(ChangeTagsDialogTest, TabGoesThroughTheFieldsToTheButtons) {
    OpenOn({"a.mp3"});
    EXPECT_EQ(Focus(), "txtArtist");
    EXPECT_TRUE(Find<QPushButton>("OKButton")->isDefault());
    for (const char* name :
         {"txtTitle", "txtMix", "txtAlbum", "txtYear", "cmbGenre", "OKButton", "CancelButton"}) {
        Press(Qt::Key_Tab);
        EXPECT_EQ(Focus(), name);
    }
}

TEST_F(ChangeTagsDialogTest, GivenValues_GoToAllSelectedFiles) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    app.folder.Write("c.wav", "wave");
    OpenOn({"a.mp3", "c.wav", "b.mp3"});
    Type("txtArtist", "New Artist");
    Type("txtYear", "1999");
    Box("cmbGenre")->setFocus();
    TypeKeys("metal");
    Press(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(told, (Names{"a.mp3", "b.mp3"}));
    for (const char* name : {"a.mp3", "b.mp3"}) {
        EXPECT_EQ(Tag(name).Artist, "New Artist");
        EXPECT_EQ(Tag(name).ID3v2Extension.Artist, "New Artist");
        EXPECT_EQ(Tag(name).Title, "Old Title");
        EXPECT_EQ(Tag(name).ID3v2Extension.TrackTitle, "Old Title");
        EXPECT_EQ(Tag(name).Year, "1999");
        EXPECT_EQ(Tag(name).Genre, 9);
        EXPECT_EQ(Tag(name).TrackNumber, 3);
    }
    EXPECT_EQ(app.folder.Read("c.wav"), "wave");
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(ChangeTagsDialogTest, EveryField_HasItsPlace) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Type("txtArtist", "A");
    Type("txtTitle", "T");
    Type("txtMix", "M");
    Type("txtAlbum", "L");
    Type("txtYear", "2001");
    Click("OKButton");
    const ID3v2Extension extension = Tag("a.mp3").ID3v2Extension;
    EXPECT_EQ(extension.Artist, "A");
    EXPECT_EQ(extension.TrackTitle, "T");
    EXPECT_EQ(extension.Mix, "M");
    EXPECT_EQ(extension.AlbumTitle, "L");
    EXPECT_EQ(extension.Year, "2001");
    EXPECT_EQ(extension.Genre, "Rock") << "taken over from the record";
}

TEST_F(ChangeTagsDialogTest, Blank_ClearsItsField) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Type("txtAlbum", " ");
    Type("txtYear", " ");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "cmbGenre");
    Click("OKButton");
    EXPECT_EQ(Tag("a.mp3").Album, "");
    EXPECT_EQ(Tag("a.mp3").Year, "");
    EXPECT_EQ(Tag("a.mp3").Artist, "Old Artist");
}

TEST_F(ChangeTagsDialogTest, NoValue_ClosesWithoutWork) {
    WriteMp3("a.mp3");
    const std::string before = app.folder.Read("a.mp3");
    OpenOn({"a.mp3"});
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(told.empty());
    EXPECT_TRUE(app.folder.Read("a.mp3") == before);
}

TEST_F(ChangeTagsDialogTest, NothingSelected_AsksForAllOfTheFolder) {
    WriteMp3("a.mp3");
    for (const bool answer : {false, true}) {
        OpenOn({}, {"a.mp3", "c.wav"});
        Type("txtTitle", "T");
        app.desktop.answers = {answer};
        Click("OKButton");
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(told, answer ? Names{"a.mp3"} : Names{});
    }
    EXPECT_EQ(app.desktop.questions[0].text,
              "You did not select any file! Process all files in the current folder?");
    EXPECT_EQ(app.desktop.questions[0].caption, "Extended Rename");
}

TEST_F(ChangeTagsDialogTest, YearThatIsNone_KeepsTheFocus) {
    OpenOn({"a.mp3"});
    for (const char* year : {"19x9", "0199", "-1999"}) {
        Type("txtYear", year);
        Press(Qt::Key_Tab);
        EXPECT_EQ(Focus(), "txtYear") << year;
        Click("OKButton");
        EXPECT_TRUE(IsOpen()) << year;
    }
    Type("txtYear", "1999");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "cmbGenre");
}

TEST_F(ChangeTagsDialogTest, TypedGenre_BecomesItsEntryOnLeaving) {
    OpenOn({"a.mp3"});
    Box("cmbGenre")->setFocus();
    TypeKeys("hip-hop");
    Press(Qt::Key_Tab);
    EXPECT_EQ(FromQt(Box("cmbGenre")->currentText()), "Hip-Hop");
    EXPECT_EQ(Box("cmbGenre")->currentData().toInt(), 7);
}

TEST_F(ChangeTagsDialogTest, TextThatIsNoGenre_IsNotPassedOverInSilence) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"});
    Box("cmbGenre")->setFocus();
    TypeKeys("Kitchen");
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Focus(), "cmbGenre");
    EXPECT_TRUE(told.empty());
}

TEST_F(ChangeTagsDialogTest, WhileItWorks_NothingCanBeChangedAndTheProgressShows) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    OpenOn({"a.mp3", "b.mp3"});
    Type("txtArtist", "New");
    std::vector<std::string> statuses;
    app.desktop.whileServing = [&] {
        statuses.push_back(Status());
        EXPECT_EQ(LabelOf("lblNote"), "Updating tags data, please stand by...");
        EXPECT_FALSE(Find<QPushButton>("OKButton")->isEnabled());
        EXPECT_FALSE(Find<QPushButton>("CancelButton")->isEnabled());
        EXPECT_FALSE(Line("txtArtist")->isEnabled());
        EXPECT_TRUE(Find<QPushButton>("cmdCancelBatch")->isVisible());
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    };
    Click("OKButton");
    EXPECT_EQ(statuses, (Names{"", "1 / 2", "2 / 2"}));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ChangeTagsDialogTest, CancelOfTheWork_EndsBehindTheFileAtHand) {
    const std::function<void()> ways[] = {
        [this] { QTest::mouseClick(Find<QPushButton>("cmdCancelBatch"), Qt::LeftButton); },
        [this] { QTest::keyClick(dialog.get(), Qt::Key_Escape); },
        [this] { dialog->close(); },
    };
    for (const auto& way : ways) {
        WriteMp3("a.mp3");
        WriteMp3("b.mp3");
        told.clear();
        OpenOn({"a.mp3", "b.mp3"});
        Type("txtArtist", "New");
        app.desktop.whileServing = [&] {
            if (told.size() == 1) way();
        };
        Click("OKButton");
        EXPECT_EQ(told, Names{"a.mp3"});
        EXPECT_EQ(Tag("b.mp3").Artist, "Old Artist");
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(TextOf("txtArtist"), "New");
        EXPECT_TRUE(Find<QPushButton>("OKButton")->isEnabled());
        EXPECT_FALSE(Find<QPushButton>("cmdCancelBatch")->isVisible());
        app.desktop.whileServing = {};
        Click("OKButton");
        EXPECT_EQ(told, (Names{"a.mp3", "b.mp3"})) << "goes on with the rest";
        EXPECT_FALSE(IsOpen());
    }
}

TEST_F(ChangeTagsDialogTest, CancelWhileTheLastFileIsWritten_ClosesAsAllIsDone) {
    WriteMp3("a.mp3");
    OpenOn({"a.mp3"}, {"a.mp3", "b.mp3"});
    Type("txtArtist", "New");
    whenTold = [this] { QTest::keyClick(dialog.get(), Qt::Key_Escape); };
    Click("OKButton");
    EXPECT_EQ(told, Names{"a.mp3"});
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(ChangeTagsDialogTest, CancelOfAllFiles_GoesOnWithTheRestUnasked) {
    WriteMp3("a.mp3");
    WriteMp3("b.mp3");
    OpenOn({}, {"a.mp3", "b.mp3"});
    Type("txtArtist", "New");
    app.desktop.answers = {true};
    whenTold = [this] { QTest::keyClick(dialog.get(), Qt::Key_Escape); };
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(told, Names{"a.mp3"});
    whenTold = {};
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(told, (Names{"a.mp3", "b.mp3"}));
    EXPECT_EQ(app.desktop.questions.size(), 1U);
}

TEST_F(ChangeTagsDialogTest, CancelOfTheRestAtABox_KeepsTheDialog) {
    for (const char* name : {"a.mp3", "b.mp3"}) WriteMp3(name);
    OpenOn({"a.mp3", "b.mp3"});
    Type("txtArtist", "New");
    app.desktop.asksToCancel = [this] { return told.size() == 1; };
    Click("OKButton");
    EXPECT_EQ(told, Names{"a.mp3"});
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(TextOf("txtArtist"), "New");
    app.desktop.asksToCancel = {};
    Click("OKButton");
    EXPECT_EQ(told, (Names{"a.mp3", "b.mp3"}));
    EXPECT_FALSE(IsOpen());
}

TEST_F(ChangeTagsDialogTest, Wheel_ChoosesAGenreOnlyInTheFocus) {
    OpenOn({"a.mp3"});
    QComboBox* box = Box("cmbGenre");
    const auto turn = [&] {
        QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &wheel);
    };
    turn();
    EXPECT_EQ(box->currentIndex(), -1);
    EXPECT_EQ(Focus(), "txtArtist");
    box->setFocus();
    turn();
    EXPECT_EQ(box->currentIndex(), 0);
}

TEST_F(ChangeTagsDialogTest, ReadOnlyFile_IsAskedAbout) {
    WriteMp3("a.mp3");
    app.TestWorld::files.SetReadOnly(app.folder / "a.mp3", true);
    OpenOn({"a.mp3"});
    Type("txtArtist", "New");
    Click("OKButton");
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(app.desktop.questions[0].text, app.messages.GetMessage(10009, app.folder / "a.mp3"));
    EXPECT_EQ(Tag("a.mp3").Artist, "Old Artist");
}

TEST_F(ChangeTagsDialogTest, Escape_AsksBeforeItLosesWhatWasTyped) {
    OpenOn({"a.mp3"});
    Type("txtArtist", "New");
    Press(Qt::Key_Escape);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_TRUE(IsOpen());
    Type("txtArtist", "");
    Box("cmbGenre")->setFocus();
    TypeKeys("Kit");
    Press(Qt::Key_Escape);
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    app.desktop.answers = {true};
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(told.empty());
}

TEST_F(ChangeTagsDialogTest, TextThatIsNoGenre_IsToldOnLeaving) {
    OpenOn({"a.mp3"});
    Box("cmbGenre")->setFocus();
    TypeKeys("Kitchen");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "OKButton") << "the focus may go";
    QApplication::processEvents();
    EXPECT_EQ(FromQt(QToolTip::text()), FromQt(OwnText(app, WindowText::TagsGenreRule)));
}

TEST_F(ChangeTagsDialogTest, EscapeAndCancel_CloseWithoutWork) {
    for (const bool byKey : {false, true}) {
        OpenOn({"a.mp3"});
        if (!byKey) Type("txtArtist", "New");
        if (byKey) {
            Press(Qt::Key_Escape);
        } else {
            Click("CancelButton");
        }
        EXPECT_FALSE(IsOpen());
        EXPECT_TRUE(told.empty());
    }
}

}  // namespace
}  // namespace zefta::test
