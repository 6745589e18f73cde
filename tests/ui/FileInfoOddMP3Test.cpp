// Files that the dialog does not meet every day: names, lengths, and what goes wrong ahead of OK.

#include "ui/FileInfoMP3Stage.h"

namespace zefta::test {
namespace {

using FileInfoOddMP3Test = FileInfoMP3Test;

TEST_F(FileInfoOddMP3Test, LongNamesAndHugeTags_DoNotWidenTheDialog) {
    OpenTagged();
    const QSize usual = dialog->minimumSizeHint();
    const std::string name = std::string(240, 'x') + ".mp3";
    Open(name, Id3v2(OwnFrames(std::string(60000, 'c')), 70000) + Stream());
    EXPECT_EQ(dialog->minimumSizeHint().width(), usual.width());
    EXPECT_LE(dialog->minimumSizeHint().height(), usual.height());
    EXPECT_EQ(TextOf("txtComments2").size(), 60000U);
    EXPECT_LT(usual.height(), 700);
    EXPECT_LT(usual.width(), 1000);
}

TEST_F(FileInfoOddMP3Test, TextTooLongToBeEdited_ShowsItsBeginningAndStays) {
    const std::string comment(1'500'000, 'c');
    const std::string bytes = Id3v2(OwnFrames(comment), 1'510'000) + Stream();
    Open("a.mp3", bytes);
    EXPECT_EQ(TextOf("txtComments2").size(), 100'000U);
    EXPECT_TRUE(Line("txtComments2")->isReadOnly());
    EXPECT_FALSE(Line("txtComments2")->toolTip().isEmpty());
    EXPECT_FALSE(Line("txtTitle2")->isReadOnly());
    Type("txtArtist2", "Bob");
    Click("OKButton");
    const ID3v2Extension after = Now("a.mp3").Tag.ID3v2Extension;
    EXPECT_EQ(after.Artist, "Bob");
    EXPECT_EQ(after.Comments, comment);
}

TEST_F(FileInfoOddMP3Test, NameThatIsNoUTF8_IsShownByTheCodePageAndItsFileWritten) {
    const std::string name = "a\xE4.mp3";
    Open(name, Stream());
    EXPECT_EQ(FromQt(dialog->windowTitle()), "aä.mp3 - file information");
    Type("txtTitle", "New");
    Click("OKButton");
    EXPECT_EQ(Now(name).Tag.Title, "New");
}

TEST_F(FileInfoOddMP3Test, NameWithTheMarkOfUnsavedChanges_IsShownWhole) {
    Open("a[*].mp3", Stream());
    EXPECT_EQ(FromQt(dialog->windowTitle()), "a[*][*].mp3 - file information");
}

TEST_F(FileInfoOddMP3Test, LongTexts_ShowTheirBeginning) {
    Open("a.mp3", Stream() + Id3v1{.artist = std::string(30, 'x')}.Bytes());
    EXPECT_EQ(Line("txtArtist")->cursorPosition(), 0);
    EXPECT_EQ(Line("txtArtist")->maxLength(), 30);
}

TEST_F(FileInfoOddMP3Test, TextThatLooksLikeMarkup_IsShownAsItIs) {
    Open("<b>a.mp3", Stream());
    EXPECT_EQ(FromQt(dialog->windowTitle()), "<b>a.mp3 - file information");
    EXPECT_EQ(Find<QLabel>("lblEncoder")->textFormat(), Qt::PlainText);
    EXPECT_EQ(Find<QLabel>("lblFileInfo")->textFormat(), Qt::PlainText);
}

TEST_F(FileInfoOddMP3Test, FileThatCouldNotBeReadWhole_IsReadAgainAndKeepsItsTags) {
    const std::string bytes = Id3v2(OwnFrames(), 600) + Stream() + OldTag.Bytes();
    Open("a.mp3", Stream() + "LYRICSBEGIN......LYRICSEND");
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    app.folder.Write("a.mp3", bytes);
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(TextOf("txtTitle2"), "Song");
    EXPECT_TRUE(Check("chkEnable")->isChecked());
    EXPECT_EQ(app.folder.Read("a.mp3"), bytes);
}

TEST_F(FileInfoOddMP3Test, FileThatComesBackAfterLoading_IsReadAndNotCleared) {
    Show("a.mp3");
    const std::string bytes = Stream() + OldTag.Bytes();
    app.folder.Write("a.mp3", bytes);
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(TextOf("txtTitle"), "Old song");
    EXPECT_EQ(app.folder.Read("a.mp3"), bytes);
}

}  // namespace
}  // namespace zefta::test
