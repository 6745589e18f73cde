// The main window while a command works on many files.

#include "ui/CommandStage.h"

namespace zefta::test {
namespace {

class BusyWindow : public CommandStage {
  protected:
    BusyWindow() {
        for (const char* name : {"a.wav", "b.wav", "c.wav"}) Make(name);
        // The desktop of the tests shows batches nowhere by itself.
        app.desktop.whenBatch = [this](std::size_t item, std::size_t count) {
            window->ShowBatch(item, count);
        };
        app.desktop.asksToCancel = [this] { return window->IsCancelled(); };
        app.desktop.whileServing = [] { QApplication::processEvents(); };
    }

    void EncodeAll() {
        SelectRows({"a.wav", "b.wav", "c.wav"});
        AnswerYes();
        ClickItem("mnuWAVeEncode_128");
    }

    QWidget& Cancel() { return *window->findChild<QWidget*>("cmdCancelBatch"); }
};

TEST_F(BusyWindow, Title_TellsHowFarItIs) {
    Open();
    const std::string caption = FromQt(window->windowTitle());
    Texts titles;
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        titles.push_back(FromQt(window->windowTitle()));
        EXPECT_TRUE(Cancel().isVisible());
        EXPECT_FALSE(window->menuBar()->isEnabled());
        EXPECT_FALSE(Button("Refresh").isEnabled());
    };
    EncodeAll();
    EXPECT_EQ(titles, (Texts{"[1/3] " + caption, "[2/3] " + caption, "[3/3] " + caption}));
    EXPECT_EQ(FromQt(window->windowTitle()), caption);
    EXPECT_FALSE(Cancel().isVisible());
    EXPECT_TRUE(window->menuBar()->isEnabled());
    EXPECT_TRUE(Button("Refresh").isEnabled());
    EXPECT_TRUE(View().hasFocus());
}

TEST_F(BusyWindow, CancelButton_EndsBehindTheFileAtHand) {
    Open();
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        QTest::mouseClick(&Cancel(), Qt::LeftButton);
    };
    EncodeAll();
    EXPECT_EQ(app.processes.runs.size(), 1U);
    app.processes.tool = nullptr;
    EncodeAll();
    EXPECT_EQ(app.processes.runs.size(), 4U);
}

TEST_F(BusyWindow, Escape_Cancels) {
    Open();
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        Activate();
        QTest::keyClick(window.get(), Qt::Key_Escape);
    };
    EncodeAll();
    EXPECT_EQ(app.processes.runs.size(), 1U);
}

TEST_F(BusyWindow, OtherCommands_AreNotHeard) {
    Open();
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        const std::size_t questions = app.desktop.questions.size();
        Key(Qt::Key_Delete);
        Key(Qt::Key_F2);
        Key(Qt::Key_Backspace);
        Key(Qt::Key_X);
        EXPECT_EQ(app.desktop.questions.size(), questions);
    };
    EncodeAll();
    EXPECT_EQ(app.processes.runs.size(), 3U);
    EXPECT_TRUE(app.desktop.played.empty());
    EXPECT_EQ(Browser().Folder(), Music());
}

TEST_F(BusyWindow, Panel1_IsTheRunsWhateverElseGoesOn) {
    Make("d.mp3", Mp3().Bytes());
    Open();
    Browser().RefreshContents();
    Texts statuses;
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        ClickRow("d.mp3");
        QTest::qWait(30);
        statuses.push_back(Status());
    };
    EncodeAll();
    EXPECT_EQ(statuses, (Texts{"[1/3] a.wav", "[2/3] b.wav", "[3/3] c.wav"}));
    Browser().FinishScan();
    ClickRow("d.mp3");
    EXPECT_EQ(Status(), "d.mp3");
}

TEST_F(BusyWindow, ClosingTheWindow_EndsBehindTheFileAtHandAndCloses) {
    Open();
    bool wasVisible = false;
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        window->close();
        wasVisible = window->isVisible();
    };
    EncodeAll();
    EXPECT_TRUE(wasVisible);
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_FALSE(window->isVisible());
}

/// The desktop of the tests is not the one that asks the window about tools.
class BusyWithTool : public BusyWindow {
  protected:
    QPushButton& CancelButton() { return *window->findChild<QPushButton*>("cmdCancelBatch"); }
    void Click() { QTest::mouseClick(&CancelButton(), Qt::LeftButton); }
};

TEST_F(BusyWithTool, SecondCancel_AsksAndHasTheToolEnded) {
    Open();
    const QString caption = CancelButton().text();
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        EXPECT_FALSE(window->WantsToolEnded());
        EXPECT_EQ(CancelButton().text(), caption);
        Click();
        EXPECT_FALSE(CancelButton().isEnabled());
        EXPECT_FALSE(window->WantsToolEnded());
        EXPECT_TRUE(CancelButton().isEnabled());
        EXPECT_NE(CancelButton().text(), caption);
        app.desktop.answers = {false};
        Click();
        EXPECT_TRUE(app.desktop.questions.back().noIsDefault);
        EXPECT_FALSE(window->WantsToolEnded());
        app.desktop.answers = {true};
        Click();
        EXPECT_TRUE(window->WantsToolEnded());
        EXPECT_FALSE(CancelButton().isEnabled());
    };
    EncodeAll();
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_EQ(app.desktop.questions.size(), 3U);
    EXPECT_EQ(CancelButton().text(), caption);
}

TEST_F(BusyWithTool, NextRun_BeginsAnew) {
    Open();
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        Click();
        window->WantsToolEnded();
        app.desktop.answers = {true};
        Click();
    };
    EncodeAll();
    app.processes.tool = [&](const RecordingProcesses::Run&) { EXPECT_FALSE(window->WantsToolEnded()); };
    EncodeAll();
    EXPECT_EQ(app.processes.runs.size(), 4U);
}

TEST_F(BusyWithTool, EscapeAndClosing_AskTheSecondTimeToo) {
    Open();
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        Activate();
        QTest::keyClick(window.get(), Qt::Key_Escape);
        window->WantsToolEnded();
        QTest::keyClick(window.get(), Qt::Key_Escape);
        EXPECT_EQ(app.desktop.questions.size(), 2U);
        app.desktop.answers = {true};
        window->close();
        EXPECT_TRUE(window->WantsToolEnded());
        EXPECT_TRUE(window->isVisible());
    };
    EncodeAll();
    EXPECT_EQ(app.desktop.questions.size(), 3U);
    EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace zefta::test
