#include "platform/posix/FileAttributes.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

#include "platform/posix/SystemErrors.h"

namespace zefta {

namespace {

/// What a person may not set, or what the file system has not, as those of other systems have no modes.
bool IsRefused(int error) {
    return error == EPERM || error == ENOTSUP;
}

/// False when there are none.
bool CopyExtendedAttributes(const std::string& source, const std::string& target) {
    const ssize_t listLength = listxattr(source.c_str(), nullptr, 0);
    if (listLength <= 0) return false;
    std::vector<char> names(static_cast<std::size_t>(listLength));
    const ssize_t filled = listxattr(source.c_str(), names.data(), names.size());
    for (ssize_t at = 0; at < filled;) {
        const std::string name = &names[static_cast<std::size_t>(at)];
        at += static_cast<ssize_t>(name.size()) + 1;
        const ssize_t length = getxattr(source.c_str(), name.c_str(), nullptr, 0);
        if (length < 0) continue;
        std::vector<char> value(static_cast<std::size_t>(length));
        const ssize_t got = getxattr(source.c_str(), name.c_str(), value.data(), value.size());
        if (got >= 0) setxattr(target.c_str(), name.c_str(), value.data(), static_cast<std::size_t>(got), 0);
    }
    return true;
}

bool IsOfSameOwner(const struct stat& a, const struct stat& b) {
    return a.st_uid == b.st_uid && a.st_gid == b.st_gid;
}

}  // namespace

void CopyAttributes(const std::string& source, const std::string& target) {
    struct stat wanted;
    struct stat given;
    if (stat(source.c_str(), &wanted) == -1) ThrowSystemError(source);
    if (stat(target.c_str(), &given) == -1) ThrowSystemError(target);
    CopyAttributes({source, wanted}, {target, given});
}

void CopyAttributes(const KnownFile& source, const KnownFile& target) {
    const char* path = target.path.c_str();
    const struct stat& wanted = source.status;
    // The owner first: a change of owner takes special permission bits away.
    const bool changesOwner = !IsOfSameOwner(wanted, target.status);
    if (changesOwner && chown(path, wanted.st_uid, wanted.st_gid) == -1) [[maybe_unused]]
        const int groupOnly = chown(path, static_cast<uid_t>(-1), wanted.st_gid);
    // An extended attribute may hold permissions too.
    const bool hasExtended = CopyExtendedAttributes(source.path, target.path);
    if (!changesOwner && !hasExtended && wanted.st_mode == target.status.st_mode) return;
    if (chmod(path, wanted.st_mode & 07777) == -1 && !IsRefused(errno)) ThrowSystemError(target.path);
}

}  // namespace zefta
