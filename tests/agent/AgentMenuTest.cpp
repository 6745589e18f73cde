#include <QAction>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>
#include <filesystem>

#include <gtest/gtest.h>

#include "agent/AgentMenu.h"
#include "core/History.h"
#include "support/TestApp.h"
#include "ui/QtText.h"

namespace zefta::test {
namespace {

class AgentMenuTest : public ::testing::Test {
  protected:
    AgentMenuTest() : menu(app, [this] { ++reads; }) {}

    /// What the person sees who opens the menu.
    std::vector<std::string> Open() {
        menu.popup(QPoint(0, 0));
        std::vector<std::string> texts = Texts(menu);
        menu.close();
        return texts;
    }

    static std::vector<std::string> Texts(const QMenu& shown) {
        std::vector<std::string> texts;
        for (const QAction* action : shown.actions())
            texts.push_back(action->isSeparator() ? "-" : FromQt(action->text()));
        return texts;
    }

    QMenu& Submenu(const char* name) { return *menu.findChild<QMenu*>(name); }
    void Choose(const char* name) { menu.findChild<QAction*>(name)->trigger(); }

    int reads = 0;
    TestApp app;
    AgentMenu menu;
};

using Lines = std::vector<std::string>;

TEST_F(AgentMenuTest, Entries_AreThoseOfTheLanguageWhereTheStoreHasNone) {
    EXPECT_EQ(Open(), (Lines{"Open", "Recent Folders", "-", "Compress audio compact disc", "Options",
                             "Language", "-", "Exit"}));
    EXPECT_EQ(FromQt(menu.defaultAction()->objectName()), "mnuOpen");
}

TEST_F(AgentMenuTest, Entries_AreTheTextsOfTheStoreAtTheMomentItOpens) {
    const std::pair<const char*, const char*> texts[] = {
        {"MSG_Open", "Avaa"},         {"MSG_RecentFolders", "Kansiot"}, {"MSG_Compress", "Pakkaa"},
        {"MSG_Settings", "Valinnat"}, {"MSG_Language", "Kieli"},        {"MSG_Exit", "Lopeta"}};
    for (const auto& [key, text] : texts) app.userSettings.values[{"Agent", key}] = text;
    const int readsBefore = reads;
    EXPECT_EQ(Open(), (Lines{"Avaa", "Kansiot", "-", "Pakkaa", "Valinnat", "Kieli", "-", "Lopeta"}));
    EXPECT_EQ(reads, readsBefore + 1);
}

TEST_F(AgentMenuTest, Commands_StartTheProgramOfTheSameFolder) {
    Choose("mnuOpen");
    Choose("mnuCompress");
    Choose("mnuSettings");
    menu.OpenProgram();
    EXPECT_EQ(app.processes.started,
              (Lines{"\"/opt/zefta/zefta\"", "\"/opt/zefta/zefta\" \"/compress_audio_cd\"",
                     "\"/opt/zefta/zefta\" \"/setup\"", "\"/opt/zefta/zefta\""}));
}

TEST_F(AgentMenuTest, ProgramThatIsMissing_IsTold) {
    app.processes.canStartPrograms = false;
    Choose("mnuOpen");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #53"));
}

TEST_F(AgentMenuTest, RecentFolders_AreShownAsTheyAreAndOpened) {
    EXPECT_FALSE(Submenu("mnuRecentFolders").menuAction()->isEnabled());
    const std::string odd = "/home/music/R&B \"x\" \xE9";
    SaveRecentFolders(app.userSettings, {"/home/music", "", odd});
    Open();
    QMenu& folders = Submenu("mnuRecentFolders");
    EXPECT_TRUE(folders.menuAction()->isEnabled());
    EXPECT_EQ(Texts(folders), (Lines{"/home/music", "/home/music/R&&B \"x\" é"}));
    for (QAction* action : folders.actions()) action->trigger();
    EXPECT_EQ(app.processes.started, (Lines{"\"/opt/zefta/zefta\" \"/home/music\"",
                                            "\"/opt/zefta/zefta\" \"/home/music/R&B \\\"x\\\" \xE9\""}));
}

TEST_F(AgentMenuTest, RecentFolderThatIsCalledAsAnOption_IsPassedAsAPath) {
    SaveRecentFolders(app.userSettings, {"/d", "/RENAME", "/f1", "/tmp", "/"});
    Open();
    for (QAction* action : Submenu("mnuRecentFolders").actions()) action->trigger();
    Lines arguments;
    for (const std::string& command : app.processes.started) arguments.push_back(command.substr(19));
    EXPECT_EQ(arguments, (Lines{"\"/d/\"", "\"/RENAME/\"", "\"/f1/\"", "\"/tmp\"", "\"/\""}));
}

TEST_F(AgentMenuTest, DoubleClickOfTheIcon_StartsOneProgram) {
    menu.OpenProgram();
    menu.OpenProgram();
    EXPECT_EQ(app.processes.started.size(), 1U);
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    menu.OpenProgram();
    EXPECT_EQ(app.processes.started.size(), 2U);
}

TEST_F(AgentMenuTest, LongFolder_LosesItsMiddleOnScreenOnly) {
    const std::string longFolder = "/start/" + std::string(500, 'x') + "/end";
    SaveRecentFolders(app.userSettings, {longFolder});
    Open();
    QAction* entry = Submenu("mnuRecentFolders").actions().front();
    const std::string shown = FromQt(entry->text());
    EXPECT_LT(shown.size(), 200U);
    EXPECT_TRUE(shown.starts_with("/start/") && shown.ends_with("/end")) << shown;
    entry->trigger();
    EXPECT_NE(app.processes.started.front().find(longFolder), std::string::npos);
}

TEST_F(AgentMenuTest, Language_IsStoredAndItsNoteTold) {
    app.processes.ownPath = app.folder / "zeftaa";
    std::filesystem::create_directory(app.folder / "Languages");
    const std::string path =
        app.folder.Write("Languages/suomi.lng", "33601=Avaa\n33607=Valmis.\n33608=Oletus\n");
    Open();
    EXPECT_EQ(Texts(Submenu("mnuLanguage")), (Lines{"Default (English)", "suomi"}));
    EXPECT_TRUE(Submenu("mnuLanguage").actions()[0]->isChecked());
    Submenu("mnuLanguage").actions()[1]->trigger();
    EXPECT_EQ((app.userSettings.values[{"Settings", "ExternalLanguageFile"}]), path);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Plain);
    EXPECT_EQ(app.desktop.boxes[0].text, "Valmis.");
    EXPECT_EQ(Open().front(), "Avaa");
    EXPECT_EQ(Texts(Submenu("mnuLanguage")), (Lines{"Oletus", "suomi"}));
    EXPECT_TRUE(Submenu("mnuLanguage").actions()[1]->isChecked());
}

TEST_F(AgentMenuTest, Exit_IsTold) {
    QSignalSpy exits(&menu, &AgentMenu::ExitChosen);
    Choose("mnuExit");
    EXPECT_EQ(exits.count(), 1);
}

TEST_F(AgentMenuTest, OpenedOften_KeepsNoMenusOfEarlierTimes) {
    for (int i = 0; i < 5; ++i) Open();
    EXPECT_EQ(menu.findChildren<QMenu*>().size(), 2);
}

}  // namespace
}  // namespace zefta::test
