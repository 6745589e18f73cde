#include <QElapsedTimer>
#include <QListWidget>

#include "support/OggBuilder.h"
#include "ui/FileInfoStage.h"
#include "ui/info/OggEditTag.h"
#include "ui/info/OggFileInfo.h"

namespace zefta::test {
namespace {

/// All fields, in the order in which the program writes them.
Ogg Tagged() {
    return Ogg()
        .AudioPages(20)
        .Comment("ARTIST=Ann")
        .Comment("ALBUM=Debut")
        .Comment("TRACKNUMBER=3")
        .Comment("DATE=2001-05-01")
        .Comment("TITLE=Song (Live)")
        .Comment("GENRE=Rock")
        .Comment("COMMENT=one\ntwo")
        .Comment("ENCODED BY=Me");
}

class FileInfoOggTest : public FileInfoStage<OggFileInfo> {
  protected:
    QListWidget* List() const { return Find<QListWidget>("lstExCom"); }

    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (int row = 0; row < List()->count(); ++row) lines.push_back(FromQt(List()->item(row)->text()));
        return lines;
    }

    void DoubleClick(int row) const {
        const QPoint place = List()->visualItemRect(List()->item(row)).center();
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, place);
    }

    /// What the person does in the dialog of one comment, which the next step opens.
    void InEditTag(const std::function<void(QDialog&)>& act) {
        editTagsShown = 0;
        QTimer::singleShot(0, dialog.get(), [this, act] {
            auto* editTag = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (editTag == nullptr || editTag->objectName() != "frmFileInfoOgg_EditTag") return;
            ++editTagsShown;
            act(*editTag);
            if (editTag->isVisible()) editTag->reject();
        });
    }

    static void Fill(QDialog& editTag, const char* field, const char* text) {
        auto* line = editTag.findChild<QLineEdit*>(field);
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Delete);
        QTest::keyClicks(line, text);
    }

    static void ClickIn(QDialog& editTag, const char* button) {
        QTest::mouseClick(editTag.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    int editTagsShown = 0;
};

TEST_F(FileInfoOggTest, Load_ShowsTheCommentsAndTheMeasures) {
    Open("a.ogg", Tagged().Comment("FOO=1").Comment("BAR=2").Bytes());
    EXPECT_EQ(FromQt(dialog->windowTitle()), "a.ogg - file information");
    const std::pair<const char*, std::string> texts[] = {
        {"txtTitle", "Song"},        {"txtMix", "Live"},        {"txtArtist", "Ann"},
        {"txtAlbum", "Debut"},       {"txtYear", "2001-05-01"}, {"txtTrackNumber", "3"},
        {"txtComments", "one\ntwo"}, {"txtEncodedBy", "Me"},    {"txtFileName", app.folder / "a.ogg"},
    };
    for (const auto& [control, text] : texts) EXPECT_EQ(TextOf(control), text) << control;
    EXPECT_EQ(FromQt(Box("cmbGenre")->currentText()), "Rock");
    EXPECT_EQ(LabelOf("lbllibVorbisVersion"), "Test vendor 1.0");
    EXPECT_EQ(LabelOf("lblEncoder"), "");
    EXPECT_EQ(LabelOf("lblExComNote"), "(double click to edit)");
    const std::string size = std::to_string(app.folder.Read("a.ogg").size());
    EXPECT_TRUE(LabelOf("lblFileInfo").starts_with(size + " bytes\r\n10 seconds\r\n"));
    EXPECT_EQ(Lines(), (std::vector<std::string>{"FOO=1", "BAR=2"}));
    ExpectUsable(*dialog);
}

TEST_F(FileInfoOggTest, OKWithoutAChange_LeavesEveryByte) {
    const std::string bytes = Tagged().Comment("FOO=1").Comment("RAW=\xFF\xFE").Comment("a\nb").Bytes();
    Open("a.ogg", bytes);
    Line("txtYear")->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_NE(Focus(), "txtYear");
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.ogg"), bytes);
}

TEST_F(FileInfoOggTest, OK_WritesWhatIsInTheControls) {
    Open("a.ogg", Tagged().Bytes());
    Type("txtTitle", "New");
    Type("txtMix", "");
    Type("txtYear", "1999");
    Box("cmbGenre")->setEditText("Weird");
    Type("txtEncodedBy", "");
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.ogg"), Ogg()
                                            .AudioPages(20)
                                            .Comment("ARTIST=Ann")
                                            .Comment("ALBUM=Debut")
                                            .Comment("TRACKNUMBER=3")
                                            .Comment("DATE=1999")
                                            .Comment("TITLE=New")
                                            .Comment("GENRE=Weird")
                                            .Comment("COMMENT=one\ntwo")
                                            .Bytes());
}

TEST_F(FileInfoOggTest, DateThatIsTyped_HasToBeAYear) {
    Open("a.ogg", Tagged().Bytes());
    Type("txtYear", "2001-05-02");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "txtYear");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
}

TEST_F(FileInfoOggTest, AddNew_AppendsTheTrimmedLine) {
    Open("a.ogg", Ogg().Comment("FOO=1").Bytes());
    InEditTag([](QDialog& editTag) {
        EXPECT_EQ(FromQt(editTag.windowTitle()), "Comment");
        EXPECT_EQ(FromQt(editTag.findChild<QLineEdit*>("txtTag")->text()), "");
        Fill(editTag, "txtTag", " BAR ");
        Fill(editTag, "txtValue", " 2=3 ");
        ClickIn(editTag, "OKButton");
    });
    Click("cmdAddNewExCom");
    EXPECT_EQ(editTagsShown, 1);
    EXPECT_EQ(Lines(), (std::vector<std::string>{"FOO=1", "BAR=2=3"}));
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.ogg"), Ogg().Comment("FOO=1").Comment("BAR=2=3").Bytes());
}

TEST_F(FileInfoOggTest, AddNew_OfNothingOrCancelled_AddsNothing) {
    Open("a.ogg", Ogg().Comment("FOO=1").Bytes());
    InEditTag([](QDialog& editTag) {
        Fill(editTag, "txtValue", "x");
        ClickIn(editTag, "OKButton");
    });
    Click("cmdAddNewExCom");
    EXPECT_EQ(editTagsShown, 1);
    InEditTag([](QDialog& editTag) {
        Fill(editTag, "txtTag", "BAR");
        ClickIn(editTag, "CancelButton");
    });
    Click("cmdAddNewExCom");
    EXPECT_EQ(editTagsShown, 1);
    EXPECT_EQ(List()->count(), 1);
}

TEST_F(FileInfoOggTest, DoubleClick_EditsTheLine) {
    Open("a.ogg", Ogg().Comment("A=1").Comment("FOO=bar=baz").Bytes());
    InEditTag([](QDialog& editTag) {
        EXPECT_EQ(FromQt(editTag.findChild<QLineEdit*>("txtTag")->text()), "FOO");
        EXPECT_EQ(FromQt(editTag.findChild<QLineEdit*>("txtValue")->text()), "bar=baz");
        Fill(editTag, "txtValue", "qux");
        QTest::keyClick(&editTag, Qt::Key_Return);
    });
    DoubleClick(1);
    EXPECT_EQ(editTagsShown, 1);
    EXPECT_EQ(Lines(), (std::vector<std::string>{"A=1", "FOO=qux"}));
}

TEST_F(FileInfoOggTest, DoubleClick_Cancelled_LeavesTheLine) {
    Open("a.ogg", Ogg().Comment("FOO=bar").Bytes());
    InEditTag([](QDialog& editTag) {
        Fill(editTag, "txtValue", "qux");
        QTest::keyClick(&editTag, Qt::Key_Escape);
    });
    DoubleClick(0);
    EXPECT_EQ(editTagsShown, 1);
    EXPECT_EQ(Lines(), std::vector<std::string>{"FOO=bar"});
}

TEST_F(FileInfoOggTest, DoubleClick_LineWithoutANameAfterwards_IsGone) {
    Open("a.ogg", Ogg().Comment("FOO=bar").Comment("B=2").Bytes());
    InEditTag([](QDialog& editTag) {
        Fill(editTag, "txtTag", "");
        ClickIn(editTag, "OKButton");
    });
    DoubleClick(0);
    EXPECT_EQ(Lines(), std::vector<std::string>{"B=2"});
}

TEST_F(FileInfoOggTest, DoubleClickOnAnEmptyPlace_OpensNothing) {
    Open("a.ogg", Ogg().Comment("FOO=bar").Bytes());
    List()->setCurrentRow(0);
    InEditTag([](QDialog&) {});
    const QPoint below(20, List()->viewport()->height() - 5);
    ASSERT_EQ(List()->itemAt(below), nullptr);
    QTest::mouseDClick(List()->viewport(), Qt::LeftButton, {}, below);
    QCoreApplication::processEvents();
    EXPECT_EQ(editTagsShown, 0);
}

TEST_F(FileInfoOggTest, Remove_TakesTheSelectedLine) {
    Open("a.ogg", Ogg().Comment("A=1").Comment("B=2").Comment("C=3").Bytes());
    EXPECT_FALSE(Find<QPushButton>("cmdRemoveExCom")->isEnabled());
    List()->setCurrentRow(1);
    Click("cmdRemoveExCom");
    EXPECT_EQ(Lines(), (std::vector<std::string>{"A=1", "C=3"}));
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.ogg"), Ogg().Comment("A=1").Comment("C=3").Bytes());
}

TEST_F(FileInfoOggTest, KeysOfTheList_EditAddAndRemove) {
    Open("a.ogg", Ogg().Comment("A=1").Comment("B=2").Bytes());
    List()->setFocus();
    List()->setCurrentRow(1);
    InEditTag([](QDialog& editTag) {
        Fill(editTag, "txtValue", "9");
        ClickIn(editTag, "OKButton");
    });
    QTest::keyClick(List(), Qt::Key_F2);
    EXPECT_EQ(Lines(), (std::vector<std::string>{"A=1", "B=9"}));
    InEditTag([](QDialog& editTag) {
        Fill(editTag, "txtTag", "C");
        ClickIn(editTag, "OKButton");
    });
    QTest::keyClick(List(), Qt::Key_Insert);
    EXPECT_EQ(Lines(), (std::vector<std::string>{"A=1", "B=9", "C="}));
    List()->setCurrentRow(0);
    QTest::keyClick(List(), Qt::Key_Delete);
    EXPECT_EQ(Lines(), (std::vector<std::string>{"B=9", "C="}));
}

TEST_F(FileInfoOggTest, LineThatIsNoText_GoesBackAsItStands) {
    Open("a.ogg", Ogg().Comment("RAW=\xFF\xFE").Comment("A=1").Bytes());
    Type("txtArtist", "Ann");
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.ogg"),
              Ogg().Comment("ARTIST=Ann").Comment("RAW=\xFF\xFE").Comment("A=1").Bytes());
}

TEST_F(FileInfoOggTest, Cancel_ChangesNothing) {
    const std::string bytes = Ogg().Comment("A=1").Bytes();
    Open("a.ogg", bytes);
    List()->setCurrentRow(0);
    Click("cmdRemoveExCom");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.ogg"), bytes);
}

TEST_F(FileInfoOggTest, StreamThatIsRefused_IsTold) {
    Open("a.ogg", "no stream");
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.folder.Read("a.ogg"), "no stream");
}

TEST_F(FileInfoOggTest, MissingFile_GivesEmptyFieldsAndClosesSilently) {
    Show("none.ogg");
    EXPECT_EQ(List()->count(), 0);
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(FileInfoOggTest, ThirtyThousandLines_AreShownAtOnce) {
    Ogg stream;
    // The reader looks at the first 4 KiB, so the list is filled as the dialog fills it.
    Open("a.ogg", stream.Comment("A=1").Bytes());
    FileInformation information;
    for (int i = 0; i < 30000; ++i)
        information.Tag.OggVorbisExtension.addExCom("KEY" + std::to_string(i) + "=" + std::string(200, 'v'));
    QElapsedTimer timer;
    timer.start();
    for (int i = 1; i <= 30000; ++i) {
        auto* item = new QListWidgetItem(List());
        item->setText(ToQt(information.Tag.OggVorbisExtension.getExComValue(static_cast<std::int16_t>(i))));
    }
    dialog->grab();
    EXPECT_LT(timer.elapsed(), 5000);
    EXPECT_LT(dialog->minimumSizeHint().width(), 1000);
}

TEST_F(FileInfoOggTest, LongVendorAndLines_DoNotWidenTheDialog) {
    Open("a.ogg", Ogg().Comment("A=1").Bytes());
    const QSize usual = dialog->sizeHint();
    Open("b.ogg",
         Ogg().Vendor("<b>" + std::string(2000, 'v')).Comment("A=" + std::string(1500, 'x')).Bytes());
    EXPECT_LE(dialog->sizeHint().width(), usual.width() + 200);
    EXPECT_LT(dialog->sizeHint().width(), 1000);
    EXPECT_EQ(dialog->sizeHint().height(), usual.height());
    EXPECT_EQ(Find<QLabel>("lbllibVorbisVersion")->textFormat(), Qt::PlainText);
}

}  // namespace
}  // namespace zefta::test
