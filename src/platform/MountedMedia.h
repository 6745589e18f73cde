#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zefta {

/// Where removable media are mounted now, in rising order; empty when that can't be told.
std::vector<std::string> MountedMedia();

/// The same, of the text of a mount table: one mount a line, in columns parted by blanks, with blanks,
/// tabs, line ends and backslashes of a path as three octal digits behind a backslash (fstab(5)). Removable
/// is what is mounted where desktops and people mount media, and every disc.
std::vector<std::string> MediaOf(std::string_view mountTable);

}  // namespace zefta
