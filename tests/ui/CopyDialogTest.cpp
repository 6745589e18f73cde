#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTextDocumentFragment>
#include <QWindow>
#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

#include "library/CopyProgress.h"
#include "support/TestApp.h"
#include "ui/QtText.h"
#include "ui/desktop/CopyPlaylistDialog.h"
#include "ui/desktop/WindowDesktop.h"

namespace zefta::test {
namespace {

class CopyDialogTest : public ::testing::Test {
  protected:
    CopyDialogTest() { progress.ShowPlaylist("songs.m3u"); }

    CopyPlaylistDialog& Dialog() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<CopyPlaylistDialog*>(window);
            if (dialog != nullptr) return *dialog;
        }
        throw std::runtime_error("no dialog");
    }
    std::string Label(const char* name) {
        QTest::qWait(50);
        return FromQt(Dialog().findChild<QLabel*>(name)->text());
    }
    QProgressBar& Bar(const char* name) { return *Dialog().findChild<QProgressBar*>(name); }

    TestApp app;
    WindowDesktop desktop{Language::English};
    WaveFile wave{app};
    CopyProgress progress{app, wave, desktop.OpenProgress()};
};

TEST_F(CopyDialogTest, Playlist_IsInTheTitleAndNamed) {
    EXPECT_TRUE(Dialog().isVisible());
    EXPECT_FALSE(Dialog().isModal());
    EXPECT_EQ(FromQt(Dialog().windowTitle()), "copying playlist songs.m3u");
    EXPECT_EQ(Label("lblPlaylist"), "songs.m3u");
    EXPECT_EQ(FromQt(Dialog().findChild<QGroupBox*>("fraTotal")->title()), "Total:");
    EXPECT_EQ(FromQt(Dialog().findChild<QGroupBox*>("fraCurrent")->title()), "Current:");
}

TEST_F(CopyDialogTest, BothScales_FollowTheirNumbers) {
    progress.SetTotal(1000000);
    progress.ShowFile("/music/a.mp3");
    progress.SetBase(200000);
    wave.MinStatus(0);
    wave.MaxStatus(300000);
    wave.Status(44100);
    EXPECT_EQ(Label("lblFile"), "/music/a.mp3");
    EXPECT_EQ(Label("lblCurrent"), "300 000 bytes");
    EXPECT_EQ(Label("lblCurrentDone"), "44 100 bytes");
    EXPECT_EQ(Label("lblWritten"), "244 100 bytes");
    EXPECT_EQ(Label("lblRemaining"), "755 900 bytes");
    EXPECT_EQ(Bar("prgTotal").maximum(), 1000000);
    EXPECT_EQ(Bar("prgTotal").value(), 244100);
    EXPECT_EQ(Bar("prgCurent").maximum(), 300000);
    EXPECT_EQ(Bar("prgCurent").value(), 44100);
}

TEST_F(CopyDialogTest, Bars_HaveNamesForScreenReaders) {
    EXPECT_EQ(FromQt(Bar("prgTotal").accessibleName()), "Progress of the whole work");
    EXPECT_EQ(FromQt(Bar("prgCurent").accessibleName()), "Progress of this file");
}

TEST_F(CopyDialogTest, EmptyTotal_IsNoBusyBar) {
    progress.SetTotal(0);
    QTest::qWait(50);
    EXPECT_LT(Bar("prgTotal").minimum(), Bar("prgTotal").maximum());
}

TEST_F(CopyDialogTest, LongPath_LeavesTheWindowAsItIs) {
    const int width = Dialog().width();
    const std::string path = "/music/" + std::string(400, 'x') + "/a.mp3";
    progress.ShowFile(path);
    EXPECT_EQ(Label("lblFile"), path);
    EXPECT_EQ(Dialog().width(), width);
    Dialog().grab();
    EXPECT_EQ(FromQt(Dialog().findChild<QLabel*>("lblFile")->toolTip()), path);
}

TEST_F(CopyDialogTest, NamesWithMarks_AreShownAsTheyAre) {
    progress.ShowPlaylist("a[*].m3u");
    Dialog().grab();
    EXPECT_EQ(FromQt(Dialog().windowHandle()->title()).find("copying playlist a[*].m3u"), 0U)
        << FromQt(Dialog().windowHandle()->title());
    const std::string path = "/music/<b>x</b>" + std::string(400, 'x') + "/a.mp3";
    progress.ShowFile(path);
    Dialog().grab();
    const QString tip = Dialog().findChild<QLabel*>("lblFile")->toolTip();
    EXPECT_EQ(FromQt(QTextDocumentFragment::fromHtml(tip).toPlainText()), path);
}

TEST_F(CopyDialogTest, Cancel_IsTheDesktopsCancel) {
    EXPECT_FALSE(desktop.IsCancelled());
    auto* button = Dialog().findChild<QPushButton*>("cmdCancel");
    EXPECT_EQ(FromQt(button->toolTip()), "Ends the work when the file at hand is done");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(desktop.IsCancelled());
}

TEST(CopyDialog, WindowThatGoesFirst_TakesTheDialogWithIt) {
    TestApp app;
    WindowDesktop desktop{Language::English};
    WaveFile wave(app);
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    CopyProgress progress(app, wave, desktop.OpenProgress());
    progress.ShowPlaylist("songs.m3u");
    EXPECT_FALSE(window->findChildren<CopyPlaylistDialog*>().isEmpty());
    window.reset();
    progress.SetTotal(100);
    EXPECT_FALSE(desktop.IsCancelled());
}

}  // namespace
}  // namespace zefta::test
