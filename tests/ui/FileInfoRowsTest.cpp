// What the lists and notes of the file information hold, entry for entry.

#include <QListWidget>

#include "core/GenreTable.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "toolkit/EventCounter.h"
#include "ui/FileInfoMP3Stage.h"
#include "ui/info/MPEGplusFileInfo.h"
#include "ui/info/OggFileInfo.h"

namespace zefta::test {
namespace {

TEST_F(FileInfoMP3Test, GenresWithIDs_AreTheWholeTableByItsIndexesAndNone) {
    Open("a.mp3", Stream() + Id3v1{.title = "T"}.Bytes());
    const QComboBox& genres = *Box("cmbGenreWithIDs");
    EXPECT_EQ(static_cast<std::size_t>(genres.count()), GenreTable.size() + 1);
    for (std::size_t index = 0; index < GenreTable.size(); ++index) {
        const int entry = genres.findData(static_cast<int>(index));
        ASSERT_GE(entry, 0) << index;
        EXPECT_EQ(FromQt(genres.itemText(entry)), GenreTable[index]);
    }
    EXPECT_EQ(genres.currentData().toInt(), 255);
    EXPECT_EQ(FromQt(genres.currentText()), "No genre");
}

TEST_F(FileInfoMP3Test, Genre_HasTheSameNamesAndTakesAnyText) {
    Open("a.mp3", Stream());
    const QComboBox& genre = *Box("cmbGenre");
    EXPECT_EQ(static_cast<std::size_t>(genre.count()), GenreTable.size());
    for (const std::string_view name : GenreTable)
        EXPECT_GE(genre.findText(ToQt(name), Qt::MatchExactly), 0) << name;
    EXPECT_TRUE(genre.isEditable());
}

TEST_F(FileInfoMP3Test, GenreThatIsChosen_IsWrittenByItsIndex) {
    Open("a.mp3", Stream() + Id3v1{.title = "T", .genre = 17}.Bytes());
    Box("cmbGenreWithIDs")->setCurrentText("No genre");
    Click("OKButton");
    EXPECT_EQ(app.folder.Read("a.mp3").back(), '\xFF');
}

class FileInfoMPEGplusRows : public FileInfoStage<MPEGplusFileInfo> {};

TEST_F(FileInfoMPEGplusRows, WriteNote_IsShownWhileTheFileIsWritten) {
    Open("a.mpc", Mpc7(1000) + Audio(500));
    EXPECT_EQ(LabelOf("lblWriteNote"), "Updating file... please wait...");
    EXPECT_TRUE(Find<QLabel>("lblWriteNote")->isHidden());
    const EventCounter shown(*Find<QLabel>("lblWriteNote"), QEvent::Show);
    Click("OKButton");
    EXPECT_EQ(shown.Count(), 1);
}

TEST_F(FileInfoMPEGplusRows, MissingFile_GivesEmptyFieldsAndClosesSilently) {
    Show("none.mpc");
    EXPECT_EQ(TextOf("txtTitle"), "");
    EXPECT_EQ(LabelOf("lblFileInfo"), "");
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_FALSE(app.folder.Exists("none.mpc"));
}

class FileInfoOggRows : public FileInfoStage<OggFileInfo> {
  protected:
    QListWidget& List() const { return *Find<QListWidget>("lstExCom"); }
};

TEST_F(FileInfoOggRows, DoubleClickOnAnEmptyLine_OpensNothing) {
    Open("a.ogg", Ogg().Comment("FOO=bar").Bytes());
    auto* empty = new QListWidgetItem(QString(), &List());
    empty->setSizeHint(QSize(50, 20));
    bool opened = false;
    QTimer::singleShot(0, dialog.get(), [&] {
        if (auto* editTag = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            editTag != nullptr && editTag->objectName() == "frmFileInfoOgg_EditTag") {
            opened = true;
            editTag->reject();
        }
    });
    const QPoint place = List().visualItemRect(empty).center();
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, place);
    ASSERT_EQ(List().currentItem(), empty);
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, place);
    QCoreApplication::processEvents();
    EXPECT_FALSE(opened);
}

TEST_F(FileInfoOggRows, CancelButton_ChangesNothing) {
    const std::string bytes = Ogg().Comment("TITLE=Old").Bytes();
    Open("a.ogg", bytes);
    Type("txtTitle", "New");
    Click("CancelButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.ogg"), bytes);
}

}  // namespace
}  // namespace zefta::test
