#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/SettingsPaths.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

class SettingsStoreTest : public ::testing::Test {
  protected:
    TempFolder folder;
    std::string path = folder / "deep/er/settings.ini";

    std::optional<std::string> Stored(const std::string& section, const std::string& key) {
        return IniSettingsStore(path).GetValue(section, key);
    }
};

TEST_F(SettingsStoreTest, Apply_NewStore_CreatesFoldersAndSections) {
    IniSettingsStore store(path);
    store.Apply({{"Settings", "Bitrate", "320"}, {"History", "Folder0", "/music"}});
    EXPECT_EQ(folder.Read("deep/er/settings.ini"), "[Settings]\nBitrate=320\n\n[History]\nFolder0=/music\n");
    EXPECT_EQ(Stored("settings", "BITRATE"), "320");
    EXPECT_EQ(Stored("Settings", "Folder0"), std::nullopt);
}

TEST_F(SettingsStoreTest, Values_OfAnyKind_ComeBack) {
    for (const std::string value : {"", "x", " blank ", "\"quoted\"", "a\\nb", "line\nend\r\ttab", "back\\",
                                    "a=b;c", "[x]", "Дом", "\"", "%N. %A - %T [%M] %W"}) {
        IniSettingsStore(path).Apply({{"S", "Key", value}});
        EXPECT_EQ(Stored("S", "Key"), value) << value;
    }
}

TEST_F(SettingsStoreTest, Apply_HandEditedFile_KeepsEverythingElseAsItIs) {
    IniSettingsStore(path).Apply({{"S", "A", "1"}});
    const std::string edited = "; mine\r\nno heading=1\n\n[S]\n# note\nA = 1\nnonsense line\nB=2\n[T]\nC=3";
    WriteWholeFile(path, edited);
    IniSettingsStore(path).Apply({{"S", "A", "5"}, {"S", "New", "n"}, {"T", "C", std::nullopt}});
    EXPECT_EQ(folder.Read("deep/er/settings.ini"),
              "; mine\nno heading=1\n\n[S]\n# note\nA=5\nnonsense line\nB=2\nNew=n\n[T]\n");
}

TEST_F(SettingsStoreTest, GetValue_BrokenFile_KeepsThePartsThatCanBeRead) {
    IniSettingsStore(path).Apply({{"S", "A", "1"}});
    WriteWholeFile(path, std::string("\x00\xFF[[[\n=\n[S\n[S]\n===\nA=1\n]", 20) + "\nB=2\n");
    EXPECT_EQ(Stored("S", "B"), "2");
}

TEST_F(SettingsStoreTest, Apply_StoreThatCannotBeWritten_IsSilentAndServesTheRun) {
    IniSettingsStore store("/proc/none/settings.ini");
    store.Apply({{"S", "A", "1"}});
    EXPECT_EQ(store.GetValue("S", "A"), "1");
}

TEST_F(SettingsStoreTest, Apply_TwoProcessesAtOnce_LoseNothingAndLeaveAWholeFile) {
    constexpr int Rounds = 60;
    IniSettingsStore(path).Apply({{"S", "Start", "1"}});
    const auto saver = [&](const std::string& name) {
        const pid_t child = fork();
        if (child != 0) return child;
        IniSettingsStore store(path);
        for (int i = 0; i < Rounds; ++i)
            store.Apply({{"S", name + std::to_string(i), std::string(200, 'x')}});
        _exit(0);
    };
    const pid_t first = saver("First");
    const pid_t second = saver("Second");
    for (int i = 0; i < 200; ++i) {
        const std::string text = ReadWholeFile(path);
        ASSERT_TRUE(text.starts_with("[S]\nStart=1\n") && text.ends_with('\n'));
    }
    waitpid(first, nullptr, 0);
    waitpid(second, nullptr, 0);
    for (int i = 0; i < Rounds; ++i) {
        EXPECT_TRUE(Stored("S", "First" + std::to_string(i)));
        EXPECT_TRUE(Stored("S", "Second" + std::to_string(i)));
    }
}

TEST(SettingsPaths, User_FollowsXdgConfigHome) {
    const SettingsProduct product = {"Kestrin", "Kestrin Zeftaworks", "2.0"};
    setenv("XDG_CONFIG_HOME", "/cfg", 1);
    EXPECT_EQ(UserSettingsPath(product), "/cfg/Kestrin/Kestrin Zeftaworks 2.0.ini");
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", "/home/u", 1);
    EXPECT_EQ(UserSettingsPath(product), "/home/u/.config/Kestrin/Kestrin Zeftaworks 2.0.ini");
}

TEST(SettingsPaths, Machine_IsTheFirstWritableOfXdgConfigDirs) {
    const TempFolder folder;
    const SettingsProduct product = {"K", "T", "2.0"};
    setenv("XDG_CONFIG_DIRS", ("/proc/none:" + folder.Path()).c_str(), 1);
    EXPECT_EQ(MachineSettingsPath(product), folder / "K/T 2.0.ini");
    setenv("XDG_CONFIG_DIRS", "/proc/none:/proc/nil", 1);
    EXPECT_EQ(MachineSettingsPath(product), "/proc/none/K/T 2.0.ini");
    unsetenv("XDG_CONFIG_DIRS");
}

}  // namespace
}  // namespace zefta::test
