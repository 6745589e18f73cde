#include "support/ApeBuilder.h"
#include "support/MpcBuilder.h"
#include "support/TagBuilders.h"
#include "ui/FileInfoStage.h"
#include "ui/info/MPEGplusFileInfo.h"

namespace zefta::test {
namespace {

std::string MpcStream() {
    return Mpc7(1000, 160, 64) + Audio(5000);
}

Ape Items() {
    return Ape()
        .Item("Track", "3/12")
        .Item("Artist", "Ann")
        .Item("Title", "Song (Live)")
        .Item("Album", "Debut")
        .Item("Year", "2001")
        .Item("Genre", "Rock")
        .Item("Comment", "one\ntwo")
        .Item("Composer", "Bach")
        .Item("Copyright", "Copy")
        .Item("Encoded by", "Me");
}

class FileInfoMPEGplusTest : public FileInfoStage<MPEGplusFileInfo> {};

TEST_F(FileInfoMPEGplusTest, Load_ShowsTheTagAndTheMeasures) {
    Open("a.mpc", MpcStream() + Items().Bytes());
    EXPECT_EQ(FromQt(dialog->windowTitle()), "a.mpc - file information");
    const std::pair<const char*, std::string> texts[] = {
        {"txtTitle", "Song"},         {"txtMix", "Live"},      {"txtArtist", "Ann"},
        {"txtAlbum", "Debut"},        {"txtYear", "2001"},     {"txtTrackNumber2", "3/12"},
        {"txtComments2", "one\ntwo"}, {"txtComposer", "Bach"}, {"txtCopyright", "Copy"},
        {"txtEncodedBy", "Me"},
    };
    for (const auto& [control, text] : texts) EXPECT_EQ(TextOf(control), text) << control;
    EXPECT_EQ(FromQt(Box("cmbGenre")->currentText()), "Rock");
    EXPECT_EQ(LabelOf("lblEncoder"), "MPEGplus SV7\nMPEGplus Standard");
    EXPECT_EQ(LabelOf("lblFileInfo"), MeasuresText(Now("a.mpc").Tag));
    EXPECT_TRUE(LabelOf("lblFileInfo").ends_with("44100 kHz\r\n Joint Stereo\r\n"));
    ExpectUsable(*dialog);
}

TEST_F(FileInfoMPEGplusTest, OKWithoutAChange_LeavesEveryByte) {
    const std::string bytes = MpcStream() + Items().Item("Publisher", "P").Bytes();
    Open("a.mpc", bytes);
    Press(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.mpc"), bytes);
}

TEST_F(FileInfoMPEGplusTest, OK_LeavesAnAPETagAlone) {
    Open("a.mpc", Id3v2(TextFrame("TIT2", "Old (Mix)"), 502) + MpcStream() + Id3v1{.title = "Older"}.Bytes());
    EXPECT_EQ(TextOf("txtTitle"), "Old");
    EXPECT_EQ(TextOf("txtMix"), "Mix");
    Type("txtTitle", "New");
    Type("txtComposer", "Bach");
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.mpc"),
              MpcStream() + Ape().Item("Title", "New (Mix)").Item("Composer", "Bach").Bytes());
}

TEST_F(FileInfoMPEGplusTest, RemoveUnknownFrames_TakesTheItemsOut) {
    Open("a.mpc", MpcStream() + Items().Item("Publisher", std::string(1000, 'p')).Bytes());
    EXPECT_EQ(FromQt(Check("chkRemoveUnknownFrames")->text()),
              "Remove unknown frames while updating file (1K)");
    Toggle("chkRemoveUnknownFrames");
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.mpc"), MpcStream() + Items().Bytes());
}

TEST_F(FileInfoMPEGplusTest, YearThatIsNoNumber_KeepsTheFocus) {
    Open("a.mpc", MpcStream() + Items().Bytes());
    Type("txtYear", "0199");
    Press(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "txtYear");
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.mpc"), MpcStream() + Items().Bytes());
}

TEST_F(FileInfoMPEGplusTest, ReadOnly_NoLeavesTheDialogOpen_YesWrites) {
    const std::string path = app.folder.Write("a.mpc", MpcStream() + Items().Bytes());
    app.files.SetReadOnly(path, true);
    Show("a.mpc");
    app.desktop.answers = {false, true};
    Type("txtArtist", "Bob");
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.mpc"), MpcStream() + Items().Bytes());
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Now("a.mpc").Tag.Artist, "Bob");
    EXPECT_FALSE(app.files.IsReadOnly(path));
}

TEST_F(FileInfoMPEGplusTest, FileWithoutAStream_IsToldAndShowsItsTag) {
    Open("a.mpc", Mpc7(0) + Audio(500) + Items().Bytes());
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(TextOf("txtTitle"), "Song");
    const std::string before = app.folder.Read("a.mpc");
    Click("OKButton");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.mpc"), before);
}

}  // namespace
}  // namespace zefta::test
