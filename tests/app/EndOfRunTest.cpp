// How a run ends by a failure that nobody trapped, with windows and without.

#include <sstream>

#include <gtest/gtest.h>

#include "app/Entry.h"
#include "app/ProgramDesktop.h"
#include "support/FakeWindows.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

constexpr auto TypeMismatchText = "Error #13\r\n\r\nType mismatch";

class EndOfRun : public ::testing::Test {
  protected:
    /// What the run ends with, on a desktop whose boxes are windows unless a terminal is preferred.
    int Fail(bool prefersConsole) {
        ProgramDesktop desktop(console, prefersConsole, [this] {
            auto made = std::make_unique<FakeWindows>();
            windows = made.get();
            return LoadedWindows{std::move(made)};
        });
        App app(world.machine, world.files, desktop, world.processes, world.userSettings,
                world.machineSettings);
        std::ostringstream output;
        const int status = RunZefta(app, {"/wt", "/before", "abc"}, output);
        shown = windows != nullptr ? windows->desktop.boxes : std::vector<ScriptedDesktop::Box>();
        return status;
    }

    TestWorld world;
    ScriptedDesktop console;
    FakeWindows* windows = nullptr;
    std::vector<ScriptedDesktop::Box> shown;
};

TEST_F(EndOfRun, WithWindows_IsShownAndStandsOnStandardError) {
    EXPECT_EQ(Fail(false), 1);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text, TypeMismatchText);
    ASSERT_EQ(console.boxes.size(), 1U);
    EXPECT_EQ(console.boxes[0].text, TypeMismatchText);
    EXPECT_EQ(console.boxes[0].caption, "Kestrin Zeftaworks");
}

TEST_F(EndOfRun, OnATerminal_StandsThereOnce) {
    EXPECT_EQ(Fail(true), 1);
    EXPECT_EQ(windows, nullptr);
    EXPECT_EQ(console.boxes.size(), 1U);
}

TEST(CriticalBox, IsOnStandardErrorAndOthersAreNot) {
    ScriptedDesktop console;
    ProgramDesktop desktop(console, false, [] { return LoadedWindows{std::make_unique<FakeWindows>()}; });
    desktop.ShowBox(BoxKind::Warning, "warning", "c");
    desktop.ShowBox(BoxKind::Plain, "plain", "c");
    EXPECT_TRUE(console.boxes.empty()) << "boxes of a run that goes on are windows alone";
    desktop.ShowBox(BoxKind::Critical, "end", "c");
    ASSERT_EQ(console.boxes.size(), 1U);
    EXPECT_EQ(console.boxes[0].text, "end");
}

TEST(CriticalBox, WithoutWindows_IsToldOnce) {
    ScriptedDesktop console;
    ProgramDesktop desktop(console, false, [] { return LoadedWindows{nullptr, true}; });
    desktop.ShowBox(BoxKind::Critical, "end", "c");
    EXPECT_EQ(console.boxes.size(), 1U);
}

}  // namespace
}  // namespace zefta::test
