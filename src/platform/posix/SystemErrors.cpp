#include "platform/posix/SystemErrors.h"

#include <cerrno>

namespace zefta {

ErrorNumber ErrorNumberOf(int systemError) {
    switch (systemError) {
        case ENOENT:
            return ErrorNumber::FileNotFound;
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        case EEXIST:
        case ENOTEMPTY:
            return ErrorNumber::FileAlreadyExists;
        case EACCES:
        case EPERM:
        case EROFS:
        case EBADF:
        case ETXTBSY:
            return ErrorNumber::PermissionDenied;
        case EISDIR:
            return ErrorNumber::PathFileAccess;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorNumber::DiskFull;
        case ENAMETOOLONG:
        case EINVAL:
        case ELOOP:
            return ErrorNumber::BadFileName;
        case ENOMEM:
            return ErrorNumber::OutOfMemory;
        default:
            return ErrorNumber::DeviceIoError;
    }
}

void ThrowSystemError(const std::string& path) {
    throw RuntimeError(ErrorNumberOf(errno), path);
}

}  // namespace zefta
