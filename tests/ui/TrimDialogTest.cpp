#include <QApplication>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "core/Options.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "ui/QtText.h"
#include "ui/desktop/OutlineView.h"
#include "ui/desktop/TrimDialog.h"
#include "ui/desktop/WindowDesktop.h"
#include "wave/TrimProgress.h"
#include "wave/WaveTrim.h"

namespace zefta::test {
namespace {

/// Hands everything on to a desktop of windows.
class ViewOf : public ProgressView {
  public:
    explicit ViewOf(TrimDialog& dialog) : dialog_(dialog) {}
    void Show(const ProgressReport& report) override { dialog_.ShowReport(report); }
    bool DrawsOutline() const override { return true; }

  private:
    TrimDialog& dialog_;
};

class TrimDialogTest : public ::testing::Test {
  protected:
    TrimDialogTest() {
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    }

    /// What the label shows once the latest report has been painted.
    std::string Label(const char* name) {
        QTest::qWait(50);
        return FromQt(dialog.findChild<QLabel*>(name)->text());
    }
    QRadioButton& Option(int index) {
        return *dialog.findChild<QRadioButton*>(QString("optFormatting%1").arg(index));
    }
    std::vector<int> CheckedOptions() {
        std::vector<int> checked;
        for (int i = 0; i <= 5; ++i) {
            if (Option(i).isChecked()) checked.push_back(i);
        }
        return checked;
    }
    QProgressBar& Bar() { return *dialog.findChild<QProgressBar*>("ProgressBar"); }
    OutlineView& Outline() { return *dialog.findChild<OutlineView*>("picOutline"); }

    TestApp app;
    WaveFile wave{app};
    TrimDialog dialog{Language::English, nullptr};
    TrimProgress progress{app, wave, std::make_unique<ViewOf>(dialog)};
};

TEST_F(TrimDialogTest, File_ShowsItsPathItsFormatAndTheStatus) {
    wave.Format = 4;
    progress.ShowFile("/music/a.wav");
    progress.ShowStatus(33817);
    EXPECT_EQ(FromQt(dialog.findChild<QLineEdit*>("txtFileName")->text()), "/music/a.wav");
    EXPECT_TRUE(dialog.findChild<QLineEdit*>("txtFileName")->isReadOnly());
    EXPECT_EQ(Label("lblStatus"), "Scanning...");
    EXPECT_EQ(CheckedOptions(), std::vector<int>{4});
    progress.ShowStatus(33818);
    EXPECT_EQ(Label("lblStatus"), "Saving...");
}

TEST_F(TrimDialogTest, EveryFormat_IsTheButtonOfItsIndex) {
    for (const int format : {0, 1, 2, 3, 4, 5, 7, 2}) {
        wave.Format = format;
        progress.ShowFile("a.wav");
        progress.ShowStatus(33817);
        QTest::qWait(50);
        EXPECT_EQ(CheckedOptions(), format > 5 ? std::vector<int>{} : std::vector<int>{format}) << format;
    }
}

TEST_F(TrimDialogTest, Captions_AreTheMessages) {
    progress.ShowFile("a.wav");
    progress.ShowStatus(33817);
    EXPECT_EQ(FromQt(dialog.windowTitle()), "Trim silence");
    EXPECT_EQ(FromQt(dialog.findChild<QGroupBox*>("fraSilence")->title()), "Silence detected:");
    EXPECT_EQ(FromQt(dialog.findChild<QGroupBox*>("fraFormatting")->title()), "Formatting:");
    EXPECT_EQ(Label("lblStartOffset"), "Before:");
    EXPECT_EQ(Label("lblEndOffset"), "After:");
    EXPECT_EQ(Label("lblNonstop"), "NON-STOP");
    const char* options[] = {"Trim silence", "Normal track", "First track",
                             "Last track",   "First track",  "Last track"};
    for (int i = 0; i <= 5; ++i) EXPECT_EQ(FromQt(Option(i).text()), options[i]);
    EXPECT_EQ(FromQt(Option(4).accessibleName()), "NON-STOP First track");
    EXPECT_EQ(FromQt(Option(5).accessibleName()), "NON-STOP Last track");
}

TEST_F(TrimDialogTest, Offsets_StandInThreeFormsAtTheirEnds) {
    progress.ShowFile("a.wav");
    wave.StartOffset(44100);
    wave.EndOffset(176400);
    EXPECT_EQ(Label("lblStartOffsetValue"), "44 100 bytes");
    EXPECT_EQ(Label("lblFramesBefore"), "18 frames");
    EXPECT_EQ(Label("lblBeforeMSF"), "0 mins 00 secs 250 ms");
    EXPECT_EQ(Label("lblEndOffsetValue"), "176 400 bytes");
    EXPECT_EQ(Label("lblFramesAfter"), "75 frames");
    EXPECT_EQ(Label("lblAfterMSF"), "0 mins 01 secs 000 ms");
}

TEST_F(TrimDialogTest, Status_MovesTheBar) {
    progress.ShowFile("a.wav");
    wave.MinStatus(0);
    wave.MaxStatus(5 * 176400);
    wave.Status(2 * 176400);
    EXPECT_EQ(Label("lblMSFWritten"), "0 mins 02 secs processed");
    EXPECT_EQ(Label("lblMSFRemaining"), "0 mins 03 secs remaining");
    EXPECT_EQ(Bar().minimum(), 0);
    EXPECT_EQ(Bar().maximum(), 882000);
    EXPECT_EQ(Bar().value(), 352800);
}

TEST_F(TrimDialogTest, NextFile_BeginsEmpty) {
    progress.ShowFile("a.wav");
    wave.MaxStatus(1000);
    wave.Status(1000);
    wave.StartOffset(44100);
    progress.ShowFile("b.wav");
    progress.ShowStatus(33817);
    EXPECT_EQ(Label("lblStartOffsetValue"), "");
    EXPECT_EQ(Label("lblMSFWritten"), "");
    EXPECT_EQ(Bar().value(), 0);
    EXPECT_LT(Bar().minimum(), Bar().maximum());
}

TEST_F(TrimDialogTest, OptionButtons_TakeNoClickAndNoKey) {
    wave.Format = 1;
    progress.ShowFile("a.wav");
    progress.ShowStatus(33817);
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {},
                      Option(3).mapTo(&dialog, Option(3).rect().center()));
    EXPECT_EQ(CheckedOptions(), std::vector<int>{1});
    for (int i = 0; i <= 5; ++i) EXPECT_EQ(Option(i).focusPolicy(), Qt::NoFocus);
}

TEST_F(TrimDialogTest, ManyReports_ArePaintedAtMost25TimesASecond) {
    class Counter : public QObject {
      public:
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            count += event->type() == QEvent::Paint;
            return false;
        }
    } paints;
    progress.ShowFile("a.wav");
    progress.ShowStatus(33818);
    wave.MaxStatus(100000000);
    QTest::qWait(60);
    Bar().installEventFilter(&paints);
    QElapsedTimer time;
    time.start();
    for (std::int32_t value = 0; time.elapsed() < 400; ++value) {
        wave.Status(value * 1000 % 100000000);
        QApplication::processEvents();
    }
    EXPECT_GT(paints.count, 1);
    EXPECT_LE(paints.count, 12);
}

TEST_F(TrimDialogTest, LastReport_IsShownThoughNoneFollows) {
    progress.ShowFile("a.wav");
    wave.MaxStatus(1000);
    for (std::int32_t value = 0; value <= 1000; ++value) wave.Status(value);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Bar().value() == 1000; }, 2000));
}

TEST_F(TrimDialogTest, Cancel_ByButtonEscapeOrClosing_AsksForTheEndAndStays) {
    const std::function<void(TrimDialog&)> ways[] = {
        [](TrimDialog& one) { QTest::mouseClick(one.findChild<QPushButton*>("cmdCancel"), Qt::LeftButton); },
        [](TrimDialog& one) { QTest::keyClick(&one, Qt::Key_Escape); },
        [](TrimDialog& one) { one.close(); },
    };
    for (const auto& way : ways) {
        TrimDialog one(Language::English, nullptr);
        one.show();
        EXPECT_FALSE(one.IsCancelled());
        way(one);
        EXPECT_TRUE(one.IsCancelled());
        EXPECT_TRUE(one.isVisible());
        EXPECT_FALSE(one.findChild<QPushButton*>("cmdCancel")->isEnabled());
        EXPECT_EQ(FromQt(one.findChild<QPushButton*>("cmdCancel")->text()), "Ending...");
    }
}

TEST_F(TrimDialogTest, Enter_DoesNotCancel) {
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.IsCancelled());
    EXPECT_FALSE(dialog.isModal());
}

TEST_F(TrimDialogTest, Outline_ShadesTheSilenceAtBothEnds) {
    progress.ShowFile(app.folder.Write("a.wav", Wav().Silence(88200).Tone(705600).Silence(88200).Bytes()));
    wave.StartOffset(88200);
    wave.EndOffset(176400);
    QTest::qWait(50);
    const int width = Outline().width();
    EXPECT_NEAR(Outline().SilenceBeforeEnds(), width / 10, 1);
    EXPECT_NEAR(Outline().SilenceAfterBegins(), width * 8 / 10, 1);
    const QImage picture = Outline().grab().toImage();
    const auto samples = [&](double place) {
        // The whole column of pixels there.
        QSet<QRgb> colours;
        const int x = static_cast<int>(picture.width() * place);
        for (int y = 2; y < picture.height() - 2; ++y) colours.insert(picture.pixel(x, y));
        return colours;
    };
    const QRgb ink = Outline().palette().color(QPalette::Text).rgb();
    const QRgb paper = Outline().palette().color(QPalette::Base).rgb();
    EXPECT_TRUE(samples(0.5).contains(ink));
    EXPECT_TRUE(samples(0.5).contains(paper));
    EXPECT_FALSE(samples(0.05).contains(paper));
    EXPECT_GT(samples(0.05).size(), 1);
}

TEST_F(TrimDialogTest, Outline_KeepsItsRoomWhenTheLabelsFill) {
    progress.ShowFile("a.wav");
    progress.ShowStatus(33817);
    wave.StartOffset(44100);
    wave.MaxStatus(1000);
    wave.Status(10);
    QTest::qWait(100);
    EXPECT_GE(Outline().height(), Outline().fontMetrics().lineSpacing() * 3);
    EXPECT_GE(Outline().width(), dialog.width() / 2);
}

TEST_F(TrimDialogTest, Outline_WithoutAudio_IsBlankAndShadesNothing) {
    progress.ShowFile("none.wav");
    wave.StartOffset(88200);
    QTest::qWait(50);
    EXPECT_EQ(Outline().SilenceBeforeEnds(), 0);
    EXPECT_EQ(Outline().SilenceAfterBegins(), Outline().width());
}

/// The job itself, on a desktop of windows.
class TrimJobOnDesktopTest : public ::testing::Test {
  protected:
    TrimJobOnDesktopTest()
        : app(world.TestWorld::machine, world.TestWorld::files, desktop, world.processes, world.userSettings,
              world.machineSettings) {}

    TrimDialog* Dialog() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* dialog = qobject_cast<TrimDialog*>(window)) return dialog;
        }
        return nullptr;
    }

    void Run(const std::vector<std::string>& tokens) {
        ParseCommandLine(app, CommandLine(tokens));
        WaveTrimJob(app);
    }

    TestApp world;
    WindowDesktop desktop{Language::English};
    App app;
    const std::string original = Wav().Silence(4000).Tone(40 * 44100).Silence(4000).Bytes();
};

TEST_F(TrimJobOnDesktopTest, Dialog_StandsWhileTheJobWorks) {
    world.folder.Write("a.wav", original);
    bool wasSeen = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (TrimDialog* dialog = Dialog()) wasSeen = wasSeen || dialog->isVisible();
    });
    look.start(1);
    Run({"/wt", "/showexec", "/before", "1", "/after", "1"});
    EXPECT_TRUE(wasSeen);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_NE(world.folder.Read("a.wav"), original);
}

TEST_F(TrimJobOnDesktopTest, Dialog_NotAskedFor_IsNotMade) {
    world.folder.Write("a.wav", original);
    bool wasSeen = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] { wasSeen = wasSeen || Dialog() != nullptr; });
    look.start(1);
    Run({"/wt", "/dontshowexec"});
    EXPECT_FALSE(wasSeen);
}

TEST_F(TrimJobOnDesktopTest, Cancel_EndsBehindTheFileAtHand) {
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) world.folder.Write(name, original);
    QTimer press;
    QObject::connect(&press, &QTimer::timeout, &press, [&] {
        if (TrimDialog* dialog = Dialog()) QTest::keyClick(dialog, Qt::Key_Escape);
    });
    press.start(1);
    Run({"/wt", "/showexec", "/before", "1", "/after", "1"});
    int rewritten = 0;
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) rewritten += world.folder.Read(name) != original;
    EXPECT_EQ(rewritten, 1);
    EXPECT_FALSE(desktop.IsCancelled());
}

}  // namespace
}  // namespace zefta::test
