#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// What the platform puts between the names of a path.
inline constexpr char PathSeparator = '/';

/// Begins with the separator, or is of the form X:\ or X:/ (a path of another machine, which names nothing
/// here).
bool IsAbsolutePath(std::string_view path);

/// All before the last separator: "/a/b.wav" gives "/a", "b.wav" gives "", "/b.wav" gives "/".
std::string FolderPart(std::string_view path);

/// All behind the last separator.
std::string NamePart(std::string_view path);

/// The folder with one closing separator; "" stays "".
std::string WithClosingSeparator(std::string_view folder);

/// Folder, separator, name. An empty folder gives the name alone.
std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace zefta
