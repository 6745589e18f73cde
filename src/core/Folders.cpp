#include "core/Folders.h"

#include <algorithm>

#include "core/Strings.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

std::string ChangeToFolder(FileSystem& files, const std::string& path) {
    if (path.empty()) return {};
    try {
        files.SetCurrentFolder(path);
        return path;
    } catch (const RuntimeError&) {
        return {};
    }
}

FolderAndMask SplitFileSpec(const FileSystem& files, const std::string& fileSpec) {
    const std::string native = files.ToNativePath(fileSpec);
    const std::string folder = FolderPart(native);
    if (folder.empty()) return {files.CurrentFolder(), native};
    if (IsAbsolutePath(native)) return {folder, NamePart(native)};
    return {JoinPath(files.CurrentFolder(), folder), NamePart(native)};
}

std::vector<std::string> FilesOf(const FileSystem& files, const FolderAndMask& work) {
    const std::vector<FolderEntry> entries = files.List(work.folder);
    const auto isFile = [](const FolderEntry& entry) { return !entry.isFolder && !entry.isSpecial; };
    const bool namesOne = std::any_of(entries.begin(), entries.end(), [&](const FolderEntry& entry) {
        return isFile(entry) && entry.name == work.mask;
    });
    if (namesOne) return {work.mask};
    std::vector<std::string> names;
    for (const FolderEntry& entry : entries) {
        if (isFile(entry) && MatchesMask(entry.name, work.mask)) names.push_back(entry.name);
    }
    return names;
}

}  // namespace zefta
