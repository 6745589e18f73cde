#include "platform/posix/NameLookup.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

#include "platform/Paths.h"
#include "platform/Text.h"
#include "platform/posix/FolderIndex.h"

namespace zefta {

bool EntryExists(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

std::string SpellingOnDisk(const std::string& path, FolderIndex* index) {
    if (EntryExists(path)) return path;
    std::string spelled;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find(PathSeparator, start), path.size());
        std::string name = path.substr(start, end - start);
        if (!name.empty() && !EntryExists(spelled + name)) {
            // Of several the first in byte order: the choice must not hang on how the folder lies on disk.
            const std::vector<std::string> others =
                index != nullptr ? index->NamesInAnyCase(spelled, name) : NamesInAnyCase(spelled, name);
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
    std::vector<std::string> names;
    ForEachName(folder, [&](const char* entry) {
        if (EqualsIgnoringCase(entry, name)) names.emplace_back(entry);
    });
    std::sort(names.begin(), names.end());
    return names;
}

void ForEachName(const std::string& folder, const std::function<void(const char* name)>& step) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()),
                                                      closedir);
    if (!entries) return;
    while (const dirent* entry = readdir(entries.get())) step(entry->d_name);
}

}  // namespace zefta
