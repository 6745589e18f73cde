#pragma once

#include <string>
#include <sys/stat.h>

namespace zefta {

/// Gives the file at `target` the permissions, the owner and the extended attributes of the one at `source`.
/// What the person may not set (another owner) or the file system has not (permissions on a disk of another
/// system) is left out; RuntimeError when one of the files is not there.
void CopyAttributes(const std::string& source, const std::string& target);

/// A file whose status is known.
struct KnownFile {
    const std::string& path;
    const struct stat& status;
};

/// The same without asking for what is known.
void CopyAttributes(const KnownFile& source, const KnownFile& target);

}  // namespace zefta
