#pragma once

#include <string>

namespace zefta {

/// Whether both paths, exactly as spelled, are one entry of one folder or two names of one file.
bool IsSameEntry(const std::string& a, const std::string& b);

/// Gives `source` the path `target`, exactly as spelled, and never takes the place of anything: RuntimeError
/// 58 when something has that path. Onto another file system a file is copied, brought to the disk, and only
/// then deleted where it was.
void MoveWithoutReplacing(const std::string& source, const std::string& target);

}  // namespace zefta
