#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/Machine.h"
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

TEST_F(SettingsStoreTest, DeleteValue_KeyThatStandsTwice_IsGone) {
    IniSettingsStore(path).Apply({{"S", "A", "1"}});
    WriteWholeFile(path, "[S]\nA=1\nB=2\na=3\n[T]\nA=4\n[s]\nA=5\n");
    EXPECT_EQ(Stored("S", "A"), "1");
    IniSettingsStore(path).Apply({{"S", "A", std::nullopt}});
    EXPECT_EQ(Stored("S", "A"), std::nullopt);
    EXPECT_EQ(folder.Read("deep/er/settings.ini"), "[S]\nB=2\n[T]\nA=4\n[s]\n");
}

TEST_F(SettingsStoreTest, ByteOrderMark_HidesNoSectionAndStays) {
    IniSettingsStore(path).Apply({{"Settings", "A", "1"}});
    WriteWholeFile(path, "\xEF\xBB\xBF[Settings]\r\nA=7\r\n");
    EXPECT_EQ(Stored("Settings", "A"), "7");
    IniSettingsStore(path).Apply({{"Settings", "B", "2"}});
    EXPECT_EQ(folder.Read("deep/er/settings.ini"), "\xEF\xBB\xBF[Settings]\nA=7\nB=2\n");
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

/// What stands in the store's place and can't be read as a store.
class UnreadableStoreTest : public SettingsStoreTest {
  protected:
    UnreadableStoreTest() { std::filesystem::create_directories(folder / "deep/er"); }

    void ExpectDefaultsAndNothingSaved() {
        const auto before = std::filesystem::symlink_status(path).type();
        IniSettingsStore store(path);
        EXPECT_EQ(store.GetValue("S", "Old"), std::nullopt);
        store.Apply({{"S", "New", "1"}});
        EXPECT_EQ(store.GetValue("S", "New"), "1");
        EXPECT_EQ(Stored("S", "New"), std::nullopt);
        EXPECT_EQ(std::filesystem::symlink_status(path).type(), before);
        EXPECT_FALSE(folder.Exists("deep/er/settings.ini.new"));
    }
};

TEST_F(UnreadableStoreTest, FileThatIsTooLarge_GivesDefaultsAndIsNotReplaced) {
    WriteWholeFile(path, "[S]\nOld=1\n");
    constexpr std::uintmax_t ThreeGigabytes = 3U << 30;
    std::filesystem::resize_file(path, ThreeGigabytes);
    ExpectDefaultsAndNothingSaved();
    EXPECT_EQ(std::filesystem::file_size(path), ThreeGigabytes);
}

TEST_F(UnreadableStoreTest, FileWhoseDeviceFails_GivesDefaultsAndIsNotReplaced) {
    // No process has memory at address 0, so that reading it there is an I/O error.
    std::filesystem::create_symlink("/proc/self/mem", path);
    ExpectDefaultsAndNothingSaved();
}

TEST_F(UnreadableStoreTest, Folder_GivesDefaultsAndIsNotReplaced) {
    std::filesystem::create_directory(path);
    ExpectDefaultsAndNothingSaved();
}

TEST_F(UnreadableStoreTest, FileThatBecameTooLarge_IsNotReplacedByWhatWasRead) {
    WriteWholeFile(path, "[S]\nOld=1\n");
    IniSettingsStore store(path);
    std::filesystem::resize_file(path, 3U << 30);
    store.Apply({{"S", "New", "1"}});
    EXPECT_EQ(store.GetValue("S", "Old"), "1");
    EXPECT_EQ(store.GetValue("S", "New"), "1");
    EXPECT_EQ(std::filesystem::file_size(path), 3U << 30);
}

TEST_F(SettingsStoreTest, Apply_TextBeyondWhatIsReadBack_IsNotWritten) {
    IniSettingsStore(path).Apply({{"S", "Old", "1"}});
    IniSettingsStore(path).Apply({{"S", "Long", std::string(2 << 20, 'x')}});
    EXPECT_TRUE(folder.Read("deep/er/settings.ini") == "[S]\nOld=1\n");
}

/// A store whose name is a link into another folder, as people keep their settings in one place.
class LinkedStoreTest : public ::testing::Test {
  protected:
    void LinkTo(const std::string& target) { std::filesystem::create_symlink(target, path); }

    void ExpectSavedBehindTheLink(const std::string& target, const std::string& text) {
        IniSettingsStore(path).Apply({{"S", "New", "1"}});
        EXPECT_TRUE(std::filesystem::is_symlink(path));
        EXPECT_EQ(ReadWholeFile(target), text);
        EXPECT_EQ(IniSettingsStore(path).GetValue("S", "New"), "1");
        for (const char* leftover : {"s.ini.new", "s.ini.lock"}) EXPECT_FALSE(folder.Exists(leftover));
        EXPECT_FALSE(std::filesystem::exists(target + ".new"));
    }

    TempFolder folder;
    TempFolder other;
    std::string path = folder / "s.ini";
};

TEST_F(LinkedStoreTest, Apply_LinkToAFile_WritesBesideItsTarget) {
    LinkTo(other.Write("mine.ini", "[S]\nOld=1\n"));
    ExpectSavedBehindTheLink(other / "mine.ini", "[S]\nOld=1\nNew=1\n");
}

TEST_F(LinkedStoreTest, Apply_LinkToAnotherFileSystem_WritesBesideItsTarget) {
    const std::string memory = "/dev/shm/zefta-test-" + std::to_string(getpid()) + ".ini";
    WriteWholeFile(memory, "[S]\nOld=1\n");
    LinkTo(memory);
    ExpectSavedBehindTheLink(memory, "[S]\nOld=1\nNew=1\n");
    std::filesystem::remove(memory);
    std::filesystem::remove(memory + ".lock");
}

TEST_F(LinkedStoreTest, Apply_LinkToNothingYet_CreatesItsTarget) {
    LinkTo(other / "deep/mine.ini");
    EXPECT_EQ(IniSettingsStore(path).GetValue("S", "New"), std::nullopt);
    ExpectSavedBehindTheLink(other / "deep/mine.ini", "[S]\nNew=1\n");
}

TEST_F(LinkedStoreTest, Apply_RelativeLinkToALink_WritesBesideTheLastTarget) {
    other.Write("mine.ini", "[S]\nOld=1\n");
    std::filesystem::create_directory_symlink(other.Path(), folder / "there");
    std::filesystem::create_symlink("mine.ini", other / "second.ini");
    LinkTo("there/second.ini");
    ExpectSavedBehindTheLink(other / "mine.ini", "[S]\nOld=1\nNew=1\n");
    EXPECT_TRUE(std::filesystem::is_symlink(other / "second.ini"));
}

TEST_F(LinkedStoreTest, Apply_LinkToItself_IsSilentAndServesTheRun) {
    LinkTo(path);
    IniSettingsStore store(path);
    store.Apply({{"S", "New", "1"}});
    EXPECT_EQ(store.GetValue("S", "New"), "1");
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_FALSE(folder.Exists("s.ini.new"));
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

TEST_F(SettingsStoreTest, ReadAgain_TakesWhatOthersWroteAndForgetsWhatTheyDeleted) {
    IniSettingsStore(path).Apply({{"S", "Stays", "1"}, {"S", "Goes", "2"}});
    IniSettingsStore longLived(path);
    IniSettingsStore(path).Apply({{"S", "Stays", "3"}, {"S", "Goes", std::nullopt}});
    EXPECT_EQ(longLived.GetValue("S", "Stays"), "1");
    longLived.ReadAgain();
    EXPECT_EQ(longLived.GetValue("S", "Stays"), "3");
    EXPECT_EQ(longLived.GetValue("S", "Goes"), std::nullopt);
}

TEST(SettingsPaths, User_FollowsXdgConfigHome) {
    const SettingsProduct product = {"Kestrin", "Kestrin Zeftaworks", "2.0"};
    setenv("XDG_CONFIG_HOME", "/cfg", 1);
    EXPECT_EQ(UserSettingsPath(product), "/cfg/Kestrin/Kestrin Zeftaworks 2.0.ini");
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", "/home/u", 1);
    EXPECT_EQ(UserSettingsPath(product), "/home/u/.config/Kestrin/Kestrin Zeftaworks 2.0.ini");
}

TEST(SettingsPaths, User_WithoutVariables_IsInTheHomeOfTheAccount) {
    const SettingsProduct product = {"K", "T", "2.0"};
    const std::string home = getpwuid(getuid())->pw_dir;
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", home.c_str(), 1);
    const std::string music = ReadMachine().musicFolder;
    // A path from nowhere in particular is no better than none.
    for (const char* nowhere : {"", "relative"}) {
        setenv("XDG_CONFIG_HOME", nowhere, 1);
        setenv("HOME", nowhere, 1);
        EXPECT_EQ(UserSettingsPath(product), home + "/.config/K/T 2.0.ini");
        EXPECT_EQ(ReadMachine().musicFolder, music);
    }
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("HOME");
    EXPECT_EQ(UserSettingsPath(product), home + "/.config/K/T 2.0.ini");
    EXPECT_EQ(ReadMachine().musicFolder, music);
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
