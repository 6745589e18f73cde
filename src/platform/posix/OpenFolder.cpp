#include "platform/posix/OpenFolder.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include "platform/Paths.h"

namespace zefta {

OpenFolder::OpenFolder(const std::string& folder)
    : descriptor_(open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}

OpenFolder::~OpenFolder() {
    if (IsOpen()) close(descriptor_);
}

OpenFolder::Place OpenFolder::PlaceOf(const std::string& path) const {
    if (!IsOpen()) return {AT_FDCWD, path.c_str()};
    const std::size_t separator = path.rfind(PathSeparator);
    return {descriptor_, path.c_str() + (separator == std::string::npos ? 0 : separator + 1)};
}

int OpenFolder::Status(struct stat& status) const {
    return fstat(descriptor_, &status);
}

int OpenFolder::StatusOf(const std::string& path, struct stat& status) const {
    const Place place = PlaceOf(path);
    return fstatat(place.folder, place.name, &status, AT_SYMLINK_NOFOLLOW);
}

int OpenFolder::Open(const std::string& path, int flags) const {
    constexpr mode_t UsualPermissions = 0666;
    const Place place = PlaceOf(path);
    return openat(place.folder, place.name, flags, UsualPermissions);
}

int OpenFolder::Rename(const std::string& from, const std::string& to) const {
    const Place source = PlaceOf(from);
    const Place target = PlaceOf(to);
    return renameat(source.folder, source.name, target.folder, target.name);
}

void OpenFolder::Flush() const {
    if (IsOpen()) fsync(descriptor_);
}

}  // namespace zefta
