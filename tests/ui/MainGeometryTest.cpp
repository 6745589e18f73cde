#include "core/History.h"
#include "ui/ListStage.h"
#include "ui/WindowGeometry.h"
#include "ui/list/MainGeometry.h"

namespace zefta::test {
namespace {

class Geometry : public ListStage {
  protected:
    std::string Stored(const char* key) const {
        return app.userSettings.GetValue("Settings", key).value_or("none");
    }
    void Store(const char* key, const char* value) { app.userSettings.Apply({{"Settings", key, value}}); }

    QWidget window;
};

TEST_F(Geometry, EmptyStore_GivesTheStandardPlace) {
    EXPECT_EQ(LoadGeometry(app.userSettings, "Main"), (WindowGeometry{QRect(67, 67, 667, 533), false}));
}

TEST_F(Geometry, StoredValues_AreFifteenToAPixel) {
    Store("MainLeft", "-150");
    Store("MainTop", "300.5");
    Store("MainWidth", "9000");
    Store("MainHeight", "6000");
    Store("MainWindowState", "2");
    EXPECT_EQ(LoadGeometry(app.userSettings, "Main"), (WindowGeometry{QRect(-10, 20, 600, 400), true}));
}

TEST_F(Geometry, SizesBelowTheSmallest_OnlyCountTogether) {
    Store("MainWidth", "4999");
    Store("MainHeight", "4999");
    EXPECT_EQ(LoadGeometry(app.userSettings, "Main").place.size(), QSize(667, 533));
    Store("MainHeight", "5000");
    EXPECT_EQ(LoadGeometry(app.userSettings, "Main").place.size(), QSize(333, 333));
}

TEST_F(Geometry, NonsenseInTheStore_DoesNoHarm) {
    for (const char* value : {"abc", "", "-1e300", "inf"}) {
        for (const char* key : {"MainLeft", "MainTop", "MainWidth", "MainHeight", "MainWindowState"})
            Store(key, value);
        EXPECT_EQ(LoadGeometry(app.userSettings, "Main").place.size(), QSize(667, 533)) << value;
        EXPECT_FALSE(LoadGeometry(app.userSettings, "Main").isMaximised);
    }
    Store("MainWidth", "99999999999999999999");
    EXPECT_EQ(LoadGeometry(app.userSettings, "Main").place.width(), 66667);
}

TEST_F(Geometry, SavingAndLoading_AgreeInEveryPixel) {
    for (int size = 334; size < 700; ++size) {
        const WindowGeometry geometry = {QRect(size - 400, size, size, size + 1), size % 2 == 0};
        SaveGeometry(app.userSettings, "Main", geometry);
        EXPECT_EQ(LoadGeometry(app.userSettings, "Main"), geometry);
    }
    EXPECT_EQ(Stored("MainWidth"), std::to_string(699 * 15));
    EXPECT_EQ(Stored("MainWindowState"), "0");
}

TEST_F(Geometry, PlaceBesideTheScreens_IsMovedOntoOne) {
    const QList<QRect> screens = {{0, 0, 1000, 800}, {1000, 0, 1000, 800}};
    const QRect fine(1100, 50, 600, 400);
    EXPECT_EQ(OnScreens(fine, screens), fine);
    EXPECT_EQ(OnScreens({5000, 50, 600, 400}, {screens.first()}), QRect(400, 50, 600, 400));
    EXPECT_EQ(OnScreens({-700, -50, 600, 400}, screens), QRect(0, 0, 600, 400));
    EXPECT_EQ(OnScreens({10, 10, 3000, 3000}, {screens.first()}), QRect(0, 0, 1000, 800));
    EXPECT_EQ(OnScreens(fine, {}), fine);
}

TEST_F(Geometry, Load_BringsFoldersAndList) {
    SaveRecentFolders(app.userSettings, {app.folder / "one", "", app.folder / "two"});
    app.state.CurrentFolder = app.folder.Path();
    LoadMainWindow(app, window, browser);
    EXPECT_EQ(browser.History(), (Texts{app.folder / "one", app.folder / "two"}));
    EXPECT_EQ(browser.Folder(), app.folder.Path());
    EXPECT_EQ(PathText(), app.folder.Path());
    EXPECT_EQ(window.size(), QSize(667, 533));
}

TEST_F(Geometry, Load_TellsAFolderThatIsGone) {
    app.state.CurrentFolder = app.folder / "gone";
    LoadMainWindow(app, window, browser);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(browser.Folder(), "/");
}

TEST_F(Geometry, Unload_StoresWhatLoadLoads) {
    Open();
    Texts folders;
    for (int i = 0; i < 30; ++i) folders.push_back("/folder" + std::to_string(i));
    browser.SetHistory(folders);
    window.move(40, 30);
    window.resize(500, 450);
    UnloadMainWindow(app, window, browser);
    EXPECT_EQ(app.state.CurrentFolder, app.folder.Path());
    EXPECT_EQ(Stored("CurrentFolder"), app.folder.Path());
    EXPECT_EQ(app.userSettings.GetValue("History", "FoldersCount"), "25");
    EXPECT_EQ(app.userSettings.GetValue("History", "Folder0"), "/folder0");
    EXPECT_EQ(app.userSettings.GetValue("History", "Folder24"), "/folder24");
    EXPECT_EQ(app.userSettings.GetValue("History", "Folder25"), std::nullopt);
    EXPECT_EQ(Stored("MainLeft"), "600");
    EXPECT_EQ(Stored("MainTop"), "450");
    EXPECT_EQ(Stored("MainWidth"), "7500");
    EXPECT_EQ(Stored("MainHeight"), "6750");
    EXPECT_EQ(Stored("MainWindowState"), "0");
    EXPECT_EQ(Stored("MainColumns"), "none") << "the person has changed no width";
}

TEST_F(Geometry, MaximisedWindow_KeepsItsNormalPlace) {
    app.state.CurrentFolder = app.folder.Path();
    Store("MainLeft", "600");
    Store("MainTop", "450");
    Store("MainWidth", "7500");
    Store("MainHeight", "6750");
    Store("MainWindowState", "2");
    LoadMainWindow(app, window, browser);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_TRUE(window.isMaximized());
    UnloadMainWindow(app, window, browser);
    EXPECT_EQ(Stored("MainWindowState"), "2");
    EXPECT_EQ(Stored("MainLeft"), "600");
    EXPECT_EQ(Stored("MainTop"), "450");
    EXPECT_EQ(Stored("MainWidth"), "7500");
    EXPECT_EQ(Stored("MainHeight"), "6750");
}

TEST_F(Geometry, WidthsOfThePerson_ComeBack) {
    Open();
    browser.SetColumnWidths({200, 50, 51, 52, 53, 54, 55, 56});
    UnloadMainWindow(app, window, browser);
    EXPECT_EQ(Stored("MainColumns"), "200,50,51,52,53,54,55,56");
    FolderBrowser next(app, panels);
    app.state.CurrentFolder = app.folder.Path();
    LoadMainWindow(app, window, next);
    EXPECT_EQ(next.ColumnWidths(), browser.ColumnWidths());
    Store("MainColumns", "1,x");
    FolderBrowser damaged(app, panels);
    LoadMainWindow(app, window, damaged);
    EXPECT_TRUE(damaged.ColumnWidths().empty());
}

}  // namespace
}  // namespace zefta::test
