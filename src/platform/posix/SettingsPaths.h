#pragma once

#include <string>

namespace zefta {

/// What names a program's subtree of the settings.
struct SettingsProduct {
    std::string company;
    std::string title;
    std::string version;
};

/// The person's store, below the folder of their settings.
std::string UserSettingsPath(const SettingsProduct& product);

/// The machine's store, below the first writable folder of XDG_CONFIG_DIRS, or below the first of all when
/// none is writable.
std::string MachineSettingsPath(const SettingsProduct& product);

}  // namespace zefta
