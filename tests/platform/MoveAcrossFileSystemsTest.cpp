#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

/// A folder in memory, which is a file system of its own.
class MoveAcrossFileSystems : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_NE(mkdtemp(memory.data()), nullptr);
        struct stat here;
        struct stat there;
        ASSERT_EQ(stat(folder.Path().c_str(), &here) + stat(memory.c_str(), &there), 0);
        if (here.st_dev == there.st_dev) GTEST_SKIP() << "temporary files are in memory themselves";
    }
    void TearDown() override { std::filesystem::remove_all(memory); }

    std::vector<FolderEntry> Entries() { return files.List(folder.Path()); }

    std::string memory = "/dev/shm/zefta-test-XXXXXX";
    TempFolder folder;
    PosixFileSystem files;
};

TEST_F(MoveAcrossFileSystems, File_ArrivesWithItsPermissionsAndTime) {
    const std::string source = memory + "/a";
    WriteWholeFile(source, "content");
    ASSERT_EQ(chmod(source.c_str(), 0640), 0);
    const auto time = std::filesystem::last_write_time(source) - std::chrono::hours(5);
    std::filesystem::last_write_time(source, time);
    files.MoveFile(source, folder / "b");
    EXPECT_EQ(folder.Read("b"), "content");
    EXPECT_EQ(std::filesystem::last_write_time(folder / "b"), time);
    EXPECT_EQ(std::filesystem::status(folder / "b").permissions(), std::filesystem::perms(0640));
    EXPECT_FALSE(files.FileExists(source));
    EXPECT_EQ(Entries().size(), 1U);
}

TEST_F(MoveAcrossFileSystems, TargetTaken_Fails58AndBothStay) {
    WriteWholeFile(memory + "/a", "1");
    folder.Write("B", "2");
    EXPECT_EQ(RuntimeErrorOf([&] { files.MoveFile(memory + "/a", folder / "b"); }), 58);
    EXPECT_EQ(ReadWholeFile(memory + "/a") + folder.Read("B"), "12");
}

TEST_F(MoveAcrossFileSystems, FileThatHappensToStandBesideTheTarget_Stays) {
    WriteWholeFile(memory + "/a", "content");
    folder.Write("b.moving", "of somebody");
    files.MoveFile(memory + "/a", folder / "b");
    EXPECT_EQ(folder.Read("b"), "content");
    EXPECT_EQ(folder.Read("b.moving"), "of somebody");
}

TEST_F(MoveAcrossFileSystems, LongestName_IsMoved) {
    WriteWholeFile(memory + "/a", "content");
    const std::string name(LongestName, 'x');
    files.MoveFile(memory + "/a", folder / name);
    EXPECT_EQ(folder.Read(name), "content");
    EXPECT_EQ(Entries().size(), 1U);
}

TEST_F(MoveAcrossFileSystems, FolderOrLink_Fails75AndStays) {
    std::filesystem::create_directory(memory + "/sub");
    std::filesystem::create_symlink("sub", memory + "/link");
    for (const std::string& name : {memory + "/sub", memory + "/link"}) {
        EXPECT_EQ(RuntimeErrorOf([&] { files.MoveFile(name, folder / "b"); }), 75);
        EXPECT_TRUE(files.FolderExists(name));
    }
    EXPECT_TRUE(Entries().empty());
}

}  // namespace
}  // namespace zefta::test
