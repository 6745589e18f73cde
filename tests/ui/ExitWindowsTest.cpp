#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include "support/TestApp.h"
#include "toolkit/FindControl.h"
#include "ui/QtText.h"
#include "ui/desktop/ExitWindowsDialog.h"

namespace zefta::test {
namespace {

class FakePowerOff : public PowerOff {
  public:
    std::vector<int> calls;
    std::string refusal;
    std::function<void()> meanwhile;

    std::string ExitSystem(int flags) override {
        calls.push_back(flags);
        if (meanwhile) meanwhile();
        return refusal;
    }
};

class ExitWindowsTest : public ::testing::Test {
  protected:
    ExitWindowsTest() : dialog(app, powerOff) {
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    }

    template <typename Widget>
    Widget& Control(const char* name) {
        return FindControl<Widget>(dialog, name);
    }

    std::string Text(const char* label) { return FromQt(Control<QLabel>(label).text()); }

    /// Lets the seconds go by as fast as they can.
    void RunDown() { Control<QTimer>("Timer1").setInterval(0); }

    TestApp app;
    FakePowerOff powerOff;
    ExitWindowsDialog dialog;
};

TEST_F(ExitWindowsTest, Load_ShowsTheTextsAndFifteen) {
    EXPECT_EQ(FromQt(dialog.objectName()), "frmExitWindows");
    EXPECT_EQ(Text("lblInfo1"), "Your computer will be powered off in");
    EXPECT_EQ(Text("lblTimeout"), "15");
    EXPECT_EQ(Text("lblInfo2"), "seconds");
    EXPECT_EQ(FromQt(Control<QPushButton>("OKButton").text()), "Power off immediately");
    EXPECT_EQ(FromQt(Control<QPushButton>("CancelButton").text()), "Cancel");
}

TEST_F(ExitWindowsTest, Timer_TicksEverySecond) {
    EXPECT_EQ(Control<QTimer>("Timer1").interval(), 1000);
    EXPECT_TRUE(Control<QTimer>("Timer1").isActive());
}

TEST_F(ExitWindowsTest, EachTick_ShowsOneLess) {
    std::vector<std::string> shown;
    QObject::connect(&Control<QTimer>("Timer1"), &QTimer::timeout, &dialog, [&] {
        shown.push_back(Text("lblTimeout"));
        if (shown.size() == 3) Control<QTimer>("Timer1").stop();
    });
    RunDown();
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.size() == 3; }));
    EXPECT_EQ(shown, (std::vector<std::string>{"14", "13", "12"}));
    EXPECT_TRUE(powerOff.calls.empty());
}

TEST_F(ExitWindowsTest, AtZero_PowersOffOnceAndEnds) {
    RunDown();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }));
    QTest::qWait(50);
    EXPECT_EQ(powerOff.calls, std::vector<int>{9});
    EXPECT_EQ(Text("lblTimeout"), "0");
    EXPECT_FALSE(Control<QTimer>("Timer1").isActive());
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ExitWindowsTest, OKButton_PowersOffAtOnceAndOnce) {
    QTest::mouseClick(&Control<QPushButton>("OKButton"), Qt::LeftButton);
    EXPECT_EQ(powerOff.calls, std::vector<int>{9});
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(Control<QTimer>("Timer1").isActive());
    EXPECT_EQ(Text("lblTimeout"), "15");
}

TEST_F(ExitWindowsTest, WhileTheSystemIsAsked_NothingCanBePressedOrRunsDown) {
    RunDown();
    Control<QTimer>("Timer1").stop();
    powerOff.meanwhile = [&] {
        QTest::mouseClick(&Control<QPushButton>("OKButton"), Qt::LeftButton);
        QTest::qWait(50);
    };
    QTest::mouseClick(&Control<QPushButton>("OKButton"), Qt::LeftButton);
    EXPECT_EQ(powerOff.calls.size(), 1U);
}

TEST_F(ExitWindowsTest, WhileTheSystemIsAsked_TheDialogCantBeClosed) {
    bool stood = false;
    powerOff.meanwhile = [&] {
        dialog.close();
        stood = dialog.isVisible();
    };
    QTest::mouseClick(&Control<QPushButton>("OKButton"), Qt::LeftButton);
    EXPECT_TRUE(stood);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ExitWindowsTest, Dialog_StandsInFrontOfAllWindows) {
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(ExitWindowsTest, Cancel_LeavesTheMachineRunning) {
    QTest::mouseClick(&Control<QPushButton>("CancelButton"), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    RunDown();
    QTest::qWait(100);
    EXPECT_TRUE(powerOff.calls.empty());
    EXPECT_EQ(Text("lblTimeout"), "15");
}

TEST_F(ExitWindowsTest, EveryWayToCloseTheDialog_Cancels) {
    dialog.close();
    EXPECT_FALSE(Control<QTimer>("Timer1").isActive());
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        ExitWindowsDialog other(app, powerOff);
        other.show();
        QTest::keyClick(&other, key);
        EXPECT_FALSE(other.isVisible()) << key;
        EXPECT_FALSE(other.findChild<QTimer*>("Timer1")->isActive()) << key;
    }
    EXPECT_TRUE(powerOff.calls.empty());
}

TEST_F(ExitWindowsTest, OKButton_IsReachedByTheKeyboard) {
    dialog.activateWindow();
    EXPECT_TRUE(Control<QPushButton>("CancelButton").hasFocus());
    QTest::keyClick(&dialog, Qt::Key_Tab);
    EXPECT_TRUE(Control<QPushButton>("OKButton").hasFocus());
    QTest::keyClick(&Control<QPushButton>("OKButton"), Qt::Key_Space);
    EXPECT_EQ(powerOff.calls, std::vector<int>{9});
}

TEST_F(ExitWindowsTest, Refusal_IsTold) {
    powerOff.refusal = "Not authorized.";
    QTest::mouseClick(&Control<QPushButton>("OKButton"), Qt::LeftButton);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_EQ(app.desktop.boxes[0].text, "The computer could not be powered off.\n\nNot authorized.");
    EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace zefta::test
