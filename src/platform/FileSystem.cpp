#include "platform/FileSystem.h"

#include <algorithm>

#include "platform/Paths.h"

namespace zefta {

bool FileSystem::ReplaceByOpenFile(BinaryFile&, const std::string& replacement, const std::string& target) {
    if (!FileExists(target)) return false;
    ReplaceFile(replacement, target);
    return true;
}

std::string FileSystem::ToNativePath(const std::string& path) const {
    if (path.find('\\') == std::string::npos || FileExists(path) || FolderExists(path)) return path;
    std::string native = path;
    std::replace(native.begin(), native.end(), '\\', PathSeparator);
    return native;
}

}  // namespace zefta
