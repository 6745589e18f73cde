#include <QAction>
#include <filesystem>

#include <gtest/gtest.h>

#include "agent/AgentMenu.h"
#include "agent/LanguageChoices.h"
#include "core/Settings.h"
#include "support/ExpectRuntimeError.h"
#include "support/UnstorableApp.h"
#include "ui/QtText.h"

namespace zefta::test {
namespace {

class UnstoredLanguageTest : public ::testing::Test {
  protected:
    UnstoredLanguageTest() {
        app.processes.ownPath = app.folder / "zeftaa";
        std::filesystem::create_directory(app.folder / "Languages");
        path = app.folder.Write("Languages/suomi.lng", "1000=Virhe %1: %2\n33601=Avaa\n33607=Valmis.\n");
        LoadSettings(app);
    }

    UnstorableApp app;
    std::string path;
};

TEST_F(UnstoredLanguageTest, Choice_ThatIsNotStoredFailsAndLeavesTheLanguage) {
    EXPECT_EQ(RuntimeErrorOf([&] { ChooseLanguage(app, path); }), 61);
    EXPECT_FALSE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.state.ExternalLanguageFile, "");
    EXPECT_EQ(app.messages.GetMessage(33601), "Open");
    app.store.room = 1;
    ChooseLanguage(app, path);
    EXPECT_EQ(RuntimeErrorOf([&] { ChooseLanguage(app, ""); }), 61);
    EXPECT_TRUE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.state.ExternalLanguageFile, path);
    EXPECT_EQ(app.messages.GetMessage(33601), "Avaa");
}

TEST_F(UnstoredLanguageTest, Menu_TellsTheFailureAndNotThatItIsDone) {
    AgentMenu menu(app, [this] { app.store.ReadAgain(); });
    const auto choose = [&] {
        menu.popup(QPoint(0, 0));
        menu.findChild<QMenu*>("mnuLanguage")->actions().at(1)->trigger();
        menu.close();
    };
    choose();
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #61")) << app.desktop.boxes[0].text;
    menu.popup(QPoint(0, 0));
    EXPECT_EQ(FromQt(menu.actions().front()->text()), "Open");
    EXPECT_TRUE(menu.findChild<QMenu*>("mnuLanguage")->actions().at(0)->isChecked());
    menu.close();
    app.store.room = 1;
    choose();
    ASSERT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_EQ(app.desktop.boxes[1].kind, BoxKind::Plain);
    EXPECT_EQ(app.desktop.boxes[1].text, "Valmis.");
}

}  // namespace
}  // namespace zefta::test
