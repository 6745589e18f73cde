#include "platform/posix/NameLookup.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <optional>
#include <sys/stat.h>

#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

namespace {

/// The name in the folder that equals `name` but for case. Of several the first in byte order, so that the
/// choice does not hang on how the folder lies on disk.
std::optional<std::string> NameInAnotherCase(const std::string& folder, const std::string& name) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()),
                                                      closedir);
    if (!entries) return std::nullopt;
    const std::string wanted = ToLower(name);
    std::optional<std::string> found;
    while (const dirent* entry = readdir(entries.get())) {
        const std::string candidate = entry->d_name;
        if (ToLower(candidate) == wanted && (!found || candidate < *found)) found = candidate;
    }
    return found;
}

}  // namespace

bool EntryExists(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

std::string SpellingOnDisk(const std::string& path) {
    if (EntryExists(path)) return path;
    std::string spelled;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find(PathSeparator, start), path.size());
        std::string name = path.substr(start, end - start);
        if (!name.empty() && !EntryExists(spelled + name)) {
            const auto other = NameInAnotherCase(spelled, name);
            if (!other) return spelled + path.substr(start);
            name = *other;
        }
        spelled += name;
        if (end < path.size()) spelled += PathSeparator;
        start = end + 1;
    }
    return spelled;
}

}  // namespace zefta
