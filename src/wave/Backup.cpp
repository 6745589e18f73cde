#include "wave/Backup.h"

#include <memory>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace zefta {

std::string BackupPath(const FileSystem& files, const std::string& path) {
    return files.FollowLinks(path) + ".BAK";
}

void RefuseTwins(const FileSystem& files, const std::string& path) {
    const std::string name = NamePart(path);
    std::string spelling;
    for (const FolderEntry& entry : files.List(FolderPart(path))) {
        if (!EqualsIgnoringCase(entry.name, name)) continue;
        if (!spelling.empty() && entry.name != spelling)
            throw RuntimeError(ErrorNumber::FileAlreadyExists, path);
        spelling = entry.name;
    }
}

void KeepBackupOf(const FileSystem& files, const std::string& path) {
    const std::string backup = BackupPath(files, path);
    if (files.FileExists(backup)) throw RuntimeError(ErrorNumber::FileAlreadyExists, backup);
}

std::string MoveToBackup(FileSystem& files, const std::string& path) {
    const std::string backup = BackupPath(files, path);
    if (files.FileExists(backup)) files.DeleteFile(backup, Force::No);
    files.MoveFile(path, backup);
    return backup;
}

void TakeBackupBack(FileSystem& files, const std::string& path) {
    try {
        files.DeleteFile(path, Force::Yes);
        files.MoveFile(BackupPath(files, path), path);
    } catch (const RuntimeError&) {
        // The failure that brought us here is the one to tell.
    }
}

void DropBackup(FileSystem& files, const std::string& path) {
    const auto file = files.OpenRead(path);
    if (!file) return;
    file->Flush();
    try {
        files.DeleteFile(BackupPath(files, path), Force::No);
    } catch (const RuntimeError&) {
        // Nobody waits for it to go.
    }
}

}  // namespace zefta
