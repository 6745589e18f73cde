// Names in another case, looked up in folders that the program and others change.

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

class FolderIndexTest : public ::testing::Test {
  protected:
    PosixFileSystem files;
    TempFolder folder;

    void SetUp() override {
        folder.Write("First.mp3", "1");
        folder.Write("Second.mp3", "2");
        // The second look is the one that is remembered.
        EXPECT_FALSE(files.FileExists(folder / "nothing"));
        EXPECT_FALSE(files.FileExists(folder / "nothing"));
    }

    bool HasInAnotherCase(const std::string& name) { return files.FileExists(folder / name); }
};

TEST_F(FolderIndexTest, MoveFile_ThenLookup_FollowsBothNames) {
    files.MoveFile(folder / "First.mp3", folder / "Third.mp3");
    EXPECT_TRUE(HasInAnotherCase("THIRD.mp3"));
    EXPECT_FALSE(HasInAnotherCase("FIRST.mp3"));
    EXPECT_EQ(RuntimeErrorOf([&] { files.MoveFile(folder / "Second.mp3", folder / "third.MP3"); }), 58);
}

TEST_F(FolderIndexTest, MoveFile_CaseOnly_FollowsTheSpelling) {
    files.MoveFile(folder / "First.mp3", folder / "FIRST.mp3");
    files.MoveFile(folder / "FIRST.mp3", folder / "first.mp3");
    EXPECT_EQ(files.FollowLinks(folder / "First.MP3"), files.FollowLinks(folder.Path()) + "/first.mp3");
}

TEST_F(FolderIndexTest, MoveFile_IntoANewFolder_FollowsBothFolders) {
    files.CreateFolder(folder / "Artist");
    EXPECT_TRUE(files.FolderExists(folder / "ARTIST"));
    for (const char* name : {"ARTIST/x", "ARTIST/x"}) EXPECT_FALSE(files.FileExists(folder / name));
    files.MoveFile(folder / "First.mp3", folder / "artist/One.mp3");
    EXPECT_TRUE(HasInAnotherCase("ARTIST/ONE.mp3"));
    EXPECT_FALSE(HasInAnotherCase("FIRST.mp3"));
}

TEST_F(FolderIndexTest, CreatedAndDeletedFiles_AreFollowed) {
    ASSERT_NE(files.OpenNew(folder / "New.txt"), nullptr);
    EXPECT_EQ(files.OpenNew(folder / "NEW.txt"), nullptr);
    ASSERT_NE(files.OpenCreate(folder / "Other.txt"), nullptr);
    EXPECT_TRUE(HasInAnotherCase("OTHER.txt"));
    files.DeleteFile(folder / "NEW.txt", Force::No);
    EXPECT_FALSE(HasInAnotherCase("NEW.txt"));
    files.ReplaceFile(folder / "Other.txt", folder / "First.mp3");
    EXPECT_FALSE(HasInAnotherCase("OTHER.txt"));
    EXPECT_TRUE(HasInAnotherCase("FIRST.mp3"));
}

TEST_F(FolderIndexTest, ChangesOfOthers_AreSeenAtTheNextTick) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    std::filesystem::rename(folder / "First.mp3", folder / "Elsewhere.mp3");
    EXPECT_TRUE(HasInAnotherCase("ELSEWHERE.mp3"));
    EXPECT_FALSE(HasInAnotherCase("FIRST.mp3"));
}

TEST_F(FolderIndexTest, ChangeOfOthersBeforeOurOwn_IsNotHiddenByIt) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    std::ofstream(folder / "Foreign.mp3") << "x";
    files.DeleteFile(folder / "First.mp3", Force::No);
    EXPECT_TRUE(HasInAnotherCase("FOREIGN.mp3"));
}

TEST_F(FolderIndexTest, FolderDeletedAndMadeAgain_IsAnotherOne) {
    files.CreateFolder(folder / "sub");
    folder.Write("sub/Old.mp3", "x");
    for (const char* name : {"sub/x", "sub/x"}) EXPECT_FALSE(files.FileExists(folder / name));
    files.DeleteFolder(folder / "sub", Force::No);
    files.CreateFolder(folder / "sub");
    EXPECT_FALSE(HasInAnotherCase("sub/OLD.mp3"));
}

TEST_F(FolderIndexTest, MoreFoldersThanAreRemembered_AreAllRight) {
    for (int round = 0; round < 3; ++round) {
        for (int i = 0; i < 9; ++i) {
            const std::string sub = "sub" + std::to_string(i);
            if (round == 0) files.CreateFolder(folder / sub);
            const std::string name = sub + "/Name" + std::to_string(round);
            folder.Write(name, "x");
            EXPECT_TRUE(HasInAnotherCase(sub + "/NAME" + std::to_string(round))) << name;
            EXPECT_FALSE(HasInAnotherCase(sub + "/NONE")) << name;
        }
    }
}

TEST_F(FolderIndexTest, TwoSpellingsOfOneName_AreBothKept) {
    folder.Write("FIRST.mp3", "1");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    files.DeleteFile(folder / "First.mp3", Force::No);
    EXPECT_EQ(files.FollowLinks(folder / "first.mp3"), files.FollowLinks(folder.Path()) + "/FIRST.mp3");
}

}  // namespace
}  // namespace zefta::test
