#include "core/History.h"

#include <algorithm>

#include "core/Numbers.h"

namespace zefta {

namespace {

constexpr auto HistorySection = "History";

/// The keys of one list: how many, and the entries counted from 0.
struct HistoryKeys {
    std::string count;
    std::string entry;
};

const HistoryKeys FolderKeys = {"FoldersCount", "Folder"};
const HistoryKeys TemplateKeys = {"RenameTemplatesCount", "RenameTemplate"};

std::size_t StoredCount(const SettingsStore& store, const HistoryKeys& keys) {
    const double number = LeadingNumber(store.GetValue(HistorySection, keys.count).value_or("0"));
    // A store that a person edited may hold any number; nothing beyond the limit was ever written.
    return static_cast<std::size_t>(std::clamp(number, 0.0, static_cast<double>(HistoryLimit)));
}

std::vector<std::string> Load(const SettingsStore& store, const HistoryKeys& keys) {
    std::vector<std::string> entries;
    for (std::size_t i = 0; i < StoredCount(store, keys); ++i) {
        if (const auto entry = store.GetValue(HistorySection, keys.entry + std::to_string(i)))
            entries.push_back(*entry);
    }
    return entries;
}

void Save(SettingsStore& store, const HistoryKeys& keys, const std::vector<std::string>& entries) {
    const std::size_t count = std::min(entries.size(), HistoryLimit);
    std::vector<SettingChange> changes = {{HistorySection, keys.count, std::to_string(count)}};
    for (std::size_t i = 0; i < HistoryLimit; ++i) {
        const std::string key = keys.entry + std::to_string(i);
        changes.push_back({HistorySection, key, i < count ? std::optional(entries[i]) : std::nullopt});
    }
    store.Apply(changes);
}

}  // namespace

std::vector<std::string> LoadRecentFolders(const SettingsStore& store) {
    return Load(store, FolderKeys);
}
std::vector<std::string> LoadRenameTemplates(const SettingsStore& store) {
    return Load(store, TemplateKeys);
}

std::vector<std::string> WithTemplate(std::vector<std::string> templates, const std::string& added) {
    const bool isThere = std::find(templates.begin(), templates.end(), added) != templates.end();
    if (!added.empty() && !isThere) templates.insert(templates.begin(), added);
    return templates;
}

void SaveRecentFolders(SettingsStore& store, const std::vector<std::string>& folders) {
    Save(store, FolderKeys, folders);
}

void SaveRenameTemplates(SettingsStore& store, const std::vector<std::string>& templates) {
    Save(store, TemplateKeys, templates);
}

}  // namespace zefta
