// frmCDBase: what was typed is not lost, and how the window closes.

#include <QWheelEvent>

#include "ui/CDBaseStage.h"

namespace zefta::test {
namespace {

class CDBaseLeavingTest : public CDWorkStage {
  protected:
    /// The second name is another one.
    void EditName() {
        app.desktop.inputs = {"Dos / Live"};
        Find<QListWidget>("lstTracks")->setFocus();
        Find<QListWidget>("lstTracks")->setCurrentRow(1);
        Key(Qt::Key_F2);
        app.desktop.questions.clear();
    }
};

TEST_F(CDBaseLeavingTest, EveryWayOut_AsksBeforeItLosesWhatWasTyped) {
    const std::function<void()> typing[] = {
        [this] { EditName(); },
        [this] { Type("txtArtist", "Mine"); },
        [this] { Type("txtAlbum", "Mine"); },
        [this] { Type("txtYear", "1999"); },
        [this] { QTest::keyClicks(Find<QComboBox>("cmbGenre"), "Rock"); },
    };
    const std::function<void()> ways[] = {
        [this] { Key(Qt::Key_Escape); },
        [this] { Click("cmdCancel"); },
        [this] { dialog->close(); },
    };
    for (const auto& type : typing) {
        OpenWithTracks();
        type();
        for (const auto& leave : ways) {
            app.desktop.questions.clear();
            leave();
            ASSERT_EQ(app.desktop.questions.size(), 1U);
            EXPECT_TRUE(app.desktop.questions[0].noIsDefault);
            EXPECT_TRUE(dialog->isVisible());
        }
        app.desktop.answers = {true};
        ways[0]();
        EXPECT_FALSE(dialog->isVisible());
    }
}

TEST_F(CDBaseLeavingTest, AnotherAlbum_AsksBeforeItTakesThePlaceOfATypedOne) {
    app.folder.Write("a.zfc", "[Options]\nArtist=X\nTracks=1\n");
    OpenWithTracks();
    EditName();
    const Texts before = Lines();
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    app.desktop.inputs = {app.folder / "a.zfc", "3"};
    Click("cmdLoad");
    EXPECT_EQ(app.desktop.questions.size(), 3U);
    Click("cmdSimulateCD");
    EXPECT_EQ(app.desktop.questions.size(), 5U);
    EXPECT_EQ(Lines(), before);
    EXPECT_EQ(disc.sources.size(), 1U);
    app.desktop.answers = {true};
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(Lines(), (Texts{"*01. One / Live (3:45)", "*02. Two (1:00)"}));
}

TEST_F(CDBaseLeavingTest, Simulating_KeepsTheTypedAlbumAndAsksNothing) {
    Open();
    Type("txtArtist", "Mine");
    app.desktop.inputs = {"3"};
    Click("cmdSimulateCD");
    EXPECT_EQ(app.desktop.questions.size(), 1U) << "that for the number";
    EXPECT_EQ(TextOf("txtArtist"), "Mine");
    EXPECT_EQ(Lines().size(), 3U);
}

TEST_F(CDBaseLeavingTest, WhatIsSavedCompressedOrOnlyRead_IsLeftAtOnce) {
    const std::function<void()> ways[] = {
        [] {},
        [this] {
            EditName();
            app.desktop.inputs = {app.folder / "x.zfc"};
            Click("cmdSave");
        },
        [this] {
            EditName();
            Click("cmdOK");
        },
    };
    for (const auto& keep : ways) {
        OpenWithTracks();
        keep();
        app.desktop.questions.clear();
        Key(Qt::Key_Escape);
        EXPECT_TRUE(app.desktop.questions.empty());
        EXPECT_FALSE(dialog->isVisible());
        std::filesystem::remove(app.folder / "x.zfc");
    }
}

TEST_F(CDBaseLeavingTest, WhatCouldNotBeSavedOrCompressed_IsStillAskedAbout) {
    OpenWithTracks();
    EditName();
    app.desktop.inputs = {app.folder / "no/such/x.zfc"};
    Click("cmdSave");
    std::filesystem::remove(app.folder / "in/Track01.WAV");
    Click("cmdOK");
    EXPECT_EQ(Status(), "Tracks compressed: 1 of 2.");
    app.desktop.questions.clear();
    Key(Qt::Key_Escape);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
}

TEST_F(CDBaseLeavingTest, ClosingDuringTheWork_EndsItAndThenCloses) {
    const std::function<void()> works[] = {
        [this] { Click("cmdImportData"); },
        [this] { Click("cmdCDDAE"); },
        [this] { Click("cmdOK"); },
    };
    for (const auto& work : works) {
        OpenWithTracks();
        app.desktop.answers = {true, true};
        bool wasOpen = false;
        const auto close = [&] {
            dialog->close();
            wasOpen = dialog->isVisible();
            app.desktop.whileServing = {};
            whileTool = {};
        };
        app.desktop.whileServing = close;
        work();
        EXPECT_TRUE(wasOpen);
        EXPECT_FALSE(dialog->isVisible());
        app.desktop.whileServing = {};
    }
    EXPECT_EQ(powerOffs, 0);
}

TEST_F(CDBaseLeavingTest, ClosingDuringTheWork_AsksAboutWhatWasTyped) {
    OpenWithTracks();
    EditName();
    whileTool = [this] { dialog->close(); };
    Click("cmdOK");
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_TRUE(dialog->isVisible());
    // What was asked for once is not done by the next run.
    whileTool = {};
    Click("cmdOK");
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(CDBaseLeavingTest, Enter_PressesTheButtonAtHand) {
    Open();
    Find<QPushButton>("cmdImportData")->setFocus();
    Key(Qt::Key_Return);
    EXPECT_EQ(disc.sources.size(), 1U);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(disc.sources.size(), 2U);
    Find<QPushButton>("cmdCancel")->setFocus();
    Key(Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(CDBaseLeavingTest, Wheel_PassesTheBoxesThatHaveNotTheFocus) {
    Open();
    Find<QPushButton>("cmdImportData")->setFocus();
    for (const char* name : {"cmbBitRate", "cmbGenre"}) {
        auto* box = Find<QComboBox>(name);
        const int before = box->currentIndex();
        QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &wheel);
        EXPECT_EQ(box->currentIndex(), before) << name;
    }
}

}  // namespace
}  // namespace zefta::test
