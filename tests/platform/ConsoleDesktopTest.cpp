#include <filesystem>
#include <functional>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/Machine.h"
#include "platform/console/ConsoleDesktop.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

/// A desktop whose person has typed what stands in `input`.
struct Terminal {
    explicit Terminal(const std::string& typed = {}, bool isTerminal = false)
        : input(typed), desktop(input, error, isTerminal) {}

    std::istringstream input;
    std::ostringstream error;
    ConsoleDesktop desktop;
};

TEST(ConsoleDesktop, ShowBox_IsOneLineWithCaptionAndPlainLineEnds) {
    Terminal terminal;
    terminal.desktop.ShowBox(BoxKind::Plain, "Error #5\r\n\r\nText", "Title");
    EXPECT_EQ(terminal.error.str(), "Title: Error #5\n\nText\n");
    EXPECT_FALSE(terminal.desktop.HasComplained());
}

TEST(ConsoleDesktop, HasComplained_AfterWarningOrCriticalBox) {
    for (const BoxKind kind : {BoxKind::Warning, BoxKind::Critical}) {
        Terminal terminal;
        terminal.desktop.ShowBox(kind, "x", "y");
        EXPECT_TRUE(terminal.desktop.HasComplained());
    }
}

TEST(ConsoleDesktop, AskQuestion_EveryAnswer) {
    struct Row {
        const char* typed;
        bool noIsDefault;
        bool expected;
    };
    for (const Row& row : {Row{"y\n", true, true},
                           {"YES\n", true, true},
                           {"n\n", false, false},
                           {"\n", false, true},
                           {"\n", true, false},
                           {"", false, false},
                           {"", true, false},
                           {"maybe\n", false, false},
                           {"y\r\n", true, true},
                           {"y", true, true}}) {
        Terminal terminal(row.typed);
        EXPECT_EQ(terminal.desktop.AskQuestion("Sure?", "Title", row.noIsDefault), row.expected) << row.typed;
        EXPECT_EQ(terminal.error.str(), row.noIsDefault ? "Sure? [y/N] " : "Sure? [Y/n] ");
    }
}

TEST(ConsoleDesktop, AskInput_EmptyLineIsDefault_EndOfInputIsCancel) {
    Terminal terminal("new\n\n");
    EXPECT_EQ(terminal.desktop.AskInput("Name?", "Title", "old"), "new");
    EXPECT_EQ(terminal.error.str(), "Title: Name? [old] ");
    EXPECT_EQ(terminal.desktop.AskInput("Name?", "Title", "old"), "old");
    EXPECT_EQ(terminal.desktop.AskInput("Name?", "Title", "old"), "");
}

TEST(ConsoleDesktop, ChooseFolder_IsAnInputWithTheFolderAsDefault) {
    Terminal terminal("/music\n\n");
    EXPECT_EQ(terminal.desktop.ChooseFolder("Which?", "Title", "/old"), "/music");
    EXPECT_EQ(terminal.desktop.ChooseFolder("Which?", "Title", "/old"), "/old");
    EXPECT_EQ(terminal.desktop.ChooseFolder("Which?", "Title", "/old"), "");
    EXPECT_EQ(terminal.error.str().substr(0, 22), "Title: Which? [/old] T");
}

TEST(ConsoleDesktop, Note_OnlyOnATerminalAndIsNoComplaint) {
    Terminal file("");
    file.desktop.Note("done");
    EXPECT_EQ(file.error.str(), "");
    Terminal terminal("", true);
    terminal.desktop.Note("done");
    EXPECT_NE(terminal.error.str().find("done\n"), std::string::npos);
    EXPECT_FALSE(terminal.desktop.HasComplained());
}

TEST(ConsoleDesktop, Progress_OnlyOnATerminal) {
    ProgressReport report{ProgressKind::Trim,
                          "/music/a.wav",
                          "Scanning...",
                          0,
                          200,
                          50,
                          {{"lblMSFRemaining", "0 mins 01 secs remaining"}}};
    Terminal script;
    script.desktop.OpenProgress()->Show(report);
    EXPECT_EQ(script.error.str(), "");
    Terminal terminal("", true);
    {
        const auto view = terminal.desktop.OpenProgress();
        view->Show(report);
        view->Show(report);  // too soon to be written again
    }
    EXPECT_EQ(terminal.error.str(),
              "\r\x1b[K\x1b[?7lScanning... a.wav 25%, 0 mins 01 secs remaining\x1b[?7h\r\x1b[K");
}

TEST(ConsoleDesktop, Terminal_ObeysNothingInATextAndLosesItsLineOfProgress) {
    const std::string hostile = "a\x1b]0;x\x07\x7f\xC2\x9Bz\tb\nc\xC3\xA9\xC2\xA0";
    const std::string harmless = "a?]0;x???z\tb\nc\xC3\xA9\xC2\xA0";
    const std::pair<std::function<void(Desktop&)>, std::string> rows[] = {
        {[&](Desktop& desktop) { desktop.ShowBox(BoxKind::Plain, hostile, "Title"); },
         "Title: " + harmless + "\n"},
        {[&](Desktop& desktop) { desktop.AskQuestion(hostile, "Title", true); }, harmless + " [y/N] "},
        {[&](Desktop& desktop) { desktop.AskInput(hostile, "Title", "\x1bx"); },
         "Title: " + harmless + " [?x] "},
        {[&](Desktop& desktop) { desktop.Note(hostile); }, harmless + "\n"},
    };
    for (const auto& [show, text] : rows) {
        Terminal terminal("", true);
        show(terminal.desktop);
        EXPECT_EQ(terminal.error.str(), "\r\x1b[K" + text);
    }
    Terminal terminal("", true);
    terminal.desktop.OpenProgress()->Show(
        {ProgressKind::Trim, "/music/\x1b[2J\n.wav", "Saving...", 0, 2, 1, {}});
    EXPECT_NE(terminal.error.str().find("Saving... ?[2J?.wav 50%"), std::string::npos);
}

TEST(ConsoleDesktop, Script_GetsTextsAsTheyAre) {
    Terminal script;
    script.desktop.ShowBox(BoxKind::Plain, "a\x1bz", "Title");
    EXPECT_EQ(script.error.str(), "Title: a\x1bz\n");
}

TEST(Machine, ReadMachine_LanguageIsTheFirstThatIsSet) {
    setenv("LC_ALL", "", 1);
    setenv("LC_MESSAGES", "ru_RU.UTF-8", 1);
    setenv("LANG", "en_US", 1);
    EXPECT_EQ(ReadMachine().language, "ru_RU.UTF-8");
    setenv("LC_ALL", "de_DE", 1);
    EXPECT_EQ(ReadMachine().language, "de_DE");
}

TEST(Machine, ReadMachine_TemporaryFolderIsThePersonsOwnWhereThereIsOne) {
    const TempFolder chosen;
    const TempFolder ofSession;
    setenv("TMPDIR", chosen.Path().c_str(), 1);
    setenv("XDG_RUNTIME_DIR", ofSession.Path().c_str(), 1);
    EXPECT_EQ(ReadMachine().temporaryFolder, chosen.Path());
    setenv("TMPDIR", "/no/such/folder", 1);
    EXPECT_EQ(ReadMachine().temporaryFolder, ofSession.Path());
    setenv("XDG_RUNTIME_DIR", "relative", 1);
    EXPECT_EQ(ReadMachine().temporaryFolder, "/tmp");
    unsetenv("TMPDIR");
    unsetenv("XDG_RUNTIME_DIR");
}

TEST(Machine, ReadMachine_UserDirsThatCannotBeRead_IsHome) {
    const TempFolder home;
    setenv("HOME", home.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", home.Path().c_str(), 1);
    home.Write("user-dirs.dirs", "XDG_MUSIC_DIR=\"/usr\"\n");
    std::filesystem::resize_file(home / "user-dirs.dirs", 3U << 30);
    EXPECT_EQ(ReadMachine().musicFolder, home.Path());
}

TEST(Machine, ReadMachine_MusicFolderFromUserDirsElseHome) {
    const TempFolder home;
    setenv("HOME", home.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", home.Path().c_str(), 1);
    EXPECT_EQ(ReadMachine().musicFolder, home.Path());
    home.Write("user-dirs.dirs", "# x\nXDG_DESKTOP_DIR=\"$HOME/D\"\nXDG_MUSIC_DIR=\"$HOME\"\n");
    EXPECT_EQ(ReadMachine().musicFolder, home.Path());
    home.Write("user-dirs.dirs", "XDG_MUSIC_DIR=\"/usr\"\n");
    EXPECT_EQ(ReadMachine().musicFolder, "/usr");
    home.Write("user-dirs.dirs", "XDG_MUSIC_DIR=\"/no/such/folder\"\n");
    EXPECT_EQ(ReadMachine().musicFolder, home.Path());
}

}  // namespace
}  // namespace zefta::test
