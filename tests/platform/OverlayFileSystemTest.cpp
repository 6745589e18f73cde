// The overlay does what the file system below it would do, and leaves that one alone.

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <random>
#include <sys/resource.h>

#include <gtest/gtest.h>

#include "platform/Paths.h"
#include "platform/overlay/OverlayFileSystem.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

using Tree = std::map<std::string, std::string>;

/// Paths below the folder and what the files hold; folders end in a separator.
void AddTree(FileSystem& files, const std::string& folder, const std::string& prefix, Tree& tree) {
    for (const FolderEntry& entry : files.List(folder)) {
        const std::string path = JoinPath(folder, entry.name);
        if (entry.isFolder) {
            tree[prefix + entry.name + "/"] = "";
            AddTree(files, path, prefix + entry.name + "/", tree);
        } else {
            const auto file = files.OpenReadOnly(path);
            tree[prefix + entry.name] = (files.IsReadOnly(path) ? "read-only " : "") +
                                        (file ? file->ReadBytes(100000) : std::string("(not a file)"));
        }
    }
}

Tree TreeOf(FileSystem& files, const std::string& folder) {
    Tree tree;
    AddTree(files, folder, "", tree);
    return tree;
}

void FillFolder(const TempFolder& folder) {
    for (const char* sub : {"Sub", "Sub/inner"}) std::filesystem::create_directory(folder / sub);
    for (const char* name : {"a.mp3", "B.mp3", "Sub/c.mp3", "Sub/inner/d.mp3"})
        folder.Write(name, std::string("content of ") + name);
}

class OverlayFileSystemTest : public ::testing::Test {
  protected:
    TempFolder folder;
    PosixFileSystem disk;
    OverlayFileSystem files{disk};
    Tree before;

    void SetUp() override {
        FillFolder(folder);
        before = TreeOf(disk, folder.Path());
    }
    void TearDown() override { EXPECT_EQ(TreeOf(disk, folder.Path()), before); }
};

TEST_F(OverlayFileSystemTest, Untouched_LooksLikeTheDisk) {
    EXPECT_EQ(TreeOf(files, folder.Path()), before);
    EXPECT_EQ(files.ContentStamp(folder / "A.MP3"), disk.ContentStamp(folder / "a.mp3"));
}

TEST_F(OverlayFileSystemTest, WrittenFile_IsReadBackChanged) {
    {
        const auto file = files.OpenRead(folder / "A.mp3");
        file->Seek(-3, SeekFrom::End);
        file->Write("XYZ!");
    }
    EXPECT_EQ(files.OpenReadOnly(folder / "a.mp3")->ReadBytes(99), "content of a.XYZ!");
    EXPECT_EQ(files.FileSize(folder / "a.mp3"), 17);
    EXPECT_NE(files.ContentStamp(folder / "a.mp3"), disk.ContentStamp(folder / "a.mp3"));
}

TEST_F(OverlayFileSystemTest, OpenedForChangeButNotWritten_KeepsItsStamp) {
    EXPECT_EQ(files.OpenRead(folder / "a.mp3")->ReadBytes(7), "content");
    EXPECT_EQ(files.ContentStamp(folder / "a.mp3"), disk.ContentStamp(folder / "a.mp3"));
}

TEST_F(OverlayFileSystemTest, CutAndGrownFile_HasZerosWhereNothingWasWritten) {
    {
        const auto file = files.OpenRead(folder / "a.mp3");
        file->Seek(4, SeekFrom::Start);
        file->SetEnd();
        file->Seek(100000, SeekFrom::Start);
        file->Write("end");
    }
    const std::string bytes = files.OpenReadOnly(folder / "a.mp3")->ReadBytes(200000);
    EXPECT_EQ(bytes, "cont" + std::string(99996, '\0') + "end");
}

TEST_F(OverlayFileSystemTest, MovedFolder_TakesAlongWhatWasChangedInIt) {
    files.MoveFile(folder / "Sub/c.mp3", folder / "Sub/inner/C.mp3");
    files.MoveFile(folder / "Sub", folder / "Other");
    EXPECT_EQ(TreeOf(files, folder / "Other"), (Tree{{"inner/", ""},
                                                     {"inner/C.mp3", "content of Sub/c.mp3"},
                                                     {"inner/d.mp3", "content of Sub/inner/d.mp3"}}));
    EXPECT_FALSE(files.FolderExists(folder / "Sub"));
}

TEST_F(OverlayFileSystemTest, RewrittenFilesBeyondTheBudget_TellTheirSizeAndReadAsOnDisk) {
    const std::string megabyte(1 << 20, 'x');
    {
        const auto file = files.OpenNew(folder / "a.mp3.tmp");
        for (int i = 0; i < 70; ++i) file->Write(megabyte);
        EXPECT_EQ(file->Size(), 70 << 20);
    }
    files.ReplaceFile(folder / "a.mp3.tmp", folder / "a.mp3");
    EXPECT_EQ(files.FileSize(folder / "a.mp3"), 70 << 20);
    EXPECT_NE(files.ContentStamp(folder / "a.mp3"), disk.ContentStamp(folder / "a.mp3"));
    EXPECT_EQ(files.OpenReadOnly(folder / "a.mp3")->ReadBytes(100), "content of a.mp3");
    EXPECT_EQ(files.OpenRead(folder / "a.mp3")->ReadBytes(100), "content of a.mp3");
    EXPECT_FALSE(files.FileExists(folder / "a.mp3.tmp"));
}

TEST_F(OverlayFileSystemTest, NewFileBeyondTheBudget_CannotBeRead) {
    { files.OpenNew(folder / "new")->Write(std::string(65 << 20, 'x')); }
    EXPECT_EQ(RuntimeErrorOf([&] { files.OpenReadOnly(folder / "new")->ReadBytes(1); }), 57);
    { files.OpenNew(folder / "list")->Write("short"); }
    EXPECT_EQ(files.OpenReadOnly(folder / "list")->ReadBytes(9), "short");
}

TEST_F(OverlayFileSystemTest, ManyChangedFiles_HoldNoHandles) {
    rlimit former;
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &former), 0);
    const rlimit few = {64, former.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &few), 0);
    std::filesystem::create_directory(folder / "many");
    for (int i = 0; i < 200; ++i) folder.Write("many/" + std::to_string(i), "0123456789");
    int changed = 0;
    for (int i = 0; i < 200; ++i) {
        const std::string path = folder / ("many/" + std::to_string(i));
        if (const auto file = files.OpenRead(path)) file->Write("abc");
        const auto file = files.OpenReadOnly(path);
        changed += file && file->ReadBytes(5) == "abc34" ? 1 : 0;
    }
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &former), 0);
    std::filesystem::remove_all(folder / "many");
    EXPECT_EQ(changed, 200);
}

TEST_F(OverlayFileSystemTest, FolderReachedThroughALink_IsTheSameFolder) {
    std::filesystem::create_directory_symlink("Sub", folder / "link");
    files.MoveFile(folder / "link/c.mp3", folder / "link/e.mp3");
    EXPECT_TRUE(files.FileExists(folder / "Sub/E.mp3"));
    EXPECT_EQ(RuntimeErrorOf([&] { files.MoveFile(folder / "Sub/inner/d.mp3", folder / "link/E.mp3"); }), 58);
    std::filesystem::remove(folder / "link");
}

TEST_F(OverlayFileSystemTest, CurrentFolder_IsItsOwn) {
    const std::string former = disk.CurrentFolder();
    files.SetCurrentFolder(folder / "sub");
    EXPECT_EQ(files.CurrentFolder(), disk.FollowLinks(folder / "Sub"));
    EXPECT_TRUE(files.FileExists("C.mp3"));
    EXPECT_TRUE(files.FileExists("../a.mp3"));
    EXPECT_TRUE(files.FileExists("./inner/../c.mp3"));
    EXPECT_EQ(disk.CurrentFolder(), former);
}

// The same run of operations on a folder on disk and on the overlay of another one gives the same.

class Rehearsal {
  public:
    Rehearsal(FileSystem& files, std::string folder, unsigned seed)
        : files_(files), folder_(std::move(folder)), random_(seed) {}

    /// What the operation said.
    std::string Step() {
        const unsigned operation = Number(11);
        const std::string path = Path();
        const std::string other = Path();
        std::string told = std::to_string(operation) + " " + path.substr(folder_.size()) + " " +
                           other.substr(folder_.size()) + ": ";
        const int error = RuntimeErrorOf([&] { told += Do(operation, path, other); });
        // A file or a folder on the way to it: what is missing is told in one of two ways.
        return told + " " + std::to_string(error == 76 ? 53 : error);
    }

  private:
    unsigned Number(unsigned bound) { return static_cast<unsigned>(random_() % bound); }

    std::string Path() {
        constexpr const char* Folders[] = {"", "", "", "Sub/", "sub/", "Sub/inner/", "none/"};
        constexpr const char* Names[] = {"a.mp3", "A.mp3", "b.mp3", "B.MP3", "c", "sub", "inner", "New"};
        return JoinPath(folder_, std::string(Folders[Number(7)]) + Names[Number(8)]);
    }

    std::string WriteTo(std::unique_ptr<BinaryFile> file) {
        if (!file) return "null";
        file->Seek(static_cast<std::int32_t>(Number(12)), SeekFrom::Start);
        file->Write("w" + std::to_string(Number(1000)));
        if (Number(3) == 0) file->SetEnd();
        return std::to_string(file->Size());
    }

    bool AreTwoFilesOfAFolder(const std::string& path, const std::string& other) {
        return FolderPart(path) == FolderPart(other) && files_.FileExists(path) && files_.FileExists(other) &&
               files_.FollowLinks(path) != files_.FollowLinks(other);
    }

    std::string Do(unsigned operation, const std::string& path, const std::string& other) {
        switch (operation) {
            case 0:
            case 1:
                files_.MoveFile(path, other);
                return "moved";
            case 2:
                files_.DeleteFile(path, Number(2) == 0 ? Force::No : Force::Yes);
                return "deleted";
            case 3:
                return WriteTo(files_.OpenRead(path));
            case 4:
                return WriteTo(files_.OpenCreate(path));
            case 5:
                return WriteTo(files_.OpenNew(path));
            case 6:
                files_.CreateFolder(path);
                return "made";
            case 7:
                if (!AreTwoFilesOfAFolder(path, other)) return "left";
                files_.ReplaceFile(path, other);
                return "replaced";
            case 8:
                if (!files_.FolderExists(path)) files_.SetReadOnly(path, Number(4) == 0);
                return "set";
            case 9:
                return std::to_string(files_.FileExists(path)) + std::to_string(files_.FolderExists(other));
            default:
                return std::to_string(files_.FileExists(path) ? files_.FileSize(path) : -1);
        }
    }

    FileSystem& files_;
    std::string folder_;
    std::mt19937 random_;
};

class OverlayRehearsal : public ::testing::TestWithParam<unsigned> {};

TEST_P(OverlayRehearsal, AnyRunOfOperations_EndsAsOnDisk) {
    TempFolder real;
    TempFolder shadowed;
    FillFolder(real);
    FillFolder(shadowed);
    PosixFileSystem disk;
    const Tree before = TreeOf(disk, shadowed.Path());
    OverlayFileSystem overlay(disk);
    Rehearsal onDisk(disk, real.Path(), GetParam());
    Rehearsal onOverlay(overlay, shadowed.Path(), GetParam());
    for (int i = 0; i < 300; ++i) ASSERT_EQ(onOverlay.Step(), onDisk.Step()) << "step " << i;
    EXPECT_EQ(TreeOf(overlay, shadowed.Path()), TreeOf(disk, real.Path()));
    EXPECT_EQ(TreeOf(disk, shadowed.Path()), before);
}

INSTANTIATE_TEST_SUITE_P(Seeds, OverlayRehearsal, ::testing::Range(1U, 41U));

}  // namespace
}  // namespace zefta::test
