// From the opening of the main window to its end: the agent, the settings, the dialogs of single files.

#include "core/History.h"
#include "support/FakeAgent.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "ui/CommandStage.h"

namespace zefta::test {
namespace {

class WindowLifeTest : public CommandStage {
  protected:
    WindowLifeTest() { app.App::agent = &agent; }

    std::string Stored(const std::string& key, const std::string& section = "Settings") const {
        return app.userSettings.GetValue(section, key).value_or("none");
    }

    FakeAgent agent;
};

TEST_F(WindowLifeTest, TrayItem_IsTickedOnLoadWhenTheAgentRuns) {
    Open();
    EXPECT_FALSE(Item("mnuToolsSysTray").isChecked());
    window.reset();
    agent.runs = true;
    Open();
    EXPECT_TRUE(Item("mnuToolsSysTray").isChecked());
    EXPECT_TRUE(agent.closed.empty());
}

TEST_F(WindowLifeTest, TrayItem_ThatIsTicked_ClosesTheAgent) {
    agent.runs = true;
    Open();
    ClickItem("mnuToolsSysTray");
    EXPECT_FALSE(Item("mnuToolsSysTray").isChecked());
    EXPECT_EQ(agent.closed, Texts{"Kestrin Zeftaworks Agent"});
    EXPECT_TRUE(app.processes.started.empty());
    ClickItem("mnuToolsSysTray");
    EXPECT_TRUE(Item("mnuToolsSysTray").isChecked());
    EXPECT_EQ(agent.closed.size(), 1U);
    EXPECT_EQ(app.processes.started, Texts{"/opt/zefta/zeftaa.exe"});
}

TEST_F(WindowLifeTest, Exit_ClosesTheAgentToo) {
    agent.runs = true;
    Open();
    Key(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(agent.closed.size(), 1U);
}

TEST_F(WindowLifeTest, WindowThatIsClosed_LeavesTheAgentAlone) {
    agent.runs = true;
    Open();
    window->close();
    EXPECT_TRUE(agent.runs);
}

TEST_F(WindowLifeTest, ClosedOrExited_StoresFolderHistoryAndPlace) {
    MakeFolder("sub");
    for (const bool byExit : {false, true}) {
        app.userSettings.values.clear();
        app.state.CurrentFolder = Music();
        Open();
        Browser().EnterTypedFolder(PathOf("sub"));
        window->resize(700, 500);
        if (byExit) {
            ClickItem("mnuFileExit");
        } else {
            window->close();
        }
        EXPECT_EQ(Stored("CurrentFolder"), PathOf("sub")) << byExit;
        EXPECT_EQ(app.state.CurrentFolder, PathOf("sub"));
        EXPECT_EQ(LoadRecentFolders(app.userSettings), Texts{PathOf("sub")});
        EXPECT_EQ(Stored("MainWidth"), std::to_string(700 * 15));
        EXPECT_EQ(Stored("MainHeight"), std::to_string(500 * 15));
        EXPECT_EQ(Stored("MainWindowState"), "0");
        EXPECT_NE(Stored("MainLeft"), "none");
        EXPECT_NE(Stored("MainTop"), "none");
        EXPECT_NE(Stored("Bitrate"), "none") << "the choice of the encoder";
    }
}

TEST_F(WindowLifeTest, Window_OpensWhereTheLastOneClosed) {
    MakeFolder("sub");
    Open();
    Browser().EnterTypedFolder(PathOf("sub"));
    window->close();
    Open();
    EXPECT_EQ(Browser().Folder(), PathOf("sub"));
    EXPECT_EQ(Browser().History(), Texts{PathOf("sub")});
}

TEST_F(WindowLifeTest, PropertiesKeys_OpenTheDialogOfEachKind) {
    Make("a.mp3", Mp3().Bytes());
    Make("b.ogg", Ogg().Bytes());
    Make("c.mpc", Mpc8());
    Make("d.mp+", Mpc7(1000));
    Open();
    const std::pair<std::string, std::string> dialogs[] = {{"a.mp3", "frmFileInfo"},
                                                           {"b.ogg", "frmFileInfoOgg"},
                                                           {"c.mpc", "frmFileInfoMPEGplus"},
                                                           {"d.mp+", "frmFileInfoMPEGplus"}};
    for (const auto& [file, dialog] : dialogs) {
        ClickRow(file);
        for (const auto& [key, modifiers] :
             {std::pair{Qt::Key_3, Qt::AltModifier}, std::pair{Qt::Key_Return, Qt::ControlModifier}}) {
            cancelledDialog.clear();
            CancelNextDialog();
            Key(key, modifiers);
            EXPECT_EQ(cancelledDialog, dialog) << file << key;
        }
        cancelledDialog.clear();
        CancelNextDialog();
        ClickItem("mnuMP3Properties");
        EXPECT_EQ(cancelledDialog, dialog) << file;
    }
}

}  // namespace
}  // namespace zefta::test
