#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "core/Folders.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

class FilesOfTest : public ::testing::Test {
  protected:
    std::vector<std::string> Names(const std::string& mask) {
        std::vector<std::string> names = FilesOf(files, {folder.Path(), mask});
        std::sort(names.begin(), names.end());
        return names;
    }

    using Texts = std::vector<std::string>;

    TempFolder folder;
    PosixFileSystem files;
};

TEST_F(FilesOfTest, Mask_MeansTheFilesThatMatchInAnyCase) {
    for (const char* name : {"a.wav", "B.WAV", "c.mp3"}) folder.Write(name, "");
    files.CreateFolder(folder / "d.wav");
    EXPECT_EQ(Names("*.wav"), (Texts{"B.WAV", "a.wav"}));
    EXPECT_EQ(Names("b.wav"), Texts{"B.WAV"});
    EXPECT_EQ(Names("x*"), Texts{});
}

TEST_F(FilesOfTest, MaskThatIsTheNameOfAFile_MeansThatOneAlone) {
    for (const char* name : {"Who?.wav", "Whom.wav", "*.wav", "a.wav", "A.wav"}) folder.Write(name, "");
    EXPECT_EQ(Names("Who?.wav"), Texts{"Who?.wav"});
    EXPECT_EQ(Names("*.wav"), Texts{"*.wav"});
    EXPECT_EQ(Names("a.wav"), Texts{"a.wav"});
    EXPECT_EQ(Names("W*.wav"), (Texts{"Who?.wav", "Whom.wav"}));
}

TEST_F(FilesOfTest, PipesAndDevices_AreNoFiles) {
    folder.Write("a.wav", "");
    std::filesystem::create_symlink("/dev/zero", folder / "zero.wav");
    std::filesystem::create_symlink("gone", folder / "lost.wav");
    ASSERT_EQ(mkfifo((folder / "pipe.wav").c_str(), 0600), 0);
    EXPECT_EQ(Names("*.wav"), (Texts{"a.wav", "lost.wav"}));
    EXPECT_EQ(Names("pipe.wav"), Texts{});
}

TEST(NamesMeant, NameOfAFile_MeansThatOneAlone) {
    const std::vector<std::string> names = {"Song.mp3", "song.mp3", "a[1].mp3", "a*.mp3", "ab.mp3"};
    EXPECT_EQ(NamesMeant(names, "song.mp3"), std::vector<std::string>{"song.mp3"});
    EXPECT_EQ(NamesMeant(names, "SONG.mp3"), (std::vector<std::string>{"Song.mp3", "song.mp3"}));
    EXPECT_EQ(NamesMeant(names, "a*.mp3"), (std::vector<std::string>{"a[1].mp3", "a*.mp3", "ab.mp3"}));
    EXPECT_EQ(NamesMeant(names, "A?.MP3"), (std::vector<std::string>{"a*.mp3", "ab.mp3"}));
    EXPECT_EQ(NamesMeant(names, "none"), std::vector<std::string>());
}

}  // namespace
}  // namespace zefta::test
