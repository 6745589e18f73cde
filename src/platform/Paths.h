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

/// The path without ".", doubled separators and the names that ".." takes back, as far as the text tells: the
/// disk is not asked, links are not followed. "." when nothing is left.
std::string LexicalPath(std::string_view path);

/// How one comes to `path` from `folder`, both absolute or both relative to one place: "../b/x" for "a" and
/// "b/x".
std::string PathFrom(std::string_view folder, std::string_view path);

}  // namespace zefta
