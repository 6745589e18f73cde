#include "platform/posix/RealFolder.h"

#include <sys/stat.h>

#include "platform/Paths.h"
#include "platform/posix/FolderIndex.h"

namespace zefta {

namespace {

constexpr std::chrono::seconds KnownFor(1);

}  // namespace

bool RealFolder::IsPartOf(const std::string& path, FolderIndex& index) {
    const std::lock_guard lock(mutex_);
    const auto isKnown = std::chrono::steady_clock::now() - when_ < KnownFor;
    if (folder_.empty() || !isKnown || FolderPart(path) != folder_) return false;
    const std::string name = NamePart(path);
    if (name.empty() || name == "." || name == "..") return false;
    if (index.SawJustNow(folder_, device_, node_)) return true;
    struct stat status;
    return lstat(folder_.c_str(), &status) == 0 && status.st_dev == device_ && status.st_ino == node_;
}

void RealFolder::Learn(const std::string& path) {
    const std::lock_guard lock(mutex_);
    const std::string folder = FolderPart(path);
    struct stat status;
    folder_.clear();
    if (folder.empty() || stat(folder.c_str(), &status) != 0) return;
    folder_ = folder;
    device_ = status.st_dev;
    node_ = status.st_ino;
    when_ = std::chrono::steady_clock::now();
}

}  // namespace zefta
