// Dialogs whose OK stores something, for a person whose disk takes nothing.

#include <filesystem>

#include "core/Settings.h"
#include "platform/CommandText.h"
#include "support/FakeDesktopEntries.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "support/UnstorableApp.h"
#include "support/WavBuilder.h"
#include "toolkit/DialogAtHand.h"
#include "ui/CommandStage.h"
#include "ui/encode/EncodeDialog.h"
#include "ui/setup/SetupDialog.h"

namespace zefta::test {
namespace {

class UnstoredSettings : public ::testing::Test {
  protected:
    UnstoredSettings() {
        LoadSettings(app);
        app.defaultWaveFile = &wave;
    }

    void ExpectOneFailure() {
        ASSERT_EQ(app.desktop.boxes.size(), 1U);
        EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
        EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #61")) << app.desktop.boxes[0].text;
        EXPECT_NE(app.desktop.boxes[0].text.find("settings.ini"), std::string::npos);
    }

    UnstorableApp app;
    WaveFile wave{app};
};

TEST_F(UnstoredSettings, Options_AreToldAndStayToBeTriedAgain) {
    FakeDesktopEntries desktops;
    SetupDialog dialog(app, desktops, nullptr);
    ShowInFront(dialog);
    dialog.findChild<QCheckBox*>("chkDeleteAfterCompress")->setChecked(true);
    dialog.findChild<QCheckBox*>("chkEncode128")->setChecked(true);
    dialog.findChild<QCheckBox*>("chkDeleteAfterCompress")->setFocus();
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    ExpectOneFailure();
    ASSERT_TRUE(dialog.isVisible() && dialog.isEnabled());
    ASSERT_NE(dialog.focusWidget(), nullptr);
    EXPECT_EQ(FromQt(dialog.focusWidget()->objectName()), "chkDeleteAfterCompress");
    EXPECT_TRUE(desktops.calls.empty());
    EXPECT_FALSE(app.state.DeleteAfterCompress);
    app.store.room = 1000;
    ClickOn(dialog, "OKButton");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ((app.store.onDisk[{"Settings", "DeleteAfterCompress"}]), "True");
    EXPECT_EQ(desktops.menus.size(), 1U);
}

TEST_F(UnstoredSettings, Options_CanBeLeftAllTheSame) {
    FakeDesktopEntries desktops;
    SetupDialog dialog(app, desktops, nullptr);
    ShowInFront(dialog);
    ClickOn(dialog, "OKButton");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(app.state.TrimSilence);
}

TEST_F(UnstoredSettings, Encoding_IsToldOnceAheadOfTheWorkAndWorks) {
    app.state.CompressCD_Bitrate = 128;
    app.state.Saved.TrimSilence = false;
    app.folder.Write("a.wav", Wav().Tone(17640).Bytes());
    std::size_t boxesAtWork = 0;
    app.processes.tool = [&](const RecordingProcesses::Run& run) {
        boxesAtWork = app.desktop.boxes.size();
        WriteWholeFile(SplitCommandLine(run.commandLine).back().text, Mp3().Size(4000).Bytes());
    };
    const auto nobody = [](const std::string&) {};
    EncodeDialog dialog(app, app.folder.Path(), {"a.wav"}, {nobody, nobody}, nullptr);
    ShowInFront(dialog);
    dialog.findChild<QCheckBox*>("chkShutdown")->setChecked(true);
    app.desktop.answers = {true};
    ClickOn(dialog, "OKButton");
    ExpectOneFailure();
    EXPECT_EQ(boxesAtWork, 1U);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(app.folder.Exists("a.MP3"));
    EXPECT_TRUE(dialog.WantsPowerOff()) << "nothing is in its way";
}

TEST_F(UnstoredSettings, ExtendedRename_NamesTheFilesAndIsTold) {
    std::filesystem::create_directories(app.folder / "music");
    app.state.CurrentFolder = app.folder / "music";
    const std::string end = Id3v1{.title = "One", .artist = "A"}.Bytes();
    app.folder.Write("music/x.mp3", Mp3().Behind(end).Bytes());
    app.folder.Write("music/list.m3u", "x.mp3\n");
    MainWindow window(app);
    window.show();
    QTimer::singleShot(0, &window, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QAbstractButton*>("optFormat6")->click();
        dialog->findChild<QComboBox*>("cmbRenameTemplates")->setEditText("%T by %A");
        dialog->findChild<QAbstractButton*>("OKButton")->click();
    });
    window.Commands().Run(Command::ExtendedRename);
    ExpectOneFailure();
    EXPECT_TRUE(app.folder.Exists("music/One by A.MP3"));
    EXPECT_EQ(app.folder.Read("music/list.m3u"), "One by A.MP3\n");
    window.Browser().FinishScan();
    window.Browser().SelectOnly("One by A.MP3");
    EXPECT_EQ(window.Browser().SelectedRows().size(), 1U) << "the list was read again";
}

TEST_F(UnstoredSettings, ClosingTheWindow_IsNotHeldUp) {
    std::filesystem::create_directories(app.folder / "music");
    app.state.CurrentFolder = app.folder / "music";
    MainWindow window(app);
    window.show();
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(app.desktop.boxes.empty());
}

}  // namespace
}  // namespace zefta::test
