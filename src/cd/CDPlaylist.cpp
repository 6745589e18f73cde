#include "cd/CDPlaylist.h"

#include <utility>

#include "library/TextTarget.h"

namespace zefta {

CDPlaylist::CDPlaylist(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {
    const bool isNew = !files.FileExists(path_);
    TextTarget target(files, path_);
    if (isNew) target.Put({});
}

void CDPlaylist::Add(const std::string& name) {
    lines_ += name + "\n";
    TextTarget(files_, path_).Put(lines_);
}

}  // namespace zefta
