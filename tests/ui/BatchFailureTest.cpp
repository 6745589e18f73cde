// Dialogs that work on many files, on a disk that refuses one of them.

#include <filesystem>

#include "platform/CommandText.h"
#include "platform/RuntimeError.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "toolkit/DialogAtHand.h"
#include "ui/CommandStage.h"
#include "ui/TypeKeys.h"
#include "ui/encode/EncodeDialog.h"
#include "ui/grid/GridView.h"
#include "ui/rename/RenameDialog.h"
#include "ui/tags/ChangeTagsDialog.h"
#include "ui/tags/ChangeTagsExDialog.h"

namespace zefta::test {
namespace {

using FileNames = std::vector<std::string>;

/// A disk that has no room for a new form of one file.
class RefusingDisk : public PosixFileSystem {
  public:
    std::string refused;

    void ReplaceFile(const std::string& replacement, const std::string& target) override {
        Refuse(target);
        PosixFileSystem::ReplaceFile(replacement, target);
    }

    bool ReplaceByOpenFile(BinaryFile& written, const std::string& replacement,
                           const std::string& target) override {
        Refuse(target);
        return PosixFileSystem::ReplaceByOpenFile(written, replacement, target);
    }

  private:
    void Refuse(const std::string& target) const {
        if (!refused.empty() && target.ends_with("/" + refused))
            throw RuntimeError(ErrorNumber::DiskFull, target);
    }
};

class BatchFailure : public ::testing::Test {
  protected:
    BatchFailure() {
        app.defaultWaveFile = &wave;
        app.state.CompressCD_Bitrate = 128;
        app.state.Saved.TrimSilence = false;
        app.processes.tool = [](const RecordingProcesses::Run& run) {
            WriteWholeFile(SplitCommandLine(run.commandLine).back().text, Mp3().Size(4000).Bytes());
        };
    }

    void WriteSongs() {
        for (const std::string& name : Songs) app.folder.Write(name, SongBytes);
    }

    void ExpectOneFailure() {
        ASSERT_EQ(app.desktop.boxes.size(), 1U);
        EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #61")) << app.desktop.boxes[0].text;
        EXPECT_NE(app.desktop.boxes[0].text.find("b."), std::string::npos);
    }

    std::string ArtistOf(const std::string& name) {
        const ID3Tag tag = wave.GetMP3FileInfo(app.folder / name);
        return tag.Artist + "|" + tag.ID3v2Extension.Artist;
    }

    /// The one in the middle is as it was to the byte, the others have what was typed, and nothing lies
    /// about.
    void ExpectAllButTheMiddle() {
        EXPECT_EQ(ArtistOf("a.mp3"), "New|New");
        EXPECT_EQ(ArtistOf("c.mp3"), "New|New");
        EXPECT_TRUE(app.folder.Read("b.mp3") == SongBytes);
        EXPECT_EQ(app.files.List(app.folder.Path()).size(), Songs.size());
        EXPECT_EQ(told, Songs);
    }

    const FileNames Songs = {"a.mp3", "b.mp3", "c.mp3"};
    const std::string SongBytes =
        Mp3().Size(3000).Behind(Id3v1{.title = "Title", .artist = "Old"}.Bytes()).Bytes();

    RefusingDisk disk;
    TestApp app{&disk};
    WaveFile wave{app};
    FileNames told;
    std::function<void(const std::string&)> tell = [this](const std::string& name) { told.push_back(name); };
};

TEST_F(BatchFailure, MassiveTags_TheOthersAreWrittenAndTheDialogCloses) {
    WriteSongs();
    disk.refused = "b.mp3";
    for (int run = 0; run < 2; ++run) {
        told.clear();
        app.desktop.boxes.clear();
        ChangeTagsDialog dialog(app, {app.folder.Path(), Songs, Songs}, tell, nullptr);
        ShowInFront(dialog);
        QTest::keyClicks(dialog.findChild<QLineEdit*>("txtArtist"), "New");
        ClickOn(dialog, "OKButton");
        EXPECT_FALSE(dialog.isVisible());
        ExpectOneFailure();
        ExpectAllButTheMiddle();
    }
    disk.refused.clear();
    ChangeTagsDialog dialog(app, {app.folder.Path(), Songs, Songs}, tell, nullptr);
    ShowInFront(dialog);
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtArtist"), "New");
    ClickOn(dialog, "OKButton");
    EXPECT_EQ(ArtistOf("b.mp3"), "New|New") << "as soon as there is room";
}

TEST_F(BatchFailure, MassiveTags_LeftAtTheBoxOfTheFailure_GoOnWithTheRest) {
    WriteSongs();
    disk.refused = "b.mp3";
    app.desktop.asksToCancel = [this] { return !app.desktop.boxes.empty(); };
    ChangeTagsDialog dialog(app, {app.folder.Path(), Songs, Songs}, tell, nullptr);
    ShowInFront(dialog);
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtArtist"), "New");
    ClickOn(dialog, "OKButton");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(ArtistOf("c.mp3"), "Old|");
    EXPECT_EQ(FromQt(dialog.findChild<QLineEdit*>("txtArtist")->text()), "New");
    EXPECT_TRUE(dialog.findChild<QPushButton*>("OKButton")->isEnabled());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    app.desktop.asksToCancel = {};
    ClickOn(dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(ArtistOf("c.mp3"), "New|New");
}

TEST_F(BatchFailure, AdvancedTags_TheOthersAreWrittenAndTheDialogStaysForTheOne) {
    WriteSongs();
    disk.refused = "b.mp3";
    const std::vector<TagRow> rows = LoadTagRows(app, app.folder.Path(), Songs).value();
    ChangeTagsExDialog dialog(app, app.folder.Path(), rows, tell, nullptr);
    ShowInFront(dialog);
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtDefArtist"), "New");
    ClickOn(dialog, "OKButton");
    EXPECT_TRUE(dialog.isVisible());
    ExpectOneFailure();
    ExpectAllButTheMiddle();
    disk.refused.clear();
    ClickOn(dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(ArtistOf("b.mp3"), "New|New");
}

TEST_F(BatchFailure, AdvancedTags_LeftAtTheBoxOfTheFailure_KeepWhatWasTyped) {
    WriteSongs();
    disk.refused = "b.mp3";
    app.desktop.asksToCancel = [this] { return !app.desktop.boxes.empty(); };
    const std::vector<TagRow> rows = LoadTagRows(app, app.folder.Path(), Songs).value();
    ChangeTagsExDialog dialog(app, app.folder.Path(), rows, tell, nullptr);
    ShowInFront(dialog);
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtDefArtist"), "New");
    ClickOn(dialog, "OKButton");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(app.folder.Read("c.mp3") == SongBytes);
    app.desktop.asksToCancel = {};
    disk.refused.clear();
    ClickOn(dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    for (const std::string& name : Songs) EXPECT_EQ(ArtistOf(name), "New|New") << name;
}

TEST_F(BatchFailure, Encoding_KeepsTheSourceWhoseTagsCannotBeWritten) {
    const FileNames waves = {"a.wav", "b.wav", "c.wav"};
    for (const std::string& name : waves) app.folder.Write(name, Wav().Tone(17640).Bytes());
    disk.refused = "b.MP3";
    EncodeDialog dialog(app, app.folder.Path(), waves, {[](const std::string&) {}, tell}, nullptr);
    ShowInFront(dialog);
    QTest::keyClicks(dialog.findChild<QLineEdit*>("txtDefArtist"), "New");
    dialog.findChild<QCheckBox*>("chkDeleteAfterCompress")->setChecked(true);
    app.desktop.answers = {true};
    ClickOn(dialog, "OKButton");
    EXPECT_TRUE(dialog.isVisible()) << "with what was typed for the one";
    EXPECT_EQ(dialog.findChild<GridView*>("flxFiles")->model()->rowCount(), 1);
    ExpectOneFailure();
    EXPECT_EQ(told, (FileNames{"a.wav", "c.wav"}));
    EXPECT_FALSE(app.folder.Exists("a.wav"));
    EXPECT_TRUE(app.folder.Exists("b.wav")) << "its output has no tags";
    EXPECT_FALSE(app.folder.Exists("c.wav"));
    EXPECT_EQ(ArtistOf("c.MP3"), "New|New");
    EXPECT_EQ(app.files.List(app.folder.Path()).size(), 4U) << "three outputs and a source";
    disk.refused.clear();
    // Nobody is asked about what the first time has left.
    app.desktop.answers = {true};
    ClickOn(dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(app.folder.Exists("b.wav"));
    EXPECT_EQ(ArtistOf("b.MP3"), "New|New");
}

TEST_F(BatchFailure, Encoding_LeftAtTheBoxOfTheFailure_KeepsTheRowsThatAreLeft) {
    const FileNames waves = {"a.wav", "b.wav", "c.wav"};
    for (const std::string& name : waves) app.folder.Write(name, Wav().Tone(17640).Bytes());
    disk.refused = "b.MP3";
    app.desktop.asksToCancel = [this] { return !app.desktop.boxes.empty(); };
    EncodeDialog dialog(app, app.folder.Path(), waves, {[](const std::string&) {}, tell}, nullptr);
    ShowInFront(dialog);
    dialog.findChild<QCheckBox*>("chkShutdown")->setChecked(true);
    app.desktop.answers = {true};
    ClickOn(dialog, "OKButton");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.WantsPowerOff());
    EXPECT_EQ(told, FileNames{"a.wav"});
    EXPECT_EQ(dialog.findChild<GridView*>("flxFiles")->model()->rowCount(), 2);
    app.desktop.asksToCancel = {};
    disk.refused.clear();
    // Nobody is asked about what the first time has left.
    app.desktop.answers = {true};
    ClickOn(dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(told, waves);
}

/// The extended rename from the main window.
class RenameFailure : public BatchFailure {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(app.folder / "music");
        app.state.CurrentFolder = app.folder / "music";
    }

    void MakeSong(const std::string& name, const std::string& title, const std::string& frames = {}) {
        const std::string end = Id3v1{.title = title, .artist = "A"}.Bytes();
        app.folder.Write("music/" + name,
                         Mp3().InFront(frames.empty() ? "" : Id3v2(frames, 200)).Behind(end).Bytes());
    }

    void RunExtendedRename(MainWindow& window, const char* filter) {
        QTimer::singleShot(0, &window, [filter] {
            QWidget* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            dialog->findChild<QAbstractButton*>("optFormat1")->click();
            dialog->findChild<QAbstractButton*>(filter)->click();
            dialog->findChild<QAbstractButton*>("OKButton")->click();
        });
        window.Commands().Run(Command::ExtendedRename);
        window.Browser().FinishScan();
    }

    static FileNames RowNames(MainWindow& window) {
        FileNames names;
        for (const BrowserRow& row : window.Browser().Rows()) names.push_back(row.name);
        return names;
    }
};

TEST_F(RenameFailure, FileThatEndsTheWork_LeavesListAndPlaylistTrue) {
    MakeSong("1.mp3", "One");
    MakeSong("2.mp3", "Two", TextFrame("TPE1", "A") + TextFrame("TIT2", "Two") + TextFrame("TRCK", "3/12"));
    MakeSong("3.mp3", "Three");
    app.folder.Write("music/list.m3u", "1.mp3\n2.mp3\n3.mp3\n");
    MainWindow window(app);
    window.show();
    window.Browser().FinishScan();
    window.Browser().SetIconSelected(RowIcon::Compressed, true);
    RunExtendedRename(window, "optRenameFilter1");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #13")) << app.desktop.boxes[0].text;
    EXPECT_EQ(app.folder.Read("music/list.m3u"), "A - One.MP3\n2.mp3\n3.mp3\n");
    EXPECT_EQ(RowNames(window), (FileNames{"..", "list.m3u", "2.mp3", "3.mp3", "A - One.MP3"}));
    EXPECT_FALSE(window.Commands().IsRunning());
    EXPECT_EQ(app.userSettings.GetValue("Settings", "RenameAndTagging_Format"), "1");
}

TEST_F(RenameFailure, PlaylistThatCannotBeWritten_StaysWholeAndIsTold) {
    MakeSong("1.mp3", "One");
    app.folder.Write("music/list.m3u", "1.mp3\n");
    disk.refused = "list.m3u";
    MainWindow window(app);
    window.show();
    RunExtendedRename(window, "optRenameFilter0");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #61")) << app.desktop.boxes[0].text;
    EXPECT_EQ(app.folder.Read("music/list.m3u"), "1.mp3\n");
    EXPECT_EQ(RowNames(window), (FileNames{"..", "list.m3u", "A - One.MP3"}));
    EXPECT_FALSE(window.Commands().IsRunning());
}

}  // namespace
}  // namespace zefta::test
