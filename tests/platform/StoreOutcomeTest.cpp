#include <filesystem>

#include <gtest/gtest.h>

#include "platform/StoreOutcome.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/Fakes.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

int FailureBehindAChange(SettingsStore& store, const std::string& value = "1") {
    store.Apply({{"S", "A", value}});
    return RuntimeErrorOf([&] { ExpectStored(store); });
}

constexpr int NoFailure = 0;

TEST(ExpectStored, StoreThatIsWritten_SaysNothing) {
    TempFolder folder;
    IniSettingsStore store(folder / "s.ini");
    EXPECT_EQ(RuntimeErrorOf([&] { ExpectStored(store); }), NoFailure) << "nothing was applied yet";
    EXPECT_EQ(FailureBehindAChange(store), NoFailure);
}

TEST(ExpectStored, StoreThatCannotBeWritten_SaysWhyAndWhich) {
    IniSettingsStore store("/proc/none/settings.ini");
    EXPECT_EQ(FailureBehindAChange(store), 75);
    EXPECT_NE(store.Failure()->Text().find("/proc/none/settings.ini"), std::string::npos)
        << store.Failure()->Text();
}

TEST(ExpectStored, WhatCannotBeReadBack_IsNotStored) {
    TempFolder folder;
    IniSettingsStore store(folder / "s.ini");
    EXPECT_EQ(FailureBehindAChange(store, std::string(2 << 20, 'x')), 7);
    EXPECT_FALSE(folder.Exists("s.ini"));
}

TEST(ExpectStored, PlaceThatIsTaken_IsToldUntilItIsFree) {
    TempFolder folder;
    std::filesystem::create_directory(folder / "s.ini");
    IniSettingsStore store(folder / "s.ini");
    EXPECT_EQ(FailureBehindAChange(store), 75);
    std::filesystem::remove(folder / "s.ini");
    std::filesystem::create_directory(folder / "s.ini.new");
    EXPECT_EQ(FailureBehindAChange(store), 75) << "of the new file";
    std::filesystem::remove(folder / "s.ini.new");
    EXPECT_EQ(FailureBehindAChange(store), NoFailure);
    EXPECT_EQ(IniSettingsStore(folder / "s.ini").GetValue("S", "A"), "1");
}

TEST(ExpectStored, FileOfSomeoneElseInTheWay_Stays) {
    TempFolder folder;
    PosixFileSystem files;
    files.SetReadOnly(folder.Write("s.ini.new", "theirs"), true);
    IniSettingsStore store(folder / "s.ini");
    EXPECT_EQ(FailureBehindAChange(store), 75);
    EXPECT_EQ(folder.Read("s.ini.new"), "theirs");
}

TEST(ExpectStored, StoreThatCannotTell_IsBelieved) {
    MemorySettingsStore store;
    EXPECT_EQ(FailureBehindAChange(store), NoFailure);
}

}  // namespace
}  // namespace zefta::test
