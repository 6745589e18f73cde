#include "platform/posix/NameLookup.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

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
            // Of several the first in byte order: the choice must not hang on how the folder lies on disk.
            const std::vector<std::string> others = NamesInAnyCase(spelled, name);
            if (others.empty()) return spelled + path.substr(start);
            name = others.front();
        }
        spelled += name;
        if (end < path.size()) spelled += PathSeparator;
        start = end + 1;
    }
    return spelled;
}

std::vector<std::string> NamesInAnyCase(const std::string& folder, const std::string& name) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()),
                                                      closedir);
    std::vector<std::string> names;
    if (!entries) return names;
    while (const dirent* entry = readdir(entries.get())) {
        if (EqualsIgnoringCase(entry->d_name, name)) names.emplace_back(entry->d_name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace zefta
