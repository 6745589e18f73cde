#include "library/RenameMap.h"

#include "platform/Text.h"

namespace zefta {

void RenameMap::Add(const std::string& path, const std::string& newName) {
    const auto [entry, isNew] = names_.emplace(path, newName);
    if (isNew) folded_.emplace(ToLower(path), &entry->second);
}

const std::string* RenameMap::Find(const std::string& path) const {
    if (names_.empty()) return nullptr;
    const auto exact = names_.find(path);
    if (exact != names_.end()) return &exact->second;
    const auto folded = folded_.find(ToLower(path));
    return folded == folded_.end() ? nullptr : folded->second;
}

}  // namespace zefta
