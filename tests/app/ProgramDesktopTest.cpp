#include <gtest/gtest.h>

#include "app/ProgramDesktop.h"
#include "support/FakeWindows.h"

namespace zefta::test {
namespace {

class ProgramDesktopTest : public ::testing::Test {
  protected:
    /// Windows that the loader hands over, or none.
    ProgramDesktop Make(bool prefersConsole, bool hasWindows = true) {
        return ProgramDesktop(console, prefersConsole, [this, hasWindows] {
            ++loads;
            if (!hasWindows) return LoadedWindows{nullptr, true};
            auto made = std::make_unique<FakeWindows>();
            windows = made.get();
            return LoadedWindows{std::move(made)};
        });
    }

    ScriptedDesktop console;
    FakeWindows* windows = nullptr;
    int loads = 0;
};

TEST_F(ProgramDesktopTest, FirstThingToShow_LoadsTheWindowsOnce) {
    ProgramDesktop desktop = Make(false);
    desktop.Note("x");
    desktop.ServeEvents();
    desktop.ShowBatch(1, 2);
    EXPECT_FALSE(desktop.IsCancelled());
    EXPECT_FALSE(desktop.HasComplained());
    EXPECT_EQ(loads, 0);
    EXPECT_EQ(console.notes.size(), 1U);
    desktop.ShowBox(BoxKind::Warning, "text", "caption");
    desktop.ShowBox(BoxKind::Plain, "text", "caption");
    EXPECT_EQ(loads, 1);
    ASSERT_NE(windows, nullptr);
    EXPECT_EQ(windows->desktop.boxes.size(), 2U);
    EXPECT_TRUE(console.boxes.empty());
    EXPECT_TRUE(desktop.HasComplained());
    desktop.Note("y");
    EXPECT_EQ(windows->desktop.notes, std::vector<std::string>{"y"});
}

TEST_F(ProgramDesktopTest, EachThingToShow_IsAWindow) {
    const std::function<void(Desktop&)> rows[] = {
        [](Desktop& desktop) { desktop.ShowBox(BoxKind::Plain, "a", "b"); },
        [](Desktop& desktop) { desktop.AskQuestion("a", "b", true); },
        [](Desktop& desktop) { desktop.AskInput("a", "b", "c"); },
        [](Desktop& desktop) { desktop.ChooseFolder("a", "b", "c"); },
        [](Desktop& desktop) { desktop.ChooseFile(FileChoice()); },
        [](Desktop& desktop) { desktop.OpenProgress(); },
    };
    for (const auto& show : rows) {
        loads = 0;
        ProgramDesktop desktop = Make(false);
        show(desktop);
        EXPECT_EQ(loads, 1);
    }
    EXPECT_TRUE(console.boxes.empty());
    EXPECT_TRUE(console.questions.empty());
    EXPECT_EQ(console.progressViewsOpened, 0);
}

TEST_F(ProgramDesktopTest, Terminal_IsServedByTheConsoleUntilAWindowIsOpened) {
    ProgramDesktop desktop = Make(true);
    desktop.ShowBox(BoxKind::Warning, "text", "caption");
    desktop.AskQuestion("a", "b", true);
    desktop.OpenProgress();
    EXPECT_EQ(loads, 0);
    EXPECT_EQ(console.boxes.size(), 1U);
    EXPECT_EQ(desktop.OpenWindows().windows, windows);
    EXPECT_NE(windows, nullptr);
    desktop.ShowBox(BoxKind::Plain, "text", "caption");
    EXPECT_EQ(windows->desktop.boxes.size(), 1U);
    EXPECT_TRUE(desktop.HasComplained());
}

TEST_F(ProgramDesktopTest, DisplayThatFails_LeavesAllToTheConsoleAndIsTriedOnce) {
    ProgramDesktop desktop = Make(false, false);
    desktop.ShowBox(BoxKind::Warning, "text", "caption");
    EXPECT_EQ(desktop.OpenWindows().windows, nullptr);
    EXPECT_TRUE(desktop.OpenWindows().displayFails);
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(console.boxes.size(), 1U);
    EXPECT_TRUE(desktop.HasComplained());
}

}  // namespace
}  // namespace zefta::test
