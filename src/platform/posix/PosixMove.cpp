#include "platform/posix/PosixMove.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/posix/FileAttributes.h"
#include "platform/posix/NameLookup.h"
#include "platform/posix/OpenFolder.h"
#include "platform/posix/PosixBinaryFile.h"
#include "platform/posix/SystemErrors.h"

namespace zefta {

namespace {

using FileStatus = struct stat;

bool IsOneFile(const FileStatus& first, const FileStatus& second) {
    return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool IsSameFolder(const std::string& a, const std::string& b) {
    FileStatus first;
    FileStatus second;
    return stat(a.empty() ? "." : a.c_str(), &first) == 0 &&
           stat(b.empty() ? "." : b.c_str(), &second) == 0 && IsOneFile(first, second);
}

/// Whether both paths, exactly as spelled, are one entry of one folder or two names of one file that differ
/// in nothing but case.
bool IsSameEntry(const std::string& a, const std::string& b) {
    FileStatus first;
    FileStatus second;
    return ToLower(NamePart(a)) == ToLower(NamePart(b)) && lstat(a.c_str(), &first) == 0 &&
           lstat(b.c_str(), &second) == 0 && IsOneFile(first, second);
}

/// Whether the names, all that its folder has for `target` in any case, are the source alone under a spelling
/// that differs from the target's. On a file system that folds case the source may be given in any.
bool IsOtherSpelling(const std::string& source, const std::string& target,
                     const std::vector<std::string>& names) {
    return names.size() == 1 && names.front() != NamePart(target) &&
           IsSameFolder(FolderPart(source), FolderPart(target)) &&
           IsSameEntry(source, JoinPath(FolderPart(target), names.front()));
}

std::vector<std::string> NamesFor(const std::string& target, FolderIndex& index) {
    return index.NamesInAnyCase(FolderPart(target), NamePart(target));
}

/// One step where the file system can do it, else with a look in between; 0, or -1 with errno set.
int RenameWithoutReplacing(const std::string& source, const std::string& target, FolderIndex& index) {
    if (RenameToFreeName(source, target)) return 0;
    const bool isUnknownCall = errno == EINVAL || errno == ENOSYS;
    if (errno != EEXIST && !isUnknownCall) return -1;
    // Two spellings of one entry on a file system that folds case are no collision.
    if ((!isUnknownCall || EntryExists(target)) &&
        !IsOtherSpelling(source, target, NamesFor(target, index))) {
        errno = EEXIST;
        return -1;
    }
    return rename(source.c_str(), target.c_str());
}

/// A new empty file in the folder of `path`, under a name that nothing has.
std::string CreateBeside(const std::string& path) {
    std::string created = JoinPath(FolderPart(path), ".moving-XXXXXX");
    const int descriptor = mkostemp(created.data(), O_CLOEXEC);
    if (descriptor == -1) ThrowSystemError(path);
    close(descriptor);
    return created;
}

int OpenOrThrow(const std::string& path, int flags) {
    const int descriptor = open(path.c_str(), flags | O_CLOEXEC);
    if (descriptor == -1) ThrowSystemError(path);
    return descriptor;
}

void CopyContent(const std::string& source, const std::string& target) {
    PosixBinaryFile from(OpenOrThrow(source, O_RDONLY), source);
    PosixBinaryFile to(OpenOrThrow(target, O_WRONLY), target);
    std::vector<std::byte> block(1 << 20);
    while (const std::size_t count = from.Read(block))
        to.Write(std::span<const std::byte>(block).first(count));
    to.Flush();
}

void CopyTimes(const std::string& source, const std::string& target) {
    struct stat status;
    if (stat(source.c_str(), &status) == -1) return;
    const timespec times[2] = {status.st_atim, status.st_mtim};
    utimensat(AT_FDCWD, target.c_str(), times, 0);
}

void MoveAcrossFileSystems(const std::string& source, const std::string& target, FolderIndex& index) {
    struct stat status;
    if (lstat(source.c_str(), &status) == -1) ThrowSystemError(source);
    if (!S_ISREG(status.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccess, source);
    const std::string copy = CreateBeside(target);
    try {
        CopyContent(source, copy);
        CopyAttributes(source, copy);
        CopyTimes(source, copy);
        if (RenameWithoutReplacing(copy, target, index) == -1) ThrowSystemError(target);
    } catch (const RuntimeError&) {
        unlink(copy.c_str());
        throw;
    }
    OpenFolder(FolderPart(target)).Flush();
    if (unlink(source.c_str()) == -1) ThrowSystemError(source);
}

}  // namespace

bool RenameToFreeName(const std::string& source, const std::string& target) {
    return renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0;
}

bool IsNameTaken(const std::string& source, const std::string& target, FolderIndex& index) {
    const std::vector<std::string> names = NamesFor(target, index);
    return !names.empty() && !IsOtherSpelling(source, target, names);
}

void MoveWithoutReplacing(const std::string& source, const std::string& target, FolderIndex& index) {
    if (RenameWithoutReplacing(source, target, index) == 0) return;
    if (errno == EXDEV) return MoveAcrossFileSystems(source, target, index);
    const int failure = errno;
    // The system has one number for a file and for a folder that is not there.
    if (failure == ENOENT && EntryExists(source)) throw RuntimeError(ErrorNumber::PathNotFound, target);
    throw RuntimeError(ErrorNumberOf(failure), failure == ENOENT ? source : target);
}

}  // namespace zefta
