// What every implementation of FileSystem and its BinaryFile keeps to.

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/Paths.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TempFolder.h"

namespace zefta::test {
namespace {

/// The decorator with no fault planned has to be no different from what it stands in front of.
class UndisturbedFileSystem : public FaultInjectingFileSystem {
  public:
    UndisturbedFileSystem() : FaultInjectingFileSystem(real_) {}

  private:
    PosixFileSystem real_;
};

template <typename Implementation>
class FileSystemContract : public ::testing::Test {
  protected:
    Implementation files;
    TempFolder folder;

    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const FolderEntry& entry : files.List(folder.Path())) names.push_back(entry.name);
        std::sort(names.begin(), names.end());
        return names;
    }
};

using Implementations = ::testing::Types<PosixFileSystem, UndisturbedFileSystem>;
TYPED_TEST_SUITE(FileSystemContract, Implementations);

/// Names that careless code trips over.
const std::string AwkwardNames[] = {"with blanks  .mp3",
                                    "Дом.mp3",
                                    std::string("bytes \xFF\xFE.mp3"),
                                    "quo\"te.mp3",
                                    "-leading.mp3",
                                    "back\\slash",
                                    std::string(251, 'x') + ".mp3",
                                    "%d%s.mp3",
                                    " ",
                                    "line\nend.mp3"};

TYPED_TEST(FileSystemContract, AwkwardNames_CreateListReadDelete_Work) {
    for (const std::string& name : AwkwardNames) {
        const std::string path = this->folder / name;
        { this->files.OpenCreate(path)->Write("content"); }
        EXPECT_EQ(this->Names(), std::vector{name});
        EXPECT_EQ(this->files.OpenReadOnly(path)->ReadBytes(100), "content");
        this->files.DeleteFile(path, Force::No);
        EXPECT_FALSE(this->files.FileExists(path));
    }
}

TYPED_TEST(FileSystemContract, Lookup_OtherCase_FindsTheEntry) {
    this->folder.Write("Track01.WAV", "a");
    EXPECT_TRUE(this->files.FileExists(this->folder / "track01.wav"));
    EXPECT_EQ(this->files.OpenRead(this->folder / "TRACK01.wav")->ReadBytes(9), "a");
    this->folder.Write("ДОМ.mp3", "b");
    EXPECT_TRUE(this->files.FileExists(this->folder / "дом.MP3"));
}

TYPED_TEST(FileSystemContract, Lookup_ExactNameBesideAnotherCase_ExactWins) {
    this->folder.Write("A.mp3", "upper");
    this->folder.Write("a.mp3", "lower");
    EXPECT_EQ(this->files.OpenReadOnly(this->folder / "a.mp3")->ReadBytes(9), "lower");
    EXPECT_EQ(this->files.OpenReadOnly(this->folder / "A.mp3")->ReadBytes(9), "upper");
}

TYPED_TEST(FileSystemContract, Lookup_FolderInOtherCase_IsEntered) {
    this->files.CreateFolder(this->folder / "Music");
    this->folder.Write("Music/a.wav", "x");
    EXPECT_TRUE(this->files.FileExists(this->folder / "music/A.WAV"));
    EXPECT_TRUE(this->files.FolderExists(this->folder / "MUSIC"));
}

TYPED_TEST(FileSystemContract, OpenCreate_NameThereInOtherCase_EmptiesThatEntry) {
    this->folder.Write("x.MP3", "old");
    { this->files.OpenCreate(this->folder / "x.mp3")->Write("new"); }
    EXPECT_EQ(this->Names(), std::vector<std::string>{"x.MP3"});
    EXPECT_EQ(this->folder.Read("x.MP3"), "new");
}

TYPED_TEST(FileSystemContract, OpenNew_FreeName_Creates) {
    { this->files.OpenNew(this->folder / "x.mp3")->Write("new"); }
    EXPECT_EQ(this->folder.Read("x.mp3"), "new");
}

TYPED_TEST(FileSystemContract, OpenNew_AnythingOfThatNameInAnyCase_IsNullAndStays) {
    this->folder.Write("x.MP3", "old");
    this->files.CreateFolder(this->folder / "sub");
    std::filesystem::create_symlink("x.MP3", this->folder / "link");
    std::filesystem::create_symlink("nowhere", this->folder / "broken");
    for (const char* name : {"x.MP3", "x.mp3", "sub", "link", "LINK", "broken", "none/x"})
        EXPECT_EQ(this->files.OpenNew(this->folder / name), nullptr) << name;
    EXPECT_EQ(this->folder.Read("x.MP3"), "old");
    EXPECT_EQ(this->Names(), (std::vector<std::string>{"broken", "link", "sub", "x.MP3"}));
}

TYPED_TEST(FileSystemContract, OpenNew_FolderInAnotherCase_CreatesThere) {
    this->files.CreateFolder(this->folder / "Sub");
    EXPECT_NE(this->files.OpenNew(this->folder / "sUB/x.mp3"), nullptr);
    EXPECT_TRUE(this->folder.Exists("Sub/x.mp3"));
    EXPECT_EQ(this->files.OpenNew(this->folder / "sUB/X.mp3"), nullptr);
    EXPECT_EQ(this->files.OpenNew(this->folder / "sUB/none/x"), nullptr);
}

TYPED_TEST(FileSystemContract, OpenNew_NameThatOthersTookAway_Creates) {
    for (int i = 0; i < 20; ++i) {
        EXPECT_NE(this->files.OpenNew(this->folder / "x.mp3"), nullptr);
        EXPECT_EQ(this->files.OpenNew(this->folder / "X.mp3"), nullptr);
        std::filesystem::remove(this->folder / "x.mp3");
    }
}

TYPED_TEST(FileSystemContract, Open_MissingFileFolderOrPipe_IsNull) {
    ASSERT_EQ(mkfifo((this->folder / "pipe").c_str(), 0600), 0);
    for (const std::string& path : {this->folder / "none", this->folder.Path(), this->folder / "pipe"}) {
        EXPECT_EQ(this->files.OpenRead(path), nullptr) << path;
        EXPECT_EQ(this->files.OpenReadOnly(path), nullptr) << path;
    }
    EXPECT_EQ(this->files.OpenCreate(this->folder / "none/x"), nullptr);
    EXPECT_EQ(this->files.OpenCreate(this->folder.Path()), nullptr);
}

TYPED_TEST(FileSystemContract, ReadOnlyFile_OpenForWriting_IsRefusedAlsoToRoot) {
    const std::string path = this->folder.Write("a.mp3", "kept");
    this->files.SetReadOnly(path, true);
    EXPECT_TRUE(this->files.IsReadOnly(path));
    EXPECT_EQ(this->files.OpenRead(path), nullptr);
    EXPECT_EQ(this->files.OpenCreate(path), nullptr);
    EXPECT_EQ(this->files.OpenReadOnly(path)->ReadBytes(9), "kept");
    this->files.SetReadOnly(path, false);
    EXPECT_FALSE(this->files.IsReadOnly(path));
    EXPECT_NE(this->files.OpenRead(path), nullptr);
}

TYPED_TEST(FileSystemContract, DeleteFile_ReadOnly_Needs70OrForce) {
    const std::string path = this->folder.Write("a.mp3", "x");
    this->files.SetReadOnly(path, true);
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.DeleteFile(path, Force::No); }), 70);
    EXPECT_TRUE(this->files.FileExists(path));
    this->files.DeleteFile(path, Force::Yes);
    EXPECT_FALSE(this->files.FileExists(path));
}

TYPED_TEST(FileSystemContract, DeleteFile_MissingOrFolder_Fails) {
    this->files.CreateFolder(this->folder / "sub");
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.DeleteFile(this->folder / "none", Force::No); }), 53);
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.DeleteFile(this->folder / "sub", Force::Yes); }), 75);
}

TYPED_TEST(FileSystemContract, MoveFile_TargetFree_Moves) {
    this->folder.Write("a", "content");
    this->files.MoveFile(this->folder / "a", this->folder / "b");
    EXPECT_EQ(this->Names(), std::vector<std::string>{"b"});
    EXPECT_EQ(this->folder.Read("b"), "content");
}

TYPED_TEST(FileSystemContract, MoveFile_TargetTakenInAnyCase_Fails58AndChangesNothing) {
    this->folder.Write("a", "1");
    this->folder.Write("B", "2");
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.MoveFile(this->folder / "a", this->folder / "B"); }), 58);
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.MoveFile(this->folder / "a", this->folder / "b"); }), 58);
    EXPECT_EQ(this->folder.Read("a") + this->folder.Read("B"), "12");
}

TYPED_TEST(FileSystemContract, MoveFile_OnlyCaseDiffers_Renames) {
    this->folder.Write("a.mp3", "x");
    this->files.MoveFile(this->folder / "a.mp3", this->folder / "A.MP3");
    EXPECT_EQ(this->Names(), std::vector<std::string>{"A.MP3"});
}

TYPED_TEST(FileSystemContract, MoveFile_NameIsAlsoThatOfAnotherEntryInAnyCase_Fails58) {
    this->folder.Write("X.MP3", "1");
    this->folder.Write("x.mp3", "2");
    for (const std::string source : {"X.MP3", "x.mp3"}) {
        for (const std::string target : {"X.MP3", "X.mp3", "x.mp3"})
            EXPECT_EQ(
                RuntimeErrorOf([&] { this->files.MoveFile(this->folder / source, this->folder / target); }),
                58)
                << source << " " << target;
    }
    EXPECT_EQ(this->folder.Read("X.MP3") + this->folder.Read("x.mp3"), "12");
}

TYPED_TEST(FileSystemContract, MoveFile_NameOfTheSourceInAnotherFolder_Fails58) {
    this->files.CreateFolder(this->folder / "sub");
    this->folder.Write("a.mp3", "1");
    this->folder.Write("sub/a.mp3", "2");
    for (const std::string target : {"sub/a.mp3", "sub/A.mp3", "SUB/A.mp3"})
        EXPECT_EQ(
            RuntimeErrorOf([&] { this->files.MoveFile(this->folder / "a.mp3", this->folder / target); }), 58);
    EXPECT_EQ(this->folder.Read("a.mp3") + this->folder.Read("sub/a.mp3"), "12");
}

TYPED_TEST(FileSystemContract, MoveFile_OnlyCaseDiffersByAnotherPathOfTheFolder_Renames) {
    this->files.CreateFolder(this->folder / "sub");
    this->folder.Write("sub/a.mp3", "x");
    std::filesystem::create_directory_symlink("sub", this->folder / "link");
    this->files.MoveFile(this->folder / "sub/a.mp3", this->folder / "link/A.mp3");
    EXPECT_EQ(this->folder.Read("sub/A.mp3"), "x");
    EXPECT_FALSE(this->folder.Exists("sub/a.mp3"));
}

TYPED_TEST(FileSystemContract, MoveFile_OntoExactlyItself_Fails58) {
    this->folder.Write("a.mp3", "x");
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.MoveFile(this->folder / "a.mp3", this->folder / "a.mp3"); }),
              58);
    EXPECT_EQ(this->folder.Read("a.mp3"), "x");
}

TYPED_TEST(FileSystemContract, MoveFile_HardLinksThatDifferInCase_BothStay) {
    this->folder.Write("a.mp3", "x");
    std::filesystem::create_hard_link(this->folder / "a.mp3", this->folder / "A.mp3");
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.MoveFile(this->folder / "a.mp3", this->folder / "A.mp3"); }),
              58);
    EXPECT_EQ(this->Names(), (std::vector<std::string>{"A.mp3", "a.mp3"}));
}

TYPED_TEST(FileSystemContract, MoveFile_SourceOrTargetFolderMissing_Fails) {
    this->folder.Write("a", "x");
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.MoveFile(this->folder / "none", this->folder / "b"); }), 53);
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.MoveFile(this->folder / "a", this->folder / "no/b"); }), 76);
    EXPECT_EQ(this->folder.Read("a"), "x");
}

TYPED_TEST(FileSystemContract, ReplaceFile_TakesNameAndAttributesOfTheOld) {
    const std::string target = this->folder.Write("a.mp3", "old");
    ASSERT_EQ(chmod(target.c_str(), 0640), 0);
    this->folder.Write("a.mp3.tmp", "new");
    this->files.ReplaceFile(this->folder / "a.mp3.tmp", target);
    EXPECT_EQ(this->Names(), std::vector<std::string>{"a.mp3"});
    EXPECT_EQ(this->folder.Read("a.mp3"), "new");
    struct stat status;
    ASSERT_EQ(stat(target.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TYPED_TEST(FileSystemContract, CopyAttributes_SpecialPermissionBits_AreTakenOver) {
    const std::string source = this->folder.Write("a.mp3", "x");
    const std::string target = this->folder.Write("b.mp3", "x");
    for (const mode_t mode : {04755U, 0644U, 02700U, 0600U, 0600U}) {
        ASSERT_EQ(chmod(source.c_str(), mode), 0);
        this->files.CopyAttributes(source, target);
        struct stat status;
        ASSERT_EQ(stat(target.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, mode);
    }
}

TYPED_TEST(FileSystemContract, CopyAttributes_FileSystemWithoutPermissions_LeavesOutWhatItRefuses) {
    const std::string source = this->folder.Write("a.mp3", "x");
    // The system's own files of a process are such ones: a change of their mode is refused to everybody.
    const std::string target = "/proc/self/comm";
    ASSERT_EQ(chmod(target.c_str(), 0600), -1);
    ASSERT_EQ(errno, EPERM);
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.CopyAttributes(source, target); }), 0);
}

TYPED_TEST(FileSystemContract, CopyAttributes_SourceOrTargetMissing_Fails53) {
    const std::string there = this->folder.Write("a.mp3", "x");
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.CopyAttributes(this->folder / "none", there); }), 53);
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.CopyAttributes(there, this->folder / "none"); }), 53);
}

TYPED_TEST(FileSystemContract, ReplaceFile_TargetIsLink_TheFileBehindItIsReplaced) {
    this->folder.Write("real.mp3", "old");
    std::filesystem::create_symlink("real.mp3", this->folder / "link.mp3");
    this->folder.Write("fresh", "new");
    this->files.ReplaceFile(this->folder / "fresh", this->folder / "link.mp3");
    EXPECT_TRUE(std::filesystem::is_symlink(this->folder / "link.mp3"));
    EXPECT_EQ(this->folder.Read("real.mp3"), "new");
}

TYPED_TEST(FileSystemContract, ReplaceFile_NoTarget_FailsAndKeepsTheNewFile) {
    this->folder.Write("fresh", "new");
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.ReplaceFile(this->folder / "fresh", this->folder / "a"); }),
              53);
    EXPECT_EQ(this->folder.Read("fresh"), "new");
}

TYPED_TEST(FileSystemContract, ReplaceByOpenFile_TakesNameAndAttributesOfTheOld) {
    for (const mode_t mode : {0640U, 0644U, 0666U}) {
        const std::string target = this->folder.Write("a.mp3", "old");
        ASSERT_EQ(chmod(target.c_str(), mode), 0);
        const bool hasAttribute = setxattr(target.c_str(), "user.rating", "5", 1, 0) == 0;
        const auto fresh = this->files.OpenNew(this->folder / "a.mp3.tmp");
        fresh->Write("new");
        EXPECT_TRUE(this->files.ReplaceByOpenFile(*fresh, this->folder / "a.mp3.tmp", target));
        EXPECT_EQ(this->Names(), std::vector<std::string>{"a.mp3"});
        EXPECT_EQ(this->folder.Read("a.mp3"), "new");
        struct stat status;
        ASSERT_EQ(stat(target.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, mode);
        char rating = '\0';
        EXPECT_EQ(getxattr(target.c_str(), "user.rating", &rating, 1), hasAttribute ? 1 : -1);
        EXPECT_FALSE(this->files.FileExists(this->folder / "A.MP3.tmp"));
    }
}

TYPED_TEST(FileSystemContract, ReplaceByOpenFile_TargetInAnotherCaseOrALink_ReplacesTheFileBehindIt) {
    this->folder.Write("Real.mp3", "old");
    std::filesystem::create_symlink("Real.mp3", this->folder / "link.mp3");
    for (const char* name : {"link.mp3", "REAL.mp3"}) {
        const auto fresh = this->files.OpenNew(this->folder / "fresh");
        fresh->Write(name);
        EXPECT_TRUE(this->files.ReplaceByOpenFile(*fresh, this->folder / "fresh", this->folder / name));
        EXPECT_TRUE(std::filesystem::is_symlink(this->folder / "link.mp3"));
        EXPECT_EQ(this->folder.Read("Real.mp3"), name);
    }
}

TYPED_TEST(FileSystemContract, ReplaceByOpenFile_NoTarget_IsNotDone) {
    const auto fresh = this->files.OpenNew(this->folder / "fresh");
    EXPECT_FALSE(this->files.ReplaceByOpenFile(*fresh, this->folder / "fresh", this->folder / "a"));
    EXPECT_EQ(this->Names(), std::vector<std::string>{"fresh"});
}

TYPED_TEST(FileSystemContract, ReplaceByOpenFile_FreshOneGone_Fails53AndKeepsTheOld) {
    this->folder.Write("a.mp3", "old");
    const auto fresh = this->files.OpenNew(this->folder / "fresh");
    std::filesystem::remove(this->folder / "fresh");
    EXPECT_EQ(RuntimeErrorOf([&] {
                  this->files.ReplaceByOpenFile(*fresh, this->folder / "fresh", this->folder / "a.mp3");
              }),
              53);
    EXPECT_EQ(this->folder.Read("a.mp3"), "old");
}

TYPED_TEST(FileSystemContract, BrokenLink_IsNoFileButCanBeDeleted) {
    std::filesystem::create_symlink("nowhere", this->folder / "link");
    EXPECT_FALSE(this->files.FileExists(this->folder / "link"));
    EXPECT_EQ(this->files.OpenRead(this->folder / "link"), nullptr);
    EXPECT_EQ(this->Names(), std::vector<std::string>{"link"});
    this->files.DeleteFile(this->folder / "link", Force::No);
    EXPECT_TRUE(this->Names().empty());
}

TYPED_TEST(FileSystemContract, FollowLinks_GivesTheRealPathInTheSpellingOfTheDisk) {
    this->folder.Write("Real.mp3", "x");
    std::filesystem::create_symlink("Real.mp3", this->folder / "Link.mp3");
    EXPECT_EQ(this->files.FollowLinks(this->folder / "link.mp3"), this->folder / "Real.mp3");
    EXPECT_EQ(this->files.FollowLinks(this->folder / "none"), this->folder / "none");
}

TYPED_TEST(FileSystemContract, Folders_CreateAndDeleteWithContent) {
    this->files.CreateFolder(this->folder / "sub");
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.CreateFolder(this->folder / "SUB"); }), 58);
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.CreateFolder(this->folder / "no/sub"); }), 76);
    this->files.CreateFolder(this->folder / "sub/inner");
    this->folder.Write("sub/inner/a", "x");
    this->folder.Write("outside", "kept");
    std::filesystem::create_directory_symlink(this->folder.Path(), this->folder / "sub/up");
    this->files.DeleteFolder(this->folder / "sub", Force::No);
    EXPECT_EQ(this->Names(), std::vector<std::string>{"outside"});
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.DeleteFolder(this->folder / "sub", Force::No); }), 76);
}

TYPED_TEST(FileSystemContract, List_TellsFoldersAndLinksToThem) {
    this->files.CreateFolder(this->folder / "sub");
    std::filesystem::create_directory_symlink("sub", this->folder / "link");
    this->folder.Write("file", "");
    for (const FolderEntry& entry : this->files.List(this->folder.Path()))
        EXPECT_EQ(entry.isFolder, entry.name != "file") << entry.name;
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.List(this->folder / "none"); }), 76);
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.List(this->folder / "file"); }), 76);
}

TYPED_TEST(FileSystemContract, SetCurrentFolder_MissingOne_Fails76AndStays) {
    const std::string former = this->files.CurrentFolder();
    EXPECT_EQ(RuntimeErrorOf([&] { this->files.SetCurrentFolder(this->folder / "none"); }), 76);
    EXPECT_EQ(this->files.CurrentFolder(), former);
}

TYPED_TEST(FileSystemContract, FolderThatMayNotBeEntered_IsRefusedWithoutHarm) {
    const std::string sub = this->folder / "closed";
    this->files.CreateFolder(sub);
    this->folder.Write("closed/a", "x");
    ASSERT_EQ(chmod(this->folder.Path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(sub.c_str(), 0), 0);
    // Permissions mean nothing to root: be somebody else for the while.
    const bool isRoot = geteuid() == 0;
    ASSERT_TRUE(!isRoot || seteuid(65534) == 0);
    const bool exists = this->files.FileExists(sub + "/a");
    const bool opens = this->files.OpenReadOnly(sub + "/a") != nullptr;
    const int listing = RuntimeErrorOf([&] { this->files.List(sub); });
    const int creating = RuntimeErrorOf([&] { this->files.CreateFolder(sub + "/new"); });
    ASSERT_TRUE(!isRoot || seteuid(0) == 0);
    ASSERT_EQ(chmod(sub.c_str(), 0700), 0);
    EXPECT_FALSE(exists);
    EXPECT_FALSE(opens);
    EXPECT_EQ(listing, 70);
    EXPECT_EQ(creating, 70);
}

TYPED_TEST(FileSystemContract, ToNativePath_BackslashesThatNameNothing_BecomeSeparators) {
    this->folder.Write("as\\is", "x");
    EXPECT_EQ(this->files.ToNativePath(this->folder / "as\\is"), this->folder / "as\\is");
    EXPECT_EQ(this->files.ToNativePath("a\\b.mp3"), "a/b.mp3");
    EXPECT_EQ(this->files.ToNativePath("a/b.mp3"), "a/b.mp3");
}

TYPED_TEST(FileSystemContract, File_ReadWriteSeek_KeepOnePosition) {
    const auto file = this->files.OpenCreate(this->folder / "f");
    file->Write("0123456789");
    EXPECT_EQ(file->Position(), 10);
    EXPECT_TRUE(file->Seek(2, SeekFrom::Start));
    EXPECT_EQ(file->ReadBytes(3), "234");
    EXPECT_TRUE(file->Seek(-1, SeekFrom::Current));
    file->Write("x");
    EXPECT_TRUE(file->Seek(-3, SeekFrom::End));
    EXPECT_EQ(file->ReadBytes(100), "789");
    EXPECT_EQ(file->ReadBytes(1), "");
    EXPECT_EQ(file->Size(), 10);
    EXPECT_EQ(this->folder.Read("f"), "0123x56789");
}

TYPED_TEST(FileSystemContract, File_SeekBeforeTheStart_IsRefusedAndStays) {
    const auto file = this->files.OpenCreate(this->folder / "f");
    file->Write("0123");
    EXPECT_FALSE(file->Seek(-5, SeekFrom::End));
    EXPECT_FALSE(file->Seek(-1, SeekFrom::Start));
    EXPECT_EQ(file->Position(), 4);
}

TYPED_TEST(FileSystemContract, File_PositionBeyond32Bits_Fails6AndStays) {
    const auto file = this->files.OpenCreate(this->folder / "f");
    ASSERT_TRUE(file->Seek(2147483647, SeekFrom::Start));
    EXPECT_EQ(RuntimeErrorOf([&] { file->Seek(1, SeekFrom::Current); }), 6);
    EXPECT_EQ(file->Position(), 2147483647);
    EXPECT_EQ(file->ReadBytes(10), "");
}

TYPED_TEST(FileSystemContract, File_LargerThan32Bits_SizeFails6) {
    const std::string path = this->folder.Write("huge", "");
    std::filesystem::resize_file(path, 2147483648ULL);
    const auto file = this->files.OpenReadOnly(path);
    EXPECT_EQ(RuntimeErrorOf([&] { static_cast<void>(file->Size()); }), 6);
}

TYPED_TEST(FileSystemContract, File_SetEndAndFlush_CutTheFile) {
    const auto file = this->files.OpenCreate(this->folder / "f");
    file->Write("0123456789");
    file->Seek(4, SeekFrom::Start);
    file->SetEnd();
    file->Flush();
    EXPECT_EQ(this->folder.Read("f"), "0123");
}

TYPED_TEST(FileSystemContract, File_WriteToReadOnlyHandle_Fails70) {
    const auto file = this->files.OpenReadOnly(this->folder.Write("f", "x"));
    EXPECT_EQ(RuntimeErrorOf([&] { file->Write("y"); }), 70);
}

TYPED_TEST(FileSystemContract, File_ReadBytes_AllocatesNoMoreThanTheFileHolds) {
    const auto file = this->files.OpenReadOnly(this->folder.Write("f", "abc"));
    EXPECT_EQ(file->ReadBytes(2147483647), "abc");
    EXPECT_EQ(file->ReadBytes(-5), "");
}

TYPED_TEST(FileSystemContract, File_ReadText_EndsBeforeNulAndTrailingBlanks) {
    using namespace std::string_literals;
    const auto file = this->files.OpenReadOnly(this->folder.Write("f", "Title\0rest     \0\0  \0"s));
    EXPECT_EQ(file->ReadText(10), "Title");
    EXPECT_EQ(file->ReadText(7), "");
    EXPECT_EQ(file->ReadText(3), "");
}

}  // namespace
}  // namespace zefta::test
