#include "library/FolderAhead.h"
#include "platform/RuntimeError.h"
#include "support/GatedFiles.h"
#include "ui/ListStage.h"
#include "ui/WindowTexts.h"

namespace zefta::test {
namespace {

/// The list of a window whose folder was read before it was there.
class FirstFolderTest : public ::testing::Test {
  protected:
    void WriteSong(const std::string& name, const std::string& artist) const {
        app.folder.Write(name, Mp3().Size(5000).Behind(Id3v1{.artist = artist}.Bytes()).Bytes());
    }

    FileReading Reading() { return {app.files, app.ansi, UnknownContent::PassOver}; }

    /// "gate.mp3" is the last of the files, and all of them are read.
    void ShowReadAhead() {
        app.folder.Write("gate.mp3", "");
        FolderAhead ahead(Reading(), app.folder.Path());
        gated.WaitForArrival();
        gated.OpenGate();
        browser.ShowFirstFolder(app.folder.Path(), &ahead);
    }

    QString Cell(int row, ListColumn column) const {
        return browser.View()->model()->index(row, static_cast<int>(column)).data().toString();
    }

    GatedFiles gated;
    TestApp app{&gated};
    StatusPanels panels{app};
    FolderBrowser browser{app, panels};
};

TEST_F(FirstFolderTest, WhatWasReadAhead_StandsAtOnceAndIsNotReadAgain) {
    app.files.CreateFolder(app.folder / "dir");
    WriteSong("a.mp3", "Ann");
    WriteSong("b.mp3", "Bob");
    app.folder.Write("x.txt", "");
    ShowReadAhead();
    ASSERT_EQ(browser.View()->model()->rowCount(), 5);
    EXPECT_EQ(Cell(2, ListColumn::File), "a.mp3");
    EXPECT_EQ(Cell(2, ListColumn::Artist), "Ann");
    EXPECT_EQ(Cell(3, ListColumn::Artist), "Bob");
    EXPECT_EQ(panels.StatusText(1), "Scanning... gate.mp3");
    QSignalSpy finished(&browser, &FolderBrowser::ScanFinished);
    EXPECT_TRUE(finished.wait(20000));
    EXPECT_EQ(gated.opened, 3);
    EXPECT_EQ(panels.StatusText(1), "");
    EXPECT_EQ(panels.StatusText(2), "3 files") << "of those that are listed";
    EXPECT_EQ(panels.StatusText(3), "10 K");
}

TEST_F(FirstFolderTest, WhatWasNotReadAhead_IsReadByTheWindow) {
    app.folder.Write("gate.mp3", "");
    WriteSong("z.mp3", "Zoe");
    FolderAhead ahead(Reading(), app.folder.Path());
    gated.WaitForArrival();
    EXPECT_FALSE(ahead.Take("/")) << "ends the reading";
    gated.OpenGate();
    browser.ShowFirstFolder(app.folder.Path(), &ahead);
    EXPECT_EQ(Cell(2, ListColumn::Artist), "");
    browser.FinishScan();
    EXPECT_EQ(Cell(2, ListColumn::Artist), "Zoe");
    EXPECT_EQ(panels.StatusText(2), "2 files");
    EXPECT_EQ(gated.opened, 2);
}

TEST_F(FirstFolderTest, Refresh_ReadsAnew) {
    WriteSong("a.mp3", "Ann");
    ShowReadAhead();
    browser.FinishScan();
    WriteSong("a.mp3", "Eve");
    app.files.DeleteFile(app.folder / "gate.mp3", Force::No);
    browser.RefreshContents();
    browser.FinishScan();
    ASSERT_EQ(browser.View()->model()->rowCount(), 2);
    EXPECT_EQ(Cell(1, ListColumn::Artist), "Eve");
}

TEST_F(FirstFolderTest, FolderThatIsGone_GivesTheRoot) {
    app.files.CreateFolder(app.folder / "sub");
    FolderAhead ahead(Reading(), app.folder / "sub");
    app.files.DeleteFolder(app.folder / "sub", Force::No);
    browser.ShowFirstFolder(app.folder / "sub", &ahead);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(browser.Folder(), "/");
    EXPECT_GT(browser.View()->model()->rowCount(), 0);
}

TEST_F(FirstFolderTest, EmptyFolder_SaysSo) {
    FolderAhead ahead(Reading(), app.folder.Path());
    browser.ShowFirstFolder(app.folder.Path(), &ahead);
    EXPECT_EQ(static_cast<FileListView*>(browser.View())->Note(), OwnText(app, WindowText::FolderIsEmpty));
}

/// Nobody may list a folder.
class SealedFiles : public PosixFileSystem {
  public:
    std::vector<FolderEntry> List(const std::string&) const override {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
};

TEST(FirstFolder, UnreadableFolder_SaysSoWithoutABox) {
    SealedFiles files;
    TestApp app(&files);
    StatusPanels panels(app);
    FolderBrowser browser(app, panels);
    FolderAhead ahead({app.files, app.ansi, UnknownContent::PassOver}, app.folder.Path());
    browser.ShowFirstFolder(app.folder.Path(), &ahead);
    EXPECT_EQ(static_cast<FileListView*>(browser.View())->Note(),
              OwnText(app, WindowText::FolderIsUnreadable));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

}  // namespace
}  // namespace zefta::test
