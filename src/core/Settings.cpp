#include "core/Settings.h"

#include <charconv>

#include "core/AgentTexts.h"
#include "core/SettingsTable.h"
#include "core/Strings.h"

namespace zefta {

namespace {

constexpr auto SettingsSection = "Settings";

void ReadAll(App& app) {
    for (const Setting& setting : SettingsTable()) {
        if (const auto text = app.userSettings.GetValue(SettingsSection, setting.key))
            ReadSetting(setting.slot(app.state, setting.index), *text);
    }
}

/// Settings whose truth lies on disk: a folder or file that is gone switches its use off.
void CheckPaths(App& app) {
    AppState& state = app.state;
    if (!state.StartupFolder.empty() && state.EnableStartupFolder &&
        app.files.FolderExists(state.StartupFolder))
        state.CurrentFolder = state.StartupFolder;
    if (state.ExternalLanguageFile.empty() || !app.files.FileExists(state.ExternalLanguageFile))
        state.EnableExternalLanguage = false;
}

/// The code page of the person's language, unless the settings name another.
void ChooseCodePage(App& app) {
    const std::string text = Trim(app.userSettings.GetValue(SettingsSection, "AnsiCodePage").value_or(""));
    int number = CodePageOfLanguage(app.machine.language);
    std::from_chars(text.data(), text.data() + text.size(), number);
    app.ansi = LoadCodePage(number);
}

std::vector<SettingChange> ChangesOf(App& app, Saver saver) {
    std::vector<SettingChange> changes;
    for (const Setting& setting : SettingsTable()) {
        if (setting.saver == saver)
            changes.push_back(
                {SettingsSection, setting.key, SettingText(setting.slot(app.state, setting.index))});
    }
    return changes;
}

}  // namespace

void LoadSettings(App& app) {
    app.state = AppState();
    app.state.CurrentFolder = app.machine.musicFolder;
    ReadAll(app);
    static_cast<RunSwitches&>(app.state) = app.state.Saved;
    CheckPaths(app);
    ChooseCodePage(app);
}

void LoadPriorityClass(App& app) {
    const std::string name =
        AsciiLower(app.userSettings.GetValue(SettingsSection, "PriorityClass").value_or("Normal"));
    app.state.PriorityClass = name == "idle" ? IdlePriority : name == "high" ? HighPriority : NormalPriority;
}

void SaveMainSettings(App& app) {
    app.userSettings.Apply(ChangesOf(app, Saver::Main));
}

void SaveSettings(App& app) {
    std::vector<SettingChange> changes = ChangesOf(app, Saver::Options);
    for (SettingChange& text : AgentTexts(app)) changes.push_back(std::move(text));
    app.userSettings.Apply(changes);
}

void SaveCompressCDSettings(App& app) {
    app.userSettings.Apply(ChangesOf(app, Saver::CompressCD));
}
void SaveRenameSettings(App& app) {
    app.userSettings.Apply(ChangesOf(app, Saver::Rename));
}
void SaveChangeTagsSettings(App& app) {
    app.userSettings.Apply(ChangesOf(app, Saver::ChangeTags));
}

}  // namespace zefta
