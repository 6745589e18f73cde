#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QToolTip>
#include <QUrl>

#include "ui/ListStage.h"

namespace zefta::test {
namespace {

class FileListMouse : public ListStage {
  protected:
    void SetUp() override {
        for (const char* name : {"a.mp3", "b.mp3", "c.wav"}) app.folder.Write(name, "");
        app.files.CreateFolder(app.folder / "sub");
        OpenWhole();
        Show();
    }

    void Click(const std::string& name, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(browser.View()->viewport(), button, modifiers, PointOn(name));
    }

    /// Drops what the addresses name; whether the view took it.
    bool Drop(const QList<QUrl>& urls) {
        QMimeData data;
        data.setUrls(urls);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(browser.View()->viewport(), &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(browser.View()->viewport(), &drop);
        EXPECT_EQ(browser.Folder(), app.folder.Path()) << "the source of the drop waits for its end";
        QCoreApplication::processEvents();
        return drop.isAccepted();
    }

    /// What the source of a folder hears that offers these, and Shift proposes to move it.
    Qt::DropAction ActionOfDrop(Qt::DropActions possible) {
        QMimeData data;
        data.setUrls({UrlOf("sub")});
        QDragEnterEvent enter({5, 5}, possible, &data, Qt::LeftButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(browser.View()->viewport(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), possible, &data, Qt::LeftButton, Qt::ShiftModifier);
        QCoreApplication::sendEvent(browser.View()->viewport(), &drop);
        EXPECT_TRUE(drop.isAccepted());
        return drop.dropAction();
    }

    QUrl UrlOf(const std::string& name) { return QUrl::fromLocalFile(ToQt(app.folder / name)); }
};

TEST_F(FileListMouse, DoubleClick_ActivatesTheRow) {
    BrowserRow activated;
    QObject::connect(&browser, &FolderBrowser::RowActivated, [&](const BrowserRow& row) { activated = row; });
    Click("b.mp3", Qt::LeftButton);
    QTest::mouseDClick(browser.View()->viewport(), Qt::LeftButton, {}, PointOn("b.mp3"));
    EXPECT_EQ(activated, (BrowserRow{RowIcon::Compressed, "b.mp3"}));
}

TEST_F(FileListMouse, PictureOfASelectedRow_HasTheColourOfItsText) {
    Click("a.mp3", Qt::LeftButton);
    QAbstractItemView& view = *browser.View();
    const QRect row = view.visualRect(view.currentIndex());
    const QImage picture =
        view.viewport()->grab(QRect(row.topLeft(), QSize(row.height(), row.height()))).toImage();
    const auto group = view.isActiveWindow() ? QPalette::Active : QPalette::Inactive;
    const QColor text = view.palette().color(group, QPalette::HighlightedText);
    const auto isLikeText = [&](const QColor& colour) {
        return std::abs(colour.red() - text.red()) + std::abs(colour.green() - text.green()) +
                   std::abs(colour.blue() - text.blue()) <
               120;
    };
    int ofText = 0;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) ofText += isLikeText(picture.pixelColor(x, y)) ? 1 : 0;
    }
    EXPECT_GT(ofText, 10);
}

TEST_F(FileListMouse, DoubleClickOfAnotherButton_ActivatesNothing) {
    QSignalSpy activations(&browser, &FolderBrowser::RowActivated);
    Click("a.mp3", Qt::LeftButton);
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton})
        QTest::mouseDClick(browser.View()->viewport(), button, {}, PointOn("a.mp3"));
    EXPECT_EQ(activations.size(), 0);
}

TEST_F(FileListMouse, RightButton_SelectsARowThatIsNotSelectedAlone) {
    browser.SetIconSelected(RowIcon::Compressed, true);
    Texts atMenu;
    QObject::connect(&browser, &FolderBrowser::MenuRequested, [&] { atMenu = SelectedNames(); });
    QTest::mousePress(browser.View()->viewport(), Qt::RightButton, {}, PointOn("c.wav"));
    EXPECT_EQ(atMenu, Texts{"c.wav"});
    EXPECT_EQ(browser.FocusedRow()->name, "c.wav");
}

TEST_F(FileListMouse, RightButton_KeepsASelectionThatItIsIn) {
    browser.SetIconSelected(RowIcon::Compressed, true);
    QSignalSpy menus(&browser, &FolderBrowser::MenuRequested);
    QTest::mousePress(browser.View()->viewport(), Qt::RightButton, {}, PointOn("b.mp3"));
    EXPECT_EQ(menus.size(), 1);
    EXPECT_EQ(SelectedNames(), (Texts{"a.mp3", "b.mp3"}));
    EXPECT_EQ(browser.FocusedRow()->name, "b.mp3");
}

TEST_F(FileListMouse, RightButtonBelowTheRows_AsksForNoMenu) {
    QSignalSpy menus(&browser, &FolderBrowser::MenuRequested);
    QTest::mousePress(browser.View()->viewport(), Qt::RightButton, {},
                      browser.View()->viewport()->rect().bottomLeft() + QPoint(20, -5));
    EXPECT_EQ(menus.size(), 0);
}

TEST_F(FileListMouse, MenuKey_AsksForTheMenuOfTheFocusedRow) {
    browser.SelectOnly("b.mp3");
    QSignalSpy menus(&browser, &FolderBrowser::MenuRequested);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, {}, {});
    QCoreApplication::sendEvent(browser.View()->viewport(), &key);
    ASSERT_EQ(menus.size(), 1);
    const QPoint place = browser.View()->viewport()->mapFromGlobal(menus.first().first().toPoint());
    EXPECT_LT((place - PointOn("b.mp3")).manhattanLength(), browser.View()->width());
    EXPECT_NEAR(place.y(), PointOn("b.mp3").y(),
                browser.View()->visualRect(browser.View()->currentIndex()).height());
}

TEST_F(FileListMouse, WhileCommandsAreOff_NothingStarts) {
    browser.SetCommandsEnabled(false);
    QSignalSpy menus(&browser, &FolderBrowser::MenuRequested);
    QSignalSpy activations(&browser, &FolderBrowser::RowActivated);
    QTest::mousePress(browser.View()->viewport(), Qt::RightButton, {}, PointOn("b.mp3"));
    QTest::mouseDClick(browser.View()->viewport(), Qt::LeftButton, {}, PointOn("b.mp3"));
    EXPECT_FALSE(Drop({UrlOf("sub")}));
    EXPECT_EQ(menus.size() + activations.size(), 0);
    EXPECT_EQ(browser.Folder(), app.folder.Path());
    EXPECT_FALSE(Child<QComboBox>("cmbPath").isEnabled());
    EXPECT_FALSE(Child<QComboBox>("drvBox").isEnabled());
    browser.SetCommandsEnabled(true);
    QTest::mouseDClick(browser.View()->viewport(), Qt::LeftButton, {}, PointOn("b.mp3"));
    EXPECT_EQ(activations.size(), 1);
}

TEST_F(FileListMouse, OneFolderDropped_IsEnteredAsIfTyped) {
    QSignalSpy refused(static_cast<FileListView*>(browser.View()), &FileListView::DropRefused);
    EXPECT_TRUE(Drop({UrlOf("sub")}));
    EXPECT_EQ(browser.Folder(), app.folder / "sub");
    EXPECT_EQ(PathText(), app.folder / "sub");
    EXPECT_EQ(browser.History(), Texts{app.folder / "sub"});
    EXPECT_EQ(refused.size(), 0);
}

TEST_F(FileListMouse, DroppedFolder_IsNeverMoved) {
    EXPECT_EQ(ActionOfDrop(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction), Qt::CopyAction);
    EXPECT_EQ(ActionOfDrop(Qt::MoveAction | Qt::LinkAction), Qt::LinkAction);
    EXPECT_EQ(ActionOfDrop(Qt::MoveAction), Qt::IgnoreAction);
    QCoreApplication::processEvents();
    EXPECT_EQ(browser.Folder(), app.folder / "sub");
}

TEST_F(FileListMouse, FolderOfBytes_IsEnteredByItsBytes) {
    const std::string name = "caf\xE9";
    app.files.CreateFolder(app.folder / name);
    EXPECT_TRUE(Drop({QUrl::fromEncoded(("file://" + app.folder.Path() + "/caf%E9").c_str())}));
    EXPECT_EQ(browser.Folder(), app.folder / name);
}

TEST_F(FileListMouse, AnythingElseDropped_IsRefusedWithABeep) {
    app.files.CreateFolder(app.folder / "sub2");
    QSignalSpy refused(static_cast<FileListView*>(browser.View()), &FileListView::DropRefused);
    EXPECT_FALSE(Drop({UrlOf("sub"), UrlOf("sub2")}));
    EXPECT_FALSE(Drop({UrlOf("a.mp3")}));
    EXPECT_FALSE(Drop({UrlOf("missing")}));
    EXPECT_FALSE(Drop({QUrl("https://kestrin.example/")}));
    EXPECT_EQ(refused.size(), 4);
    EXPECT_EQ(browser.Folder(), app.folder.Path());
}

TEST_F(FileListMouse, TagOfMegabytes_IsShownInPart) {
    FileListModel model(app);
    model.ShowEntries({{"a.mp3", ListKind::MP3}}, false);
    ListedFile file;
    for (int i = 0; i < 100000; ++i) file.tag.ID3v2Extension.TrackTitle += "éa";
    model.Fill(0, file);
    const QString title = model.index(0, static_cast<int>(ListColumn::Title)).data().toString();
    EXPECT_TRUE(title.startsWith("éaéaéa"));
    EXPECT_TRUE(title.endsWith("é") || title.endsWith("a")) << "no half of a character";
    EXPECT_LT(title.size(), 2000);
}

TEST_F(FileListMouse, CutText_IsToldWhole) {
    const std::string name = "<b>" + std::string(100, 'w') + ".mp3";
    app.folder.Write(name, "");
    browser.RefreshContents();
    browser.FinishScan();
    const QPoint point = PointOn(name);
    QHelpEvent help(QEvent::ToolTip, point, browser.View()->viewport()->mapToGlobal(point));
    QCoreApplication::sendEvent(browser.View()->viewport(), &help);
    EXPECT_TRUE(QToolTip::text().contains(ToQt(name).toHtmlEscaped())) << FromQt(QToolTip::text());
    QToolTip::hideText();
}

TEST_F(FileListMouse, TypedLetters_GoToTheName) {
    browser.View()->setFocus();
    QTest::keyClicks(browser.View(), "c.w");
    EXPECT_EQ(browser.FocusedRow()->name, "c.wav");
}

TEST_F(FileListMouse, Columns_FitTheirRowsUntilThePersonWantsElse) {
    auto& view = static_cast<FileListView&>(*browser.View());
    app.folder.Write("a name that takes its room.mp3", "");
    browser.RefreshContents();
    browser.FinishScan();
    EXPECT_TRUE(browser.ColumnWidths().empty());
    view.setColumnWidth(1, 333);
    const std::vector<int> widths = browser.ColumnWidths();
    ASSERT_EQ(widths.size(), 8U);
    EXPECT_EQ(widths[1], 333);
    browser.RefreshContents();
    QTest::qWait(20);
    EXPECT_EQ(browser.ColumnWidths(), widths);
}

TEST_F(FileListMouse, FirstFolderWithFiles_SetsTheWidths) {
    FolderBrowser other(app, panels);
    other.resize(800, 500);
    other.show();
    app.folder.Write("a name that takes quite some room.mp3", "");
    QSignalSpy finished(&other, &FolderBrowser::ScanFinished);
    other.ShowFirstFolder(app.folder.Path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return finished.size() == 1; }));
    const auto& view = static_cast<FileListView&>(*other.View());
    EXPECT_GT(view.columnWidth(0),
              view.fontMetrics().horizontalAdvance("a name that takes quite some room.mp3"));
    EXPECT_TRUE(other.ColumnWidths().empty());
}

TEST_F(FileListMouse, Captions_HaveTheirRoomAboveShortTexts) {
    FolderBrowser other(app, panels);
    other.ShowFirstFolder(app.folder.Path());
    other.FinishScan();
    auto& view = static_cast<FileListView&>(*other.View());
    view.FitColumns();
    const QHeaderView& header = *view.header();
    for (int column = 0; column < ListColumnCount - 1; ++column) {
        const QString caption = view.model()->headerData(column, Qt::Horizontal).toString();
        EXPECT_GE(header.sectionSizeHint(column), header.fontMetrics().horizontalAdvance(caption));
        EXPECT_GE(view.columnWidth(column), header.sectionSizeHint(column));
    }
}

TEST(HundredThousandRows, ScrollWithoutWaiting) {
    constexpr int RowCount = 100'000;
    // The machine of a test run may be busy; on one that is not a step takes a tenth of this.
    constexpr qint64 LongestStep = 400;
    TestApp app;
    FileListModel model(app);
    FileListView view(app, model);
    view.resize(800, 500);
    view.show();
    std::vector<ListEntry> entries;
    for (int i = 0; i < RowCount; ++i)
        entries.push_back({"Track " + std::to_string(i) + ".mp3", ListKind::MP3});
    QElapsedTimer time;
    time.start();
    model.ShowEntries(std::move(entries), true);
    qint64 longest = 0;
    QScrollBar& bar = *view.verticalScrollBar();
    for (int step = 0; step <= 50; ++step) {
        bar.setValue(bar.maximum() * step / 50);
        QCoreApplication::processEvents();
        longest = std::max(longest, time.restart());
    }
    EXPECT_GT(bar.maximum(), RowCount / 2);
    EXPECT_LT(longest, LongestStep);
    EXPECT_EQ(view.RowsInView()->second, RowCount);
}

}  // namespace
}  // namespace zefta::test
