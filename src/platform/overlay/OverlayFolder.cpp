#include "platform/overlay/OverlayFolder.h"

#include <algorithm>
#include <utility>

#include "platform/Text.h"

namespace zefta {

OverlayNode* OverlayFolder::Find(const std::string& name) {
    OverlayNode* best = nullptr;
    const auto [first, last] = byLowerCase_.equal_range(ToLower(name));
    for (auto entry = first; entry != last; ++entry) {
        OverlayNode& node = nodes_.at(entry->second);
        if (node.name == name) return &node;
        if (best == nullptr || node.name < best->name) best = &node;
    }
    return best;
}

bool OverlayFolder::IsTaken(const std::string& name, const OverlayNode* except) {
    const auto [first, last] = byLowerCase_.equal_range(ToLower(name));
    return std::any_of(first, last, [&](const auto& entry) { return &nodes_.at(entry.second) != except; });
}

OverlayNode& OverlayFolder::Add(OverlayNode node) {
    const std::uint64_t place = next_++;
    byLowerCase_.emplace(ToLower(node.name), place);
    return nodes_.emplace(place, std::move(node)).first->second;
}

OverlayFolder::Index::iterator OverlayFolder::IndexOf(const OverlayNode& node) {
    const auto [first, last] = byLowerCase_.equal_range(ToLower(node.name));
    return std::find_if(first, last, [&](const auto& entry) { return &nodes_.at(entry.second) == &node; });
}

void OverlayFolder::Erase(const OverlayNode& node) {
    const auto entry = IndexOf(node);
    const std::uint64_t place = entry->second;
    byLowerCase_.erase(entry);
    nodes_.erase(place);
}

void OverlayFolder::Rename(OverlayNode& node, const std::string& name) {
    const auto entry = IndexOf(node);
    const std::uint64_t place = entry->second;
    byLowerCase_.erase(entry);
    node.name = name;
    byLowerCase_.emplace(ToLower(name), place);
}

std::vector<FolderEntry> OverlayFolder::Entries() const {
    std::vector<FolderEntry> entries;
    for (const auto& [place, node] : nodes_) entries.push_back({node.name, node.isFolder, node.isSpecial});
    return entries;
}

}  // namespace zefta
