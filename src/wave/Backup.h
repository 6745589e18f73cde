#pragma once

#include <string>

#include "platform/FileSystem.h"

namespace zefta {

/// Where the former content of a rewritten file lies: beside the file itself, behind all links, with ".BAK"
/// behind its name.
std::string BackupPath(const FileSystem& files, const std::string& path);

/// RuntimeError 58 when two names of the folder are that of the file, case aside: once the file has
/// moved away, the other one would be taken for it. A single one in another case is the file itself.
void RefuseTwins(const FileSystem& files, const std::string& path);

/// RuntimeError 58 when there is a backup: beside a file that was cut short it may be the only whole copy.
void KeepBackupOf(const FileSystem& files, const std::string& path);

/// Gives the file its backup name; returns that. An older backup goes first: RuntimeError 70, and nothing has
/// changed, when it is read-only.
std::string MoveToBackup(FileSystem& files, const std::string& path);

/// Puts the backup in the place of a file that could not be written to its end: a second try would take that
/// one for the original and delete the only whole copy. Where that is refused too, both stay.
void TakeBackupBack(FileSystem& files, const std::string& path);

/// Deletes the backup once the rewritten file is on the disk: its only other copy goes last. A backup that
/// can't be deleted stays.
void DropBackup(FileSystem& files, const std::string& path);

}  // namespace zefta
