#include <QMainWindow>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include "ui/QtText.h"
#include "ui/desktop/OutputPane.h"
#include "ui/desktop/WindowDesktop.h"

namespace zefta::test {
namespace {

class DesktopOutputTest : public ::testing::Test {
  protected:
    DesktopOutputTest() : pane(*new OutputPane(Language::English, &window)) {
        window.addDockWidget(Qt::BottomDockWidgetArea, &pane);
        window.resize(600, 400);
        window.show();
        desktop.WriteInto(&pane);
    }

    std::string Text() {
        pane.Flush();
        return FromQt(Edit().toPlainText());
    }
    QPlainTextEdit& Edit() { return *pane.findChild<QPlainTextEdit*>("txtOutput"); }

    QMainWindow window;
    OutputPane& pane;
    WindowDesktop desktop{Language::English};
};

TEST_F(DesktopOutputTest, Pane_IsHiddenUntilSomethingIsWritten) {
    EXPECT_FALSE(pane.isVisible());
    desktop.ToolWrites("x");
    EXPECT_TRUE(pane.isVisible());
    EXPECT_EQ(FromQt(pane.windowTitle()), "Output of the tools");
    EXPECT_EQ(FromQt(Edit().accessibleName()), "Output of the tools");
    EXPECT_TRUE(Edit().isReadOnly());
}

TEST_F(DesktopOutputTest, Output_StandsBelowItsCommandLine) {
    desktop.ToolStarts("lame.exe -h \"a.wav\"");
    desktop.ToolWrites("one\ntwo");
    desktop.ToolStarts("oggenc.exe");
    desktop.ToolWrites("three\n");
    EXPECT_EQ(Text(), "> lame.exe -h \"a.wav\"\none\ntwo\n> oggenc.exe\nthree\n");
}

TEST_F(DesktopOutputTest, RewrittenLine_ShowsItsLastState) {
    desktop.ToolWrites("head\n10%\r");
    EXPECT_EQ(Text(), "head\n10%");
    desktop.ToolWrites("20%\r");
    EXPECT_EQ(Text(), "head\n20%");
    desktop.ToolWrites("30%\ntail");
    EXPECT_EQ(Text(), "head\n30%\ntail");
}

TEST_F(DesktopOutputTest, Note_IsALineOfItsOwn) {
    desktop.ToolWrites("no end");
    desktop.Note("a.m3u: nothing is copied.");
    EXPECT_EQ(Text(), "no end\na.m3u: nothing is copied.\n");
}

TEST_F(DesktopOutputTest, Lines_AreBoundedAndTheLastOnesStay) {
    for (int i = 0; i < 12000; ++i) {
        desktop.ToolWrites(std::to_string(i) + "\n");
        if (i % 700 == 0) pane.Flush();
    }
    pane.Flush();
    EXPECT_LE(Edit().blockCount(), OutputPane::MostLines);
    EXPECT_TRUE(Edit().toPlainText().endsWith("11998\n11999\n"));
}

TEST_F(DesktopOutputTest, Output_AppearsByItselfAMomentLater) {
    desktop.ToolWrites("x");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Edit().toPlainText() == "x"; }, 2000));
}

TEST_F(DesktopOutputTest, End_IsFollowedUnlessThePersonLooksBack) {
    for (int i = 0; i < 200; ++i) desktop.ToolWrites("line\n");
    pane.Flush();
    QScrollBar& bar = *Edit().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(3);
    desktop.ToolWrites("line\n");
    pane.Flush();
    EXPECT_EQ(bar.value(), 3);
}

TEST_F(DesktopOutputTest, ClosedPane_StaysClosedUntilTheNextTool) {
    desktop.ToolStarts("one");
    pane.close();
    desktop.ToolWrites("x");
    EXPECT_FALSE(pane.isVisible());
    desktop.ToolStarts("two");
    EXPECT_TRUE(pane.isVisible());
}

TEST_F(DesktopOutputTest, PaneThatIsGone_IsNotWrittenInto) {
    delete &pane;
    desktop.ToolStarts("one");
    desktop.ToolWrites("x");
    desktop.Note("y");
    OutputPane other(Language::English, &window);
    desktop.WriteInto(&other);
    desktop.Note("z");
    other.Flush();
    EXPECT_EQ(FromQt(other.findChild<QPlainTextEdit*>("txtOutput")->toPlainText()), "z\n");
}

TEST_F(DesktopOutputTest, PaneOfItsOwn_IsMadeForTheFirstThingToShow) {
    int made = 0;
    desktop.WriteIntoPaneOf([&] {
        ++made;
        return new OutputPane(Language::English, &window);
    });
    EXPECT_EQ(made, 0);
    desktop.ToolStarts("one");
    desktop.ToolWrites("x");
    EXPECT_EQ(made, 1);
    desktop.WriteInto(nullptr);
    desktop.Note("y");
    EXPECT_EQ(made, 1);
    EXPECT_EQ(Text(), "") << "the former pane is not written into";
}

TEST_F(DesktopOutputTest, Tabulator_LeadsOutOfThePane) {
    EXPECT_TRUE(Edit().tabChangesFocus());
}

}  // namespace
}  // namespace zefta::test
