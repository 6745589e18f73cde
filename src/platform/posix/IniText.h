#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SettingsStore.h"

namespace zefta {

/// A text of sections and keys, line by line as a person may have edited it. Comments, blank lines and lines
/// that are neither stay where they are and as they are.
class IniText {
  public:
    explicit IniText(std::string_view text);

    std::optional<std::string> GetValue(std::string_view section, std::string_view key) const;
    void Apply(const SettingChange& change);
    std::string Text() const;

  private:
    struct Line {
        std::string raw;
        std::string section;
        /// "" for a line that is no key.
        std::string key;
        std::string value;
        bool isHeading = false;
    };

    std::vector<Line> lines_;

    static auto Names(std::string_view section, std::string_view key);
    void Insert(const SettingChange& change);
};

}  // namespace zefta
