#include <filesystem>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

namespace fs = std::filesystem;

class RealFolderTest : public ::testing::Test {
  protected:
    RealFolderTest() {
        fs::create_directory(folder / "sub");
        fs::create_directory(folder / "other");
        for (const char* name : {"sub/a", "sub/b", "other/a"}) folder.Write(name, name);
        // From here on the folder is known.
        EXPECT_EQ(files.FollowLinks(folder / "sub/a"), folder / "sub/a");
    }

    std::string Real(const std::string& name) { return files.FollowLinks(folder / name); }

    TempFolder folder;
    PosixFileSystem files;
};

TEST_F(RealFolderTest, NextFileOfAKnownFolder_IsItself) {
    EXPECT_EQ(Real("sub/b"), folder / "sub/b");
    EXPECT_EQ(Real("sub/none"), folder / "sub/none");
}

TEST_F(RealFolderTest, LinkInAKnownFolder_IsFollowed) {
    fs::create_symlink("../other/a", folder / "sub/link");
    EXPECT_EQ(Real("sub/link"), folder / "other/a");
}

TEST_F(RealFolderTest, OtherCaseInAKnownFolder_HasTheSpellingOfTheDisk) {
    EXPECT_EQ(Real("sub/A"), folder / "sub/a");
}

TEST_F(RealFolderTest, DotsInAKnownFolder_AreTakenAway) {
    EXPECT_EQ(Real("sub/."), folder / "sub");
    EXPECT_EQ(Real("sub/.."), folder.Path());
    EXPECT_EQ(Real("sub/"), folder / "sub");
    EXPECT_EQ(Real("sub//a"), folder / "sub/a");
}

TEST_F(RealFolderTest, KnownFolderThatBecameALink_IsFollowed) {
    fs::rename(folder / "sub", folder / "moved");
    fs::create_directory_symlink("moved", folder / "sub");
    EXPECT_EQ(Real("sub/a"), folder / "moved/a");
    fs::remove(folder / "sub");
    fs::create_directory_symlink("other", folder / "sub");
    EXPECT_EQ(Real("sub/a"), folder / "other/a");
}

TEST_F(RealFolderTest, FolderBehindALink_IsNeverTakenForReal) {
    fs::create_directory_symlink("sub", folder / "link");
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Real("link/a"), folder / "sub/a");
}

}  // namespace
}  // namespace zefta::test
