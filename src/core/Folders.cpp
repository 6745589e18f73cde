#include "core/Folders.h"

#include <algorithm>
#include <utility>

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

std::vector<std::string> NamesMeant(std::vector<std::string> names, const std::string& mask) {
    const bool isName = mask.find_first_of("*?") == std::string::npos;
    if (isName && std::find(names.begin(), names.end(), mask) != names.end()) return {mask};
    std::erase_if(names, [&](const std::string& name) { return !MatchesMask(name, mask); });
    return names;
}

std::vector<std::string> FilesIn(const FileSystem& files, const std::string& folder) {
    std::vector<std::string> names;
    for (FolderEntry& entry : files.List(folder)) {
        if (!entry.isFolder && !entry.isSpecial) names.push_back(std::move(entry.name));
    }
    return names;
}

std::vector<std::string> FilesOf(const FileSystem& files, const FolderAndMask& work) {
    std::vector<std::string> names = FilesIn(files, work.folder);
    const bool namesOne = std::find(names.begin(), names.end(), work.mask) != names.end();
    return namesOne ? std::vector{work.mask} : NamesMeant(std::move(names), work.mask);
}

}  // namespace zefta
