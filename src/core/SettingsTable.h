#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "core/AppState.h"

namespace zefta {

/// Which routine writes a setting.
enum class Saver { Main, Options, CompressCD, Rename, ChangeTags };

/// The field of a setting.
using SettingSlot = std::variant<bool*, std::int16_t*, std::uint8_t*, std::string*>;

/// A key of section "Settings" that LoadSettings reads. Its default is the field's value in a fresh AppState.
struct Setting {
    std::string key;
    Saver saver;
    SettingSlot (*slot)(AppState& state, std::size_t index);
    /// Which of several alike fields, counted from 0.
    std::size_t index = 0;
};

/// All of them, in the order in which they are read.
const std::vector<Setting>& SettingsTable();

/// The form of a value on disk: decimal, "True" or "False", or the text itself.
std::string SettingText(const SettingSlot& slot);

/// Reads that form into the field. False, and the field keeps its value, when the text is no value of the
/// field's kind.
bool ReadSetting(const SettingSlot& slot, const std::string& text);

}  // namespace zefta
