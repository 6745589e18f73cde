#include "platform/posix/PosixMove.h"

#include <cerrno>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/posix/FileAttributes.h"
#include "platform/posix/NameLookup.h"
#include "platform/posix/PosixBinaryFile.h"
#include "platform/posix/SystemErrors.h"

namespace zefta {

namespace {

/// One step where the file system can do it, else with a look in between; 0, or -1 with errno set.
int RenameWithoutReplacing(const std::string& source, const std::string& target) {
    if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return -1;
    // Two spellings of one entry on a file system that folds case are no collision.
    if (EntryExists(target) && !IsSameEntry(source, target)) {
        errno = EEXIST;
        return -1;
    }
    return rename(source.c_str(), target.c_str());
}

int OpenOrThrow(const std::string& path, int flags) {
    const int descriptor = open(path.c_str(), flags | O_CLOEXEC, 0600);
    if (descriptor == -1) ThrowSystemError(path);
    return descriptor;
}

void CopyContent(const std::string& source, const std::string& target) {
    PosixBinaryFile from(OpenOrThrow(source, O_RDONLY), source);
    PosixBinaryFile to(OpenOrThrow(target, O_WRONLY | O_CREAT | O_EXCL), target);
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

void MoveAcrossFileSystems(const std::string& source, const std::string& target) {
    struct stat status;
    if (lstat(source.c_str(), &status) == -1) ThrowSystemError(source);
    if (!S_ISREG(status.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccess, source);
    const std::string copy = target + ".moving";
    try {
        CopyContent(source, copy);
        CopyAttributes(source, copy);
        CopyTimes(source, copy);
        if (RenameWithoutReplacing(copy, target) == -1) ThrowSystemError(target);
    } catch (const RuntimeError&) {
        unlink(copy.c_str());
        throw;
    }
    FlushFolder(FolderPart(target));
    if (unlink(source.c_str()) == -1) ThrowSystemError(source);
}

}  // namespace

bool IsSameEntry(const std::string& a, const std::string& b) {
    if (ToLower(NamePart(a)) != ToLower(NamePart(b))) return false;
    struct stat first;
    struct stat second;
    return lstat(a.c_str(), &first) == 0 && lstat(b.c_str(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

void MoveWithoutReplacing(const std::string& source, const std::string& target) {
    if (RenameWithoutReplacing(source, target) == 0) return;
    if (errno != EXDEV) ThrowSystemError(target);
    MoveAcrossFileSystems(source, target);
}

}  // namespace zefta
