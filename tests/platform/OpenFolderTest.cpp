#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/posix/OpenFolder.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

namespace fs = std::filesystem;

class OpenFolderTest : public ::testing::Test {
  protected:
    OpenFolderTest() {
        folder.Write("a", "new");
        folder.Write("b", "old");
        fs::create_symlink("b", folder / "link");
    }

    TempFolder folder;
    struct stat status = {};
};

TEST_F(OpenFolderTest, Rename_TakesThePlace) {
    const OpenFolder open(folder.Path());
    EXPECT_EQ(open.Rename(folder / "a", folder / "b"), 0);
    EXPECT_EQ(folder.Read("b"), "new");
    EXPECT_FALSE(folder.Exists("a"));
    EXPECT_EQ(open.Rename(folder / "a", folder / "b"), -1);
    EXPECT_EQ(errno, ENOENT);
    open.Flush();
}

TEST_F(OpenFolderTest, StatusOf_IsOfTheEntryItself) {
    const OpenFolder open(folder.Path());
    EXPECT_EQ(open.StatusOf(folder / "b", status), 0);
    EXPECT_TRUE(S_ISREG(status.st_mode));
    EXPECT_EQ(open.StatusOf(folder / "link", status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    EXPECT_EQ(open.StatusOf(folder / "none", status), -1);
    EXPECT_EQ(open.Status(status), 0);
    EXPECT_TRUE(S_ISDIR(status.st_mode));
}

TEST_F(OpenFolderTest, Open_MakesAndOpens) {
    const OpenFolder open(folder.Path());
    const int made = open.Open(folder / "c", O_WRONLY | O_CREAT | O_EXCL);
    ASSERT_NE(made, -1);
    EXPECT_EQ(write(made, "made", 4), 4);
    close(made);
    EXPECT_EQ(folder.Read("c"), "made");
    EXPECT_EQ(open.Open(folder / "c", O_WRONLY | O_CREAT | O_EXCL), -1);
    EXPECT_EQ(errno, EEXIST);
}

TEST_F(OpenFolderTest, FolderThatIsMovedMeanwhile_TheNewFileTakesThePlaceInIt) {
    PosixFileSystem files;
    fs::create_directory(folder / "sub");
    folder.Write("sub/song", "old");
    const auto fresh = files.OpenNew(folder / "sub/song.tmp");
    fresh->Write("new");
    fs::rename(folder / "sub", folder / "moved");
    EXPECT_TRUE(files.ReplaceByOpenFile(*fresh, folder / "sub/song.tmp", folder / "sub/song"));
    EXPECT_EQ(folder.Read("moved/song"), "new");
    EXPECT_FALSE(folder.Exists("moved/song.tmp"));
}

TEST_F(OpenFolderTest, CurrentFolder_IsTheEmptyPath) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    const OpenFolder open("");
    EXPECT_EQ(open.Rename("a", "b"), 0);
    fs::current_path(before);
    EXPECT_EQ(folder.Read("b"), "new");
}

TEST_F(OpenFolderTest, FolderThatCannotBeOpened_PathsAreUsedAsTheyStand) {
    const OpenFolder none(folder / "no such folder");
    ASSERT_FALSE(none.IsOpen());
    EXPECT_EQ(none.StatusOf(folder / "b", status), 0);
    EXPECT_EQ(none.Rename(folder / "a", folder / "b"), 0);
    EXPECT_EQ(folder.Read("b"), "new");
    none.Flush();
}

}  // namespace
}  // namespace zefta::test
