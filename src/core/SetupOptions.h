#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/App.h"
#include "core/AppState.h"
#include "platform/DesktopEntries.h"

namespace zefta {

/// All that the options dialog shows and keeps.
struct SetupOptions : EnabledModes {
    bool AutoLoad = false;
    RunSwitches Saved;
    bool FilePropertiesOnDblClick = false;
    bool ShowExecuteWindows = true;
    bool DeleteAfterCompress = false;
    bool DeleteAfterReCompress = false;
    /// Per cent of full scale, 0 to 100.
    std::uint8_t NormalizeLevel = 95;
    std::uint8_t NormalizeAbove = 98;
    std::uint8_t NormalizeBelow = 85;
    /// Paths are bytes.
    bool EnableStartupFolder = false;
    std::string StartupFolder;
    bool EnableExternalLanguage = false;
    std::string ExternalLanguageFile;
    /// "Idle", "Normal" or "High".
    std::string PriorityClass = "Normal";
    std::string CustomRenameTemplate;
    /// Templates that were used before, newest first. A new one is added by SaveSetupOptions.
    std::vector<std::string> RenameTemplates;
    std::array<CustomPreset, 3> CustomLAMEPreset;
    std::array<CustomPreset, 3> CustomOGGPreset;
    std::array<CustomPreset, 3> CustomMPCPreset;
    /// Whether each verb of ShellVerbTable is on.
    std::vector<bool> Verbs;
    /// Of the verb that has one, 0 to 10.
    int OggQuality = 0;
};

/// The words of PriorityClass.
inline constexpr std::array<std::string_view, 3> PriorityClasses = {"Idle", "Normal", "High"};

SetupOptions LoadSetupOptions(App& app, DesktopEntries& desktops);

/// Puts the options into force and stores them: the template and its history first, then everything else, the
/// start with the session and the shell verbs last, then the settings. A language file that is chosen or
/// switched on is checked behind that (CheckLanguageFile). Desktops whose files can't be written are told of
/// in one warning box, and the rest is stored all the same. A store that can't be written leaves everything
/// as it was: its RuntimeError is thrown.
void SaveSetupOptions(App& app, DesktopEntries& desktops, const SetupOptions& options);

/// A level of the normalising as people read it: "95 % (-0.45 dB)".
std::string LevelText(int percent);

/// Per cent of such a text, or of "-0.45 dB" alone, with a decimal point or comma; nothing for a level
/// outside 0 to 100, and for a text that begins with no number.
std::optional<int> LevelOfText(std::string_view text);

}  // namespace zefta
