#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zefta {

/// One value to set, or to delete when `value` is empty.
struct SettingChange {
    std::string section;
    std::string key;
    std::optional<std::string> value;
};

/// A keyed store of texts in sections, kept on disk between runs.
///
/// Section and key names are compared without regard to case (ASCII) and kept as first written. No operation
/// reports a failure: what can't be read is absent, what can't be written stays as it was.
class SettingsStore {
  public:
    SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;
    virtual ~SettingsStore() = default;

    virtual std::optional<std::string> GetValue(const std::string& section, const std::string& key) const = 0;

    /// Makes all changes in one step, on top of what the store holds at that moment: of two processes that
    /// save at the same time, both leave their keys.
    virtual void Apply(const std::vector<SettingChange>& changes) = 0;
};

}  // namespace zefta
