#pragma once

#include <string>

#include "platform/posix/FolderIndex.h"

namespace zefta {

/// Whether an entry has, in any case, the name that `target` is to give to `source`. The source itself is
/// none as long as its spelling changes.
bool IsNameTaken(const std::string& source, const std::string& target, FolderIndex& index);

/// Gives `source` the path `target` when nothing has exactly that path and the file system can tell in the
/// same step. False, and nothing has changed, else.
bool RenameToFreeName(const std::string& source, const std::string& target);

/// Gives `source` the path `target`, exactly as spelled, and never takes the place of anything: RuntimeError
/// 58 when something has that path, 53 without a source, 76 without a folder. Onto another file system a file
/// is copied, brought to the disk, and only then deleted where it was.
void MoveWithoutReplacing(const std::string& source, const std::string& target, FolderIndex& index);

}  // namespace zefta
