#include "library/RenameMap.h"

#include "platform/Paths.h"
#include "platform/Text.h"

namespace zefta {

void RenameMap::Add(const std::string& path, const std::string& newName, const std::string& countsFrom) {
    const std::string key = LexicalPath(path);
    const auto [entry, isNew] = names_.emplace(key, RenamedEntry{newName, countsFrom});
    if (isNew) folded_.emplace(ToLower(key), &entry->second);
}

const RenamedEntry* RenameMap::Find(const std::string& path) const {
    if (names_.empty()) return nullptr;
    const std::string key = LexicalPath(path);
    const auto exact = names_.find(key);
    if (exact != names_.end()) return &exact->second;
    const auto folded = folded_.find(ToLower(key));
    return folded == folded_.end() ? nullptr : folded->second;
}

bool RenameMap::Holds(const std::string& path) const {
    return names_.contains(LexicalPath(path));
}

}  // namespace zefta
