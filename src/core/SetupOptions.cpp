#include "core/SetupOptions.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "core/Agent.h"
#include "core/Boxes.h"
#include "core/ByteCodec.h"
#include "core/History.h"
#include "core/LanguageFile.h"
#include "core/Numbers.h"
#include "core/Settings.h"
#include "core/ShellVerbs.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "platform/RuntimeError.h"
#include "platform/StoreOutcome.h"

namespace zefta {

namespace {

constexpr int UsualOggQuality = 8;
constexpr std::string_view Decibels = "dB";

/// The fields that dialog and state have in common, by the same names.
template <typename From, typename To>
void CopyCommonFields(const From& from, To& to) {
    static_cast<EnabledModes&>(to) = from;
    to.Saved = from.Saved;
    to.FilePropertiesOnDblClick = from.FilePropertiesOnDblClick;
    to.ShowExecuteWindows = from.ShowExecuteWindows;
    to.DeleteAfterCompress = from.DeleteAfterCompress;
    to.DeleteAfterReCompress = from.DeleteAfterReCompress;
    to.NormalizeLevel = from.NormalizeLevel;
    to.NormalizeAbove = from.NormalizeAbove;
    to.NormalizeBelow = from.NormalizeBelow;
    to.EnableStartupFolder = from.EnableStartupFolder;
    to.StartupFolder = from.StartupFolder;
    to.EnableExternalLanguage = from.EnableExternalLanguage;
    to.ExternalLanguageFile = from.ExternalLanguageFile;
    to.CustomRenameTemplate = from.CustomRenameTemplate;
    to.CustomLAMEPreset = from.CustomLAMEPreset;
    to.CustomOGGPreset = from.CustomOGGPreset;
    to.CustomMPCPreset = from.CustomMPCPreset;
}

std::string StoredPriority(const App& app) {
    const std::string stored = app.userSettings.GetValue("Settings", "PriorityClass").value_or("");
    for (const std::string_view name : PriorityClasses) {
        if (EqualsIgnoringAsciiCase(stored, name)) return std::string(name);
    }
    return "Normal";
}

bool BeginsWithNumber(std::string_view text) {
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
    if (text.starts_with('.')) text.remove_prefix(1);
    return text.find_first_of("0123456789") == 0;
}

/// Runs steps of which each may fail, all of them; the first failure is told in the end.
class Attempts {
  public:
    void Try(const std::function<void()>& step) {
        try {
            step();
        } catch (const RuntimeError& error) {
            if (!failure_) failure_ = error;
        }
    }

    void Tell(App& app) const {
        if (failure_) CheckRuntimeError(app, [this] { throw RuntimeError(*failure_); });
    }

  private:
    std::optional<RuntimeError> failure_;
};

bool IsNewLanguage(const AppState& state, const SetupOptions& options) {
    return options.EnableExternalLanguage &&
           (!state.EnableExternalLanguage || state.ExternalLanguageFile != options.ExternalLanguageFile);
}

void CopyToState(App& app, const SetupOptions& options) {
    AppState& state = app.state;
    CopyCommonFields(options, state);
    // What the person chooses now is meant for now, whatever the command line said.
    static_cast<RunSwitches&>(state) = state.Saved;
    // The texts of the file are in force for whatever is shown from now on.
    app.messages.LanguageStrings.clear();
    app.messages.LoadLanguageFile();
}

/// A file that is not there or has not a single text has switched itself off.
void TellOfLanguage(App& app) {
    constexpr std::int32_t NotFound = 1009;
    constexpr std::int32_t NotValid = 1002;
    const std::string& path = app.state.ExternalLanguageFile;
    if (app.state.EnableExternalLanguage) {
        CheckLanguageFile(app);
    } else if (!path.empty() && app.files.FileExists(path)) {
        ShowWarning(app, app.ansi.ToText(path) + "\n\n" + app.messages.GetMessage(NotValid));
    } else if (!path.empty()) {
        ShowWarning(app, app.messages.GetMessage(NotFound, app.ansi.ToText(path)));
    }
}

void SetAutoLoad(App& app, DesktopEntries& desktops, bool isOn) {
    const std::string name = ApplicationTitle();
    if (isOn) {
        desktops.StartWithSession(name, AgentCommand(app));
    } else {
        desktops.KeepFromSession(name);
    }
}

/// One quality has the verb: the entry of the one before goes.
void RemoveOtherQualities(ShellVerbs& verbs, Attempts& attempts, const SetupOptions& options) {
    const std::vector<ShellVerb> meant = ShellVerbTable(options.OggQuality);
    for (int quality = 0; quality <= HighestOggQuality; ++quality) {
        for (const ShellVerb& verb : ShellVerbTable(quality)) {
            if (std::find(meant.begin(), meant.end(), verb) == meant.end())
                attempts.Try([&] { verbs.RegisterShellVerb(verb.Class, verb.Verb, verb.Parameters, false); });
        }
    }
}

void RegisterVerbs(App& app, DesktopEntries& desktops, const SetupOptions& options, Attempts& attempts) {
    ShellVerbs verbs(app, desktops);
    const std::vector<ShellVerb> table = ShellVerbTable(options.OggQuality);
    for (std::size_t i = 0; i < table.size(); ++i) {
        const ShellVerb& verb = table[i];
        const bool isOn = i < options.Verbs.size() && options.Verbs[i];
        attempts.Try([&] { verbs.RegisterShellVerb(verb.Class, verb.Verb, verb.Parameters, isOn); });
    }
    RemoveOtherQualities(verbs, attempts, options);
}

}  // namespace

SetupOptions LoadSetupOptions(App& app, DesktopEntries& desktops) {
    SetupOptions options;
    CopyCommonFields(app.state, options);
    options.AutoLoad = desktops.StartsWithSession(ApplicationTitle());
    options.PriorityClass = StoredPriority(app);
    options.RenameTemplates = LoadRenameTemplates(app.userSettings);
    const ShellVerbs verbs(app, desktops);
    options.OggQuality = verbs.OggQuality().value_or(UsualOggQuality);
    for (const ShellVerb& verb : ShellVerbTable(options.OggQuality))
        options.Verbs.push_back(verbs.IsOn(verb));
    return options;
}

void SaveSetupOptions(App& app, DesktopEntries& desktops, const SetupOptions& options) {
    SaveRenameTemplates(app.userSettings,
                        WithTemplate(options.RenameTemplates, options.CustomRenameTemplate));
    // Ahead of all that follows: entries in menus of the desktop whose keys were not kept would be nobody's.
    ExpectStored(app.userSettings);
    const bool isNewLanguage = IsNewLanguage(app.state, options);
    CopyToState(app, options);
    Attempts attempts;
    attempts.Try([&] { SetAutoLoad(app, desktops, options.AutoLoad); });
    app.userSettings.Apply({{"Settings", "PriorityClass", options.PriorityClass}});
    LoadPriorityClass(app);
    RegisterVerbs(app, desktops, options, attempts);
    SaveSettings(app);
    attempts.Try([&] { ExpectStored(app.userSettings); });
    // A poor file has hundreds of boxes, and whoever ends the program out of them keeps the settings.
    if (isNewLanguage) TellOfLanguage(app);
    attempts.Tell(app);
}

std::string LevelText(int percent) {
    if (percent <= 0) return "0 %";
    std::string level = std::to_string(percent) + " % (";
    const double decibels = ByteCodec::RatioToDb(percent / 100.0);
    const int hundredths = static_cast<int>(std::lround(std::abs(decibels) * 100));
    const std::string fraction = std::to_string(hundredths % 100);
    level += (hundredths > 0 ? "-" : "") + std::to_string(hundredths / 100) + ".";
    return level + (fraction.size() < 2 ? "0" : "") + fraction + " " + std::string(Decibels) + ")";
}

std::optional<int> LevelOfText(std::string_view text) {
    const std::string level = Trim(ReplaceAll(text, ",", "."));
    // Taken as 0 it would turn everything that is encoded into silence.
    if (!BeginsWithNumber(level)) return std::nullopt;
    const double number = LeadingNumber(level);
    const bool isDecibels =
        text.find(Decibels) != std::string_view::npos && text.find('%') == std::string_view::npos;
    const double percent = isDecibels ? 100 * std::pow(10, number / 20) : number;
    if (!(percent >= 0 && percent <= 100.5)) return std::nullopt;
    return static_cast<int>(std::lround(std::min(percent, 100.0)));
}

}  // namespace zefta
