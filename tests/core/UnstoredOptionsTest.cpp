#include <gtest/gtest.h>

#include "core/Settings.h"
#include "core/SetupOptions.h"
#include "core/ShellVerbs.h"
#include "support/ExpectRuntimeError.h"
#include "support/FakeDesktopEntries.h"
#include "support/UnstorableApp.h"

namespace zefta::test {
namespace {

class UnstoredOptionsTest : public ::testing::Test {
  protected:
    UnstoredOptionsTest() { LoadSettings(app); }

    /// Everything that SaveSetupOptions touches.
    SetupOptions Changed() {
        SetupOptions options = LoadSetupOptions(app, desktops);
        options.Saved.TrimSilence = false;
        options.AutoLoad = true;
        options.Verbs.assign(options.Verbs.size(), true);
        options.PriorityClass = "High";
        options.CustomRenameTemplate = "%T";
        options.EnableExternalLanguage = true;
        options.ExternalLanguageFile = app.folder.Write("x.lng", "33602 = x\r\n");
        return options;
    }

    UnstorableApp app;
    FakeDesktopEntries desktops;
};

TEST_F(UnstoredOptionsTest, FullDisk_LeavesEverythingAsItWas) {
    const SetupOptions options = Changed();
    EXPECT_EQ(RuntimeErrorOf([&] { SaveSetupOptions(app, desktops, options); }), 61);
    EXPECT_TRUE(desktops.calls.empty());
    EXPECT_TRUE(app.state.TrimSilence);
    EXPECT_TRUE(app.state.Saved.TrimSilence);
    EXPECT_EQ(app.state.CustomRenameTemplate, "%N. %A - %T [%M] %W");
    EXPECT_FALSE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.messages.GetMessage(33602), "Compress audio compact disc");
    EXPECT_TRUE(app.store.onDisk.empty());
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(UnstoredOptionsTest, DiskThatFillsUpMeanwhile_IsToldOnce) {
    SetupOptions options = Changed();
    options.EnableExternalLanguage = false;
    app.store.room = 2;
    SaveSetupOptions(app, desktops, options);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #61")) << app.desktop.boxes[0].text;
}

TEST_F(UnstoredOptionsTest, DiskWithRoom_TakesAll) {
    SetupOptions options = Changed();
    options.EnableExternalLanguage = false;
    app.store.room = 1000;
    SaveSetupOptions(app, desktops, options);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ((app.store.onDisk[{"Settings", "TrimSilence"}]), "False");
    EXPECT_EQ(desktops.menus.size(), 36U);
}

}  // namespace
}  // namespace zefta::test
