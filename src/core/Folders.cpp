#include "core/Folders.h"

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

}  // namespace zefta
