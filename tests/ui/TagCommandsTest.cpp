// The commands that open a grid of tags, from the main window to the rows of its list.

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

#include "platform/CommandText.h"
#include "support/TagBuilders.h"
#include "support/WavBuilder.h"
#include "toolkit/DialogAtHand.h"
#include "ui/CommandStage.h"
#include "ui/TypeKeys.h"
#include "ui/grid/GridView.h"

namespace zefta::test {
namespace {

std::string SongOf(const std::string& artist) {
    Id3v1 tag;
    tag.artist = artist;
    tag.title = "Title";
    return Mp3().Behind(tag.Bytes()).Bytes();
}

class TagCommandsTest : public CommandStage {
  protected:
    /// Runs the command, and the work on its dialog once that is open; the name of the dialog.
    std::string RunWith(const std::function<void(QWidget& dialog)>& work,
                        const std::function<void()>& command) {
        std::string name = "no dialog";
        QTimer::singleShot(0, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            name = FromQt(dialog->objectName());
            // Nobody else gives it the keyboard where there is no window manager.
            dialog->activateWindow();
            EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->isActiveWindow(); }));
            work(*dialog);
            if (dialog->isVisible()) dialog->close();
        });
        command();
        return name;
    }

    /// "New" in its first column of text, and OK.
    static void ChangeTheOnlyRow(QWidget& dialog) {
        auto& grid = FindControl<GridView>(dialog, "flxFiles");
        EXPECT_EQ(grid.model()->rowCount(), 1);
        grid.SelectCell(0, 2);
        grid.setFocus();
        TypeKeys("New");
        ClickOn(dialog, "OKButton");
    }
    static void Type(QWidget& dialog, const char* line, const char* text) {
        QTest::keyClicks(dialog.findChild<QLineEdit*>(line), text);
    }

    Texts RowOf(const std::string& name) {
        Texts cells;
        const int row = View().indexAt(PlaceOf(name)).row();
        for (int column = 0; column < View().model()->columnCount(); ++column)
            cells.push_back(FromQt(View().model()->index(row, column).data().toString()));
        return cells;
    }
    bool RowHas(const std::string& name, const std::string& text) {
        const Texts cells = RowOf(name);
        return std::find(cells.begin(), cells.end(), text) != cells.end();
    }
};

TEST_F(TagCommandsTest, ChangeTags_RefreshesAndDeselectsItsRows) {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) Make(name, SongOf("Old"));
    Open();
    SelectRows({"a.mp3", "b.mp3"});
    EXPECT_EQ(RunWith(
                  [](QWidget& dialog) {
                      Type(dialog, "txtArtist", "New");
                      ClickOn(dialog, "OKButton");
                  },
                  [this] { ClickItem("mnuToolsChangeTags"); }),
              "frmChangeTags");
    EXPECT_TRUE(RowHas("a.mp3", "New"));
    EXPECT_TRUE(RowHas("b.mp3", "New"));
    EXPECT_TRUE(RowHas("c.mp3", "Old"));
    EXPECT_EQ(SelectedNames(), Texts{});
}

TEST_F(TagCommandsTest, ChangeTags_WithoutSelection_MeansAllOfTheList) {
    Make("a.mp3", SongOf("Old"));
    Make("b.mp3", SongOf("Old"));
    Make("c.wav");
    Open();
    Browser().ClearSelection();
    AnswerYes();
    RunWith(
        [](QWidget& dialog) {
            Type(dialog, "txtArtist", "New");
            ClickOn(dialog, "OKButton");
        },
        [this] { Key(Qt::Key_U, Qt::ControlModifier); });
    EXPECT_EQ(Question(), Message(34106) + ": " + Message(34105));
    EXPECT_TRUE(RowHas("a.mp3", "New"));
    EXPECT_TRUE(RowHas("b.mp3", "New"));
}

TEST_F(TagCommandsTest, ChangeTagsEx_ShowsTheSelectedFilesAndRefreshesTheirRows) {
    Make("a.mp3", SongOf("Old"));
    Make("b.mp3", SongOf("Other"));
    Open();
    SelectRows({"b.mp3"});
    EXPECT_EQ(RunWith(ChangeTheOnlyRow, [this] { Key(Qt::Key_I, Qt::ControlModifier); }), "frmChangeTagsEx");
    EXPECT_TRUE(RowHas("b.mp3", "New"));
    EXPECT_TRUE(RowHas("a.mp3", "Old"));
}

TEST_F(TagCommandsTest, ChangeTagsEx_ReadingOfTheFilesCanBeEnded) {
    Make("a.mp3", SongOf("Old"));
    Open();
    SelectRows({"a.mp3"});
    app.desktop.cancelsFromItem = 1;
    EXPECT_EQ(RunWith([](QWidget&) {}, [this] { Key(Qt::Key_I, Qt::ControlModifier); }), "no dialog");
    QApplication::processEvents();
    EXPECT_FALSE(window->Commands().IsRunning());
}

TEST_F(TagCommandsTest, AdvancedEncoding_EncodesTheSelectedWavesAndShowsThem) {
    Make("a.wav", Wav().Tone(17640).Bytes());
    Make("b.wav", Wav().Tone(17640).Bytes());
    Make("c.mp3", SongOf("Old"));
    app.state.CompressCD_Bitrate = 128;
    app.processes.tool = [](const RecordingProcesses::Run& run) {
        WriteWholeFile(SplitCommandLine(run.commandLine).back().text, Mp3().Bytes());
    };
    Open();
    SelectRows({"c.mp3", "a.wav"});
    AnswerYes();
    std::string statusOfRun;
    app.processes.watch = nullptr;
    app.desktop.whileServing = [&] { statusOfRun = Status(); };
    EXPECT_EQ(RunWith(ChangeTheOnlyRow, [this] { ClickButton("Encode"); }), "frmEncode");
    EXPECT_EQ(statusOfRun, "[1/1] a.wav");
    app.desktop.whileServing = {};
    Browser().FinishScan();
    EXPECT_TRUE(Exists("a.MP3"));
    EXPECT_TRUE(RowHas("a.MP3", "New"));
    EXPECT_FALSE(Exists("b.mp3"));
    EXPECT_EQ(app.processes.runs.size(), 1U);
}

TEST_F(TagCommandsTest, AdvancedEncoding_EncoderThatHangs_IsEndedFromTheDialog) {
    Make("a.wav", Wav().Tone(17640).Bytes());
    Make("b.wav", Wav().Tone(17640).Bytes());
    Open();
    SelectRows({"a.wav", "b.wav"});
    AnswerYes();
    QWidget* shown = nullptr;
    app.processes.tool = [&](const RecordingProcesses::Run&) {
        EXPECT_FALSE(window->IsCancelled());
        ClickOn(*shown, "cmdCancelBatch");
        EXPECT_TRUE(window->IsCancelled());
        EXPECT_FALSE(window->WantsToolEnded());
        AnswerYes();
        ClickOn(*shown, "cmdCancelBatch");
        EXPECT_TRUE(window->WantsToolEnded());
    };
    RunWith(
        [&](QWidget& dialog) {
            shown = &dialog;
            ClickOn(dialog, "OKButton");
        },
        [this] { Key(Qt::Key_E, Qt::ControlModifier); });
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_FALSE(window->IsCancelled());
    EXPECT_FALSE(window->WantsToolEnded());
}

TEST_F(TagCommandsTest, AdvancedEncoding_CancelButton_LeavesListAndSelection) {
    Make("a.wav", Wav().Tone(17640).Bytes());
    Open();
    SelectRows({"a.wav"});
    QSignalSpy made(&Browser(), &FolderBrowser::ListChanged);
    RunWith([](QWidget& dialog) { ClickOn(dialog, "CancelButton"); },
            [this] { Key(Qt::Key_E, Qt::ControlModifier); });
    EXPECT_EQ(made.count(), 0);
    EXPECT_EQ(SelectedNames(), Texts{"a.wav"});
}

TEST_F(TagCommandsTest, AdvancedEncoding_Shutdown_CountsDownBehindTheLastFile) {
    Make("a.wav", Wav().Tone(17640).Bytes());
    Open();
    SelectRows({"a.wav"});
    AnswerYes();
    std::string countdown;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog->objectName() != "frmExitWindows") return;
        countdown = FromQt(dialog->objectName());
        ClickOn(*dialog, "CancelButton");
    });
    watch.start(20);
    RunWith(
        [](QWidget& dialog) {
            dialog.findChild<QCheckBox*>("chkShutdown")->setChecked(true);
            ClickOn(dialog, "OKButton");
        },
        [this] { Key(Qt::Key_E, Qt::ControlModifier); });
    EXPECT_EQ(countdown, "frmExitWindows");
}

}  // namespace
}  // namespace zefta::test
