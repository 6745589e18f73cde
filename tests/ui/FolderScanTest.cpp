#include <filesystem>
#include <memory>

#include "platform/RuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "ui/ListStage.h"
#include "ui/WindowTexts.h"
#include "ui/list/FolderScan.h"

namespace zefta::test {
namespace {

class FolderScanning : public ListStage {
  protected:
    void WaitForScan() {
        QSignalSpy finished(&browser, &FolderBrowser::ScanFinished);
        EXPECT_TRUE(finished.wait(20000));
    }

    Texts Panels() const {
        Texts texts;
        for (int panel = 1; panel <= StatusPanels::PanelCount; ++panel)
            texts.push_back(panels.StatusText(panel));
        return texts;
    }
};

TEST_F(FolderScanning, Names_StandBeforeContents) {
    app.folder.Write("a.mp3", Mp3().Size(20000).Behind(Id3v1{.artist = "Ann"}.Bytes()).Bytes());
    Open();
    EXPECT_EQ(Names(), (Texts{"..", "a.mp3"}));
    EXPECT_EQ(Cell("a.mp3", ListColumn::Artist), "");
    WaitForScan();
    EXPECT_EQ(Cell("a.mp3", ListColumn::Artist), "Ann");
}

TEST_F(FolderScanning, Panels_TellFilesAtTheEnd) {
    app.files.CreateFolder(app.folder / "sub");
    app.folder.Write("a.mp3", std::string(10240, 'x'));
    app.folder.Write("b.wav", std::string(2048, 'x'));
    app.folder.Write("x.txt", std::string(50000, 'x'));
    panels.SetStatusText(4, "old");
    OpenWhole();
    EXPECT_EQ(Panels(), (Texts{"", "2 files", "12 K", ""}));
}

TEST_F(FolderScanning, Panels_TellFoldersWhereThereAreNoFiles) {
    app.files.CreateFolder(app.folder / "one");
    app.files.CreateFolder(app.folder / "two");
    OpenWhole();
    EXPECT_EQ(Panels(), (Texts{"", "2 folders", "", ""}));
    app.folder.Write("x.txt", "x");
    browser.RefreshContents();
    browser.FinishScan();
    EXPECT_EQ(Panels(), (Texts{"", "0 files", " K", ""}));
}

TEST_F(FolderScanning, EmptyFolder_LeavesThePanelsEmpty) {
    for (int panel = 1; panel <= 3; ++panel) panels.SetStatusText(panel, "old");
    OpenWhole();
    EXPECT_EQ(Panels(), (Texts{"", "", "", ""}));
}

TEST_F(FolderScanning, Progress_NamesWhatIsAtHand) {
    app.files.CreateFolder(app.folder / "sub");
    Open();
    EXPECT_EQ(panels.StatusText(1), "Scanning... sub");
    EXPECT_EQ(panels.StatusText(2), "1 folders");
    EXPECT_EQ(panels.findChild<QWidget*>("panel2")->accessibleDescription(), "1 folders");
    app.folder.Write("x.txt", "");
    browser.RefreshContents();
    EXPECT_EQ(panels.StatusText(1), "Scanning... x.txt") << "files that are not listed are named too";
}

TEST_F(FolderScanning, FolderThatCannotBeEntered_IsToldOnceAndTheListStays) {
    app.folder.Write("a.mp3", "");
    OpenWhole();
    panels.SetStatusText(1, "old");
    browser.EnterTypedFolder(app.folder / "missing");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_EQ(browser.Folder(), app.files.CurrentFolder());
    EXPECT_EQ(PathText(), app.folder.Path());
    EXPECT_EQ(Names(), (Texts{"..", "a.mp3"}));
    EXPECT_EQ(panels.StatusText(1), "");
}

TEST_F(FolderScanning, FirstFolderThatCannotBeEntered_GivesTheRoot) {
    browser.ShowFirstFolder(app.folder / "missing");
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(browser.Folder(), "/");
    EXPECT_EQ(PathText(), "/");
    EXPECT_EQ(app.files.CurrentFolder(), "/");
    const Texts names = Names();
    EXPECT_NE(std::find(names.begin(), names.end(), "tmp"), names.end());
}

TEST_F(FolderScanning, FolderThatIsGone_GivesTheRoot) {
    app.files.CreateFolder(app.folder / "sub");
    browser.ShowFirstFolder(app.folder / "sub");
    app.files.DeleteFolder(app.folder / "sub", Force::No);
    browser.RefreshContents();
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(browser.Folder(), "/");
    EXPECT_FALSE(browser.CanGoUp());
}

TEST_F(FolderScanning, DoubledSeparators_AreMadeSingle) {
    app.files.CreateFolder(app.folder / "sub");
    browser.ShowFirstFolder(app.folder.Path() + "//sub/");
    EXPECT_EQ(browser.Folder(), app.folder / "sub/");
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "sub") << "the folder of the process follows";
}

TEST_F(FolderScanning, NewRefresh_AbandonsTheScan) {
    app.files.CreateFolder(app.folder / "sub");
    app.folder.Write("sub/inner.mp3", std::string(30000, 'x'));
    for (int i = 0; i < 50; ++i) app.folder.Write("f" + std::to_string(i) + ".mp3", std::string(1024, 'x'));
    Open();
    QSignalSpy finished(&browser, &FolderBrowser::ScanFinished);
    browser.ShowFolder("sub");
    browser.FinishScan();
    EXPECT_EQ(finished.size(), 1);
    EXPECT_EQ(Panels(), (Texts{"", "1 files", "29 K", ""}));
    QTest::qWait(30);
    EXPECT_EQ(finished.size(), 1);
}

TEST_F(FolderScanning, ListChanged_ComesBeforeTheProgress) {
    app.files.CreateFolder(app.folder / "sub");
    Texts atChange;
    QObject::connect(&browser, &FolderBrowser::ListChanged, [&] {
        atChange = Names();
        panels.SetStatusText(1, "closed");
    });
    Open();
    EXPECT_EQ(atChange, (Texts{"..", "sub"}));
    EXPECT_EQ(panels.StatusText(1), "Scanning... sub");
}

TEST_F(FolderScanning, RowChosenDuringTheScan_IsToldAtItsEnd) {
    app.folder.Write("a.mp3", "");
    Open();
    browser.SelectOnly("a.mp3");
    QSignalSpy changed(&browser, &FolderBrowser::SelectionChanged);
    browser.FinishScan();
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(FolderScanning, RowRenamedDuringTheScan_CountsOnce) {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) app.folder.Write(name, std::string(1024, 'x'));
    Open();
    app.files.MoveFile(app.folder / "a.mp3", app.folder / "z.mp3");
    browser.RefillRow("a.mp3", "z.mp3");
    browser.FinishScan();
    EXPECT_EQ(panels.StatusText(2), "3 files");
    EXPECT_EQ(panels.StatusText(3), "3 K");
    EXPECT_EQ(Cell("z.mp3", ListColumn::Size), "1024");
}

/// A list that shows a part of its rows, those of many songs.
class LongFolder : public FolderScanning {
  protected:
    static constexpr int Songs = 150;

    void SetUp() override {
        for (int song = 0; song < Songs; ++song) WriteSong(song, "Title");
    }

    void WriteSong(int song, const std::string& title) const {
        app.folder.Write(NameOf(song), Mp3().Size(5000).Behind(Id3v1{.title = title}.Bytes()).Bytes());
    }

    static std::string NameOf(int song) { return std::to_string(1000 + song) + ".mp3"; }

    FolderScan& Scan() const { return *browser.findChild<FolderScan*>(); }
    FileListView& View() const { return static_cast<FileListView&>(*browser.View()); }
    QString LastTitle() const { return Cell(NameOf(Songs - 1), ListColumn::Title); }

    void OpenUntilTheViewIsFilled() {
        Open();
        QSignalSpy filled(&Scan(), &FolderScan::RowsInViewFilled);
        ASSERT_TRUE(filled.wait(20000));
    }
};

TEST_F(LongFolder, RowsOutOfView_WaitForThePaintingOfThoseInView) {
    constexpr int LongerThanTheTest = 60000;
    Scan().SetPatience(LongerThanTheTest);
    OpenUntilTheViewIsFilled();
    EXPECT_EQ(Cell(NameOf(0), ListColumn::Title), "Title");
    QTest::qWait(20);
    EXPECT_EQ(LastTitle(), "");
    emit View().Painted();
    WaitForScan();
    EXPECT_EQ(LastTitle(), "Title");
}

TEST_F(LongFolder, WindowThatIsNotPainted_IsFilledAllTheSame) {
    OpenUntilTheViewIsFilled();
    WaitForScan();
    EXPECT_EQ(LastTitle(), "Title");
}

TEST_F(LongFolder, WindowThatIsPainted_IsFilled) {
    Scan().SetPatience(60000);
    Show();
    Open();
    WaitForScan();
    EXPECT_EQ(LastTitle(), "Title");
}

TEST_F(LongFolder, RowsOutOfView_TellHowWideTheColumnsAre) {
    const std::string longTitle = "A title that is longer";
    WriteSong(Songs - 10, longTitle);
    Open();
    WaitForScan();
    EXPECT_GT(View().columnWidth(static_cast<int>(ListColumn::Title)),
              View().fontMetrics().horizontalAdvance(ToQt(longTitle)));
}

TEST_F(LongFolder, ColumnsStay_OnceTheyFit) {
    Open();
    WaitForScan();
    const std::vector<int> widths = View().ColumnWidths();
    WriteSong(0, "A title that is longer, of a later time");
    browser.RefreshContents();
    WaitForScan();
    EXPECT_EQ(View().ColumnWidths(), widths);
}

/// A file system that says how the folder can't be read.
class UnreadableFolders : public PosixFileSystem {
  public:
    bool isUnreadable = false;

    std::vector<FolderEntry> List(const std::string& folder) const override {
        if (isUnreadable) throw RuntimeError(ErrorNumber::PermissionDenied);
        return PosixFileSystem::List(folder);
    }
};

TEST(FolderScanFailures, UnreadableFolder_SaysSoWithoutABox) {
    UnreadableFolders files;
    TestApp app(&files);
    app.folder.Write("a.mp3", "");
    StatusPanels panels(app);
    FolderBrowser browser(app, panels);
    files.isUnreadable = true;
    browser.ShowFirstFolder(app.folder.Path());
    browser.FinishScan();
    EXPECT_EQ(static_cast<FileListView*>(browser.View())->Note(),
              OwnText(app, WindowText::FolderIsUnreadable));
    EXPECT_EQ(browser.View()->model()->rowCount(), 1) << "the way up";
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(FolderScanFailures, FilesThatFail_GiveRowsAndNoBox) {
    TestWorld world;
    FaultInjectingFileSystem files(world.files);
    TestApp app(&files);
    for (const char* name : {"a.mp3", "b.wav", "c.ogg", "d.mpc", "e.m3u"}) app.folder.Write(name, "xxxx");
    StatusPanels panels(app);
    FolderBrowser browser(app, panels);
    browser.ShowFirstFolder(app.folder.Path());
    files.faults.plan = {FaultPlan::Mode::FromTheNthOn, files.faults.operations + 1};
    browser.FinishScan();
    EXPECT_EQ(browser.View()->model()->rowCount(), 6);
    EXPECT_EQ(panels.StatusText(2), "5 files");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

// The machine of a test run may be busy with other things; what is told to people holds on one that is not.
constexpr int LoadAllowance = 8;

class LargeFolder : public FolderScanning {
  protected:
    static constexpr int FileCount = 20000;

    /// One file under many names: to the list each is a file of its own.
    static void SetUpTestSuite() {
        folder = std::make_unique<TempFolder>();
        const std::string bytes = Mp3().Size(5000).Behind(Id3v1{.artist = "Ann"}.Bytes()).Bytes();
        const std::string first = folder->Write("Track 0.mp3", bytes);
        for (int i = 1; i < FileCount; ++i)
            std::filesystem::create_hard_link(first, *folder / ("Track " + std::to_string(i) + ".mp3"));
    }

    static void TearDownTestSuite() { folder.reset(); }

    void Open() { browser.ShowFirstFolder(folder->Path()); }

    static std::unique_ptr<TempFolder> folder;
};

std::unique_ptr<TempFolder> LargeFolder::folder;

TEST_F(LargeFolder, FirstRows_AreThereAtOnceAndTheWindowAnswers) {
    Show();
    QElapsedTimer time;
    time.start();
    Open();
    while (Cell("Track 0.mp3", ListColumn::Artist).isEmpty()) QCoreApplication::processEvents();
    const qint64 firstRows = time.elapsed();
    qint64 longestGap = 0;
    bool isFinished = false;
    QObject::connect(&browser, &FolderBrowser::ScanFinished, [&] { isFinished = true; });
    while (!isFinished) {
        QElapsedTimer gap;
        gap.start();
        QCoreApplication::processEvents();
        longestGap = std::max(longestGap, gap.elapsed());
    }
    RecordProperty("firstRowsMilliseconds", static_cast<int>(firstRows));
    RecordProperty("longestGapMilliseconds", static_cast<int>(longestGap));
    RecordProperty("wholeMilliseconds", static_cast<int>(time.elapsed()));
    EXPECT_LT(firstRows, 300 * LoadAllowance);
    EXPECT_LT(longestGap, 100 * LoadAllowance);
    EXPECT_EQ(panels.StatusText(2), std::to_string(FileCount) + " files");
}

TEST_F(LargeFolder, RowsInView_AreFilledFirst) {
    Show();
    Open();
    browser.SelectOnly("Track 9999.mp3");
    const auto isFilled = [&] { return !Cell("Track 9999.mp3", ListColumn::Artist).isEmpty(); };
    EXPECT_TRUE(QTest::qWaitFor(isFilled, 10000));
    EXPECT_EQ(Cell("Track 9999.mp3", ListColumn::Artist), "Ann");
    EXPECT_EQ(Cell("Track 5.mp3", ListColumn::Artist), "");
}

}  // namespace
}  // namespace zefta::test
