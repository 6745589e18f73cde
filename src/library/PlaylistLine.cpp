#include "library/PlaylistLine.h"

#include <algorithm>

#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

namespace {

bool Exists(const FileSystem& files, const std::string& path) {
    return files.FileExists(path) || files.FolderExists(path);
}

/// The folder stands as it is, whatever its name holds.
std::string PathOf(const std::string& folder, std::string_view line) {
    return line.starts_with(PathSeparator) ? std::string(line) : JoinPath(folder, line);
}

/// A backslash in front is none of the separators that begin a full path.
std::string WithSeparators(const std::string& folder, std::string_view line) {
    std::string path = PathOf(folder, line);
    const auto start = path.end() - static_cast<std::ptrdiff_t>(line.size());
    std::replace(start, path.end(), '\\', PathSeparator);
    return path;
}

}  // namespace

std::string PathOfPlaylistLine(const FileSystem& files, const CodePage& ansi, const std::string& folder,
                               std::string_view line) {
    if (line.empty() || line.find('\0') != std::string_view::npos) return {};
    const std::string asItStands = PathOf(folder, line);
    const bool isOfOtherMachine = IsAbsolutePath(line) && !line.starts_with(PathSeparator);
    const bool hasBackslash = line.find('\\') != std::string_view::npos;
    const bool isText = IsValidUtf8(line);
    if (!isOfOtherMachine && !hasBackslash && isText) return asItStands;
    if (Exists(files, asItStands)) return asItStands;
    if (isOfOtherMachine) return {};
    const std::string native = WithSeparators(folder, line);
    if (isText || Exists(files, native)) return native;
    const std::string decoded = ansi.Decode(line);
    const std::string inCodePage = PathOf(folder, decoded);
    return Exists(files, inCodePage) ? inCodePage : WithSeparators(folder, decoded);
}

}  // namespace zefta
