#include "core/DeleteQuietly.h"

#include "platform/RuntimeError.h"

namespace zefta {

void DeleteQuietly(FileSystem& files, const std::string& path) {
    try {
        files.DeleteFile(path, Force::Yes);
    } catch (const RuntimeError&) {
        // It is not there, or it stays.
    }
}

}  // namespace zefta
