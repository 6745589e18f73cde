#include "platform/posix/PosixFileSystem.h"

#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Paths.h"
#include "platform/posix/FileAttributes.h"
#include "platform/posix/NameLookup.h"
#include "platform/posix/OpenFolder.h"
#include "platform/posix/PosixBinaryFile.h"
#include "platform/posix/PosixMove.h"
#include "platform/posix/SystemErrors.h"

namespace zefta {

namespace {

using FileStatus = struct stat;

bool LacksWriteBit(const FileStatus& status) {
    return (status.st_mode & S_IWUSR) == 0;
}

constexpr int AlwaysFlags = O_CLOEXEC | O_NONBLOCK;

/// Takes over the descriptor of what is a file and nothing else.
std::unique_ptr<PosixBinaryFile> FileOf(int descriptor, const std::string& path, int flags) {
    if (descriptor == -1) return nullptr;
    FileStatus status;
    const bool isFile = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    const bool refused = (flags & O_ACCMODE) != O_RDONLY && LacksWriteBit(status);
    if (isFile && !refused) return std::make_unique<PosixBinaryFile>(descriptor, status, path);
    close(descriptor);
    return nullptr;
}

/// A pipe or device of that name must not make the program wait.
std::unique_ptr<PosixBinaryFile> Open(const std::string& path, int flags) {
    return FileOf(open(path.c_str(), flags | AlwaysFlags, 0666), path, flags);
}

bool IsDotEntry(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

}  // namespace

std::string PosixFileSystem::Spelled(const std::string& path) const {
    return SpellingOnDisk(path, &index_);
}

/// Status of what the path names, links followed, in any case of its names.
std::optional<struct stat> PosixFileSystem::StatusOf(const std::string& path) const {
    FileStatus status;
    if (stat(path.c_str(), &status) == 0) return status;
    const std::string spelled = Spelled(path);
    if (spelled != path && stat(spelled.c_str(), &status) == 0) return status;
    return std::nullopt;
}

/// Only a name that is not there as it stands pays for the look at other spellings.
std::unique_ptr<BinaryFile> PosixFileSystem::OpenExisting(const std::string& path, int flags) const {
    std::unique_ptr<BinaryFile> file = Open(path, flags);
    if (file || EntryExists(path)) return file;
    return Open(Spelled(path), flags);
}

/// A link whose target may be gone is still an entry; everything else is looked at where it leads.
FolderEntry PosixFileSystem::EntryOf(const std::string& folder, const std::string& name,
                                     unsigned char type) const {
    if (type == DT_REG || type == DT_DIR) return {name, type == DT_DIR};
    const auto status = StatusOf(JoinPath(folder, name));
    const bool isFolder = status && S_ISDIR(status->st_mode);
    return {name, isFolder, status && !isFolder && !S_ISREG(status->st_mode)};
}

bool PosixFileSystem::FileExists(const std::string& path) const {
    const auto status = StatusOf(path);
    return status && !S_ISDIR(status->st_mode);
}

bool PosixFileSystem::FolderExists(const std::string& path) const {
    const auto status = StatusOf(path);
    return status && S_ISDIR(status->st_mode);
}

void PosixFileSystem::DeleteFile(const std::string& path, Force force) {
    const std::string spelled = Spelled(path);
    FileStatus status;
    if (lstat(spelled.c_str(), &status) == -1) ThrowSystemError(path);
    if (S_ISDIR(status.st_mode)) throw RuntimeError(ErrorNumber::PathFileAccess, path);
    if (S_ISREG(status.st_mode) && LacksWriteBit(status) && force == Force::No)
        throw RuntimeError(ErrorNumber::PermissionDenied, path);
    FolderChange change(index_, spelled);
    if (unlink(spelled.c_str()) == -1) ThrowSystemError(path);
    change.Removed(NamePart(spelled));
}

/// The ordinary move: the source is there as spelled, in the same folder, and nobody has the name. True when
/// it was made; else nothing has changed.
bool PosixFileSystem::MoveWithinFolder(const std::string& source, const std::string& target) {
    if (FolderPart(source) != FolderPart(target)) return false;
    FolderChange change(index_, target);
    if (!change.NamesInAnyCase(NamePart(target)).empty() || !RenameToFreeName(source, target)) return false;
    change.Renamed(NamePart(source), NamePart(target));
    return true;
}

void PosixFileSystem::MoveFile(const std::string& source, const std::string& target) {
    if (MoveWithinFolder(source, target)) return;
    const std::string from = Spelled(source);
    const std::string folder = FolderPart(target);
    const std::string to = JoinPath(folder.empty() ? folder : Spelled(folder), NamePart(target));
    if (IsNameTaken(from, to, index_)) {
        if (!EntryExists(from)) throw RuntimeError(ErrorNumber::FileNotFound, source);
        throw RuntimeError(ErrorNumber::FileAlreadyExists, target);
    }
    FolderChange left(index_, from);
    FolderChange entered(index_, to);
    MoveWithoutReplacing(from, to, index_);
    if (left.IsOfSameFolder(entered)) return left.Renamed(NamePart(from), NamePart(to));
    left.Removed(NamePart(from));
    entered.Added(NamePart(to));
}

void PosixFileSystem::ReplaceFile(const std::string& replacement, const std::string& target) {
    const std::string from = Spelled(replacement);
    const std::string to = FollowLinks(target);
    zefta::CopyAttributes(to, from);
    const auto written = Open(from, O_RDONLY);
    if (!written) ThrowSystemError(replacement);
    written->Flush();
    TakeName(OpenFolder(FolderPart(to)), from, to);
}

bool PosixFileSystem::ReplaceByOpenFile(BinaryFile& written, const std::string& replacement,
                                        const std::string& target) {
    const auto* fresh = dynamic_cast<const PosixBinaryFile*>(&written);
    const OpenFolder* folder = fresh != nullptr ? fresh->Folder() : nullptr;
    FileStatus old;
    // Links and names in another case are followed by the one that takes paths.
    if (folder == nullptr || folder->StatusOf(target, old) != 0 || !S_ISREG(old.st_mode))
        return FileSystem::ReplaceByOpenFile(written, replacement, target);
    zefta::CopyAttributes({target, old}, {replacement, fresh->StatusAtOpening()});
    written.Flush();
    TakeName(*folder, replacement, target);
    return true;
}

/// Both exactly as spelled, in that folder.
void PosixFileSystem::TakeName(const OpenFolder& folder, const std::string& from, const std::string& to) {
    FolderChange change(index_, from, &folder);
    if (folder.Rename(from, to) == -1) ThrowSystemError(to);
    change.Removed(NamePart(from));
    folder.Flush();
}

std::unique_ptr<BinaryFile> PosixFileSystem::OpenRead(const std::string& path) {
    return OpenExisting(path, O_RDWR);
}

std::unique_ptr<BinaryFile> PosixFileSystem::OpenReadOnly(const std::string& path) {
    return OpenExisting(path, O_RDONLY);
}

std::unique_ptr<BinaryFile> PosixFileSystem::OpenCreate(const std::string& path) {
    const std::string spelled = Spelled(path);
    const auto status = StatusOf(spelled);
    // Emptied only when it may be written: a read-only file keeps its content, also from root.
    if (status && (LacksWriteBit(*status) || !S_ISREG(status->st_mode))) return nullptr;
    FolderChange change(index_, spelled);
    auto file = Open(spelled, O_RDWR | O_CREAT | O_TRUNC);
    if (file && !status) change.Added(NamePart(spelled));
    return file;
}

std::unique_ptr<BinaryFile> PosixFileSystem::OpenNew(const std::string& path) {
    const std::string folder = FolderPart(path);
    auto open = std::make_unique<const OpenFolder>(folder);
    FolderChange change(index_, path, open.get());
    if (!change.HasFolder()) {
        const std::string spelled = Spelled(folder);
        return spelled == folder ? nullptr : OpenNew(JoinPath(spelled, NamePart(path)));
    }
    for (const std::string& name : change.NamesInAnyCase(NamePart(path))) {
        // The index may not have heard yet that another program took the name away.
        if (EntryExists(JoinPath(folder, name))) return nullptr;
    }
    constexpr int Flags = O_RDWR | O_CREAT | O_EXCL;
    auto file = FileOf(open->Open(path, Flags | AlwaysFlags), path, Flags);
    if (!file) return nullptr;
    change.Added(NamePart(path));
    file->KeepFolder(std::move(open));
    return file;
}

std::int64_t PosixFileSystem::FileSize(const std::string& path) const {
    const auto status = StatusOf(path);
    if (!status) throw RuntimeError(ErrorNumber::FileNotFound, path);
    return status->st_size;
}

std::string PosixFileSystem::ContentStamp(const std::string& path) const {
    const auto status = StatusOf(path);
    if (!status) return {};
    std::string stamp = std::to_string(status->st_ino) + " " + std::to_string(status->st_size);
    for (const timespec& time : {status->st_mtim, status->st_ctim})
        stamp += " " + std::to_string(time.tv_sec) + "." + std::to_string(time.tv_nsec);
    return stamp;
}

bool PosixFileSystem::IsReadOnly(const std::string& path) const {
    const auto status = StatusOf(path);
    if (!status) throw RuntimeError(ErrorNumber::FileNotFound, path);
    return LacksWriteBit(*status);
}

void PosixFileSystem::SetReadOnly(const std::string& path, bool readOnly) {
    const auto status = StatusOf(path);
    if (!status) throw RuntimeError(ErrorNumber::FileNotFound, path);
    constexpr mode_t AllWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;
    const mode_t mode = readOnly ? status->st_mode & ~AllWriteBits : status->st_mode | S_IWUSR;
    if (chmod(Spelled(path).c_str(), mode & 07777) == -1) ThrowSystemError(path);
}

void PosixFileSystem::CopyAttributes(const std::string& source, const std::string& target) {
    zefta::CopyAttributes(Spelled(source), Spelled(target));
}

void PosixFileSystem::CreateFolder(const std::string& path) {
    const std::string spelled = Spelled(path);
    if (EntryExists(spelled)) throw RuntimeError(ErrorNumber::FileAlreadyExists, path);
    FolderChange change(index_, spelled);
    if (mkdir(spelled.c_str(), 0777) == 0) return change.Added(NamePart(spelled));
    if (errno == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound, path);
    ThrowSystemError(path);
}

void PosixFileSystem::DeleteFolder(const std::string& path, Force force) {
    const std::string spelled = Spelled(path);
    FileStatus status;
    if (lstat(spelled.c_str(), &status) == -1 || !S_ISDIR(status.st_mode))
        throw RuntimeError(ErrorNumber::PathNotFound, path);
    for (const FolderEntry& entry : List(spelled)) {
        const std::string inner = JoinPath(spelled, entry.name);
        // A link to a folder is an entry of this folder; where it leads is none of ours.
        const bool isRealFolder = lstat(inner.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
        isRealFolder ? DeleteFolder(inner, force) : DeleteFile(inner, force);
    }
    if (rmdir(spelled.c_str()) == -1) ThrowSystemError(path);
}

std::vector<FolderEntry> PosixFileSystem::List(const std::string& folder) const {
    const std::string spelled = Spelled(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(spelled.c_str()), closedir);
    if (!stream) {
        if (errno == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound, folder);
        ThrowSystemError(folder);
    }
    std::vector<FolderEntry> entries;
    while (const dirent* entry = readdir(stream.get())) {
        if (!IsDotEntry(entry->d_name)) entries.push_back(EntryOf(spelled, entry->d_name, entry->d_type));
    }
    return entries;
}

bool PosixFileSystem::CanChangeFolder(const std::string& folder) const {
    return faccessat(AT_FDCWD, Spelled(folder).c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string PosixFileSystem::CurrentFolder() const {
    const std::unique_ptr<char, void (*)(void*)> folder(getcwd(nullptr, 0), std::free);
    // It was deleted, say. Any other folder in its place would be worked on in error.
    if (!folder) throw RuntimeError(ErrorNumber::PathNotFound);
    return folder.get();
}

void PosixFileSystem::SetCurrentFolder(const std::string& folder) {
    if (chdir(Spelled(folder).c_str()) == 0) return;
    if (errno == ENOENT) throw RuntimeError(ErrorNumber::PathNotFound, folder);
    ThrowSystemError(folder);
}

std::string PosixFileSystem::FollowLinks(const std::string& path) const {
    FileStatus status;
    const bool isLink = lstat(path.c_str(), &status) != 0 || S_ISLNK(status.st_mode);
    if (!isLink && realFolder_.IsPartOf(path, index_)) return path;
    const std::unique_ptr<char, void (*)(void*)> real(realpath(Spelled(path).c_str(), nullptr), std::free);
    if (!real) return path;
    if (path == real.get()) realFolder_.Learn(path);
    return real.get();
}

}  // namespace zefta
