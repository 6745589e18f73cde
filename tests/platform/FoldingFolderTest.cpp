// A folder that folds case, as vfat and others have it: the system calls that tell of names are replaced for
// this test program by ones that can look up names as such a folder does.

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <strings.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/Paths.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/TempFolder.h"

namespace {

bool folds = false;

int StatusOf(const char* path, struct stat* status) {
    return fstatat(AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}

/// The path under which a folder that folds case finds the entry; the path itself when there is none.
std::string Folded(const std::string& path) {
    struct stat status;
    DIR* folder =
        folds && StatusOf(path.c_str(), &status) != 0 ? opendir(zefta::FolderPart(path).c_str()) : nullptr;
    if (folder == nullptr) return path;
    std::string found = path;
    while (const dirent* entry = readdir(folder)) {
        if (strcasecmp(entry->d_name, zefta::NamePart(path).c_str()) == 0)
            found = zefta::JoinPath(zefta::FolderPart(path), entry->d_name);
    }
    closedir(folder);
    return found;
}

}  // namespace

extern "C" int lstat(const char* path, struct stat* status) noexcept {
    return StatusOf(Folded(path).c_str(), status);
}

extern "C" int renameat2(int sourceFolder, const char* source, int targetFolder, const char* target,
                         unsigned flags) noexcept {
    struct stat status;
    if ((flags & RENAME_NOREPLACE) != 0 && StatusOf(Folded(target).c_str(), &status) == 0) {
        errno = EEXIST;
        return -1;
    }
    return static_cast<int>(
        syscall(SYS_renameat2, sourceFolder, Folded(source).c_str(), targetFolder, target, flags));
}

extern "C" int rename(const char* source, const char* target) noexcept {
    return renameat2(AT_FDCWD, source, AT_FDCWD, target, 0);
}

namespace zefta::test {
namespace {

class FoldingFolder : public ::testing::Test {
  protected:
    FoldingFolder() { folds = true; }
    ~FoldingFolder() override { folds = false; }

    int Move(const char* source, const char* target) {
        return RuntimeErrorOf([&] { files.MoveFile(folder / source, folder / target); });
    }

    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const FolderEntry& entry : files.List(folder.Path())) names.push_back(entry.name);
        std::sort(names.begin(), names.end());
        return names;
    }

    TempFolder folder;
    PosixFileSystem files;
};

TEST_F(FoldingFolder, MoveFile_OnlyCaseDiffers_Renames) {
    folder.Write("a.mp3", "x");
    EXPECT_EQ(Move("a.mp3", "A.MP3"), 0);
    EXPECT_EQ(Names(), std::vector<std::string>{"A.MP3"});
    EXPECT_EQ(Move("a.MP3", "a.mp3"), 0);
    EXPECT_EQ(Names(), std::vector<std::string>{"a.mp3"});
}

TEST_F(FoldingFolder, MoveFile_OntoItselfOrAnother_Fails58) {
    folder.Write("a.mp3", "x");
    folder.Write("b.mp3", "y");
    EXPECT_EQ(Move("a.mp3", "a.mp3"), 58);
    EXPECT_EQ(Move("a.mp3", "B.MP3"), 58);
    EXPECT_EQ(Move("a.mp3", "b.mp3"), 58);
    EXPECT_EQ(folder.Read("a.mp3") + folder.Read("b.mp3"), "xy");
}

TEST_F(FoldingFolder, MoveFile_ToItsOwnSpelling_Fails58) {
    folder.Write("a.mp3", "x");
    EXPECT_EQ(Move("A.MP3", "a.mp3"), 58);
    EXPECT_EQ(Names(), std::vector<std::string>{"a.mp3"});
}

TEST_F(FoldingFolder, MoveFile_ToAFreeName_Moves) {
    folder.Write("a.mp3", "x");
    EXPECT_EQ(Move("A.MP3", "c.mp3"), 0);
    EXPECT_EQ(Names(), std::vector<std::string>{"c.mp3"});
}

}  // namespace
}  // namespace zefta::test
