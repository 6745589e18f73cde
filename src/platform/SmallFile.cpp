#include "platform/SmallFile.h"

#include <span>

#include "platform/RuntimeError.h"

namespace zefta {

std::optional<std::string> ReadSmallFile(FileSystem& files, const std::string& path, std::size_t limit) {
    try {
        const auto file = files.OpenReadOnly(path);
        if (!file) return std::nullopt;
        // Not as long as the file says: some have no length of their own, and some grow.
        std::string bytes(limit + 1, '\0');
        bytes.resize(file->Read(std::as_writable_bytes(std::span(bytes))));
        if (bytes.size() > limit) return std::nullopt;
        return bytes;
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

}  // namespace zefta
