#include "agent/LanguageChoices.h"

#include <algorithm>

#include "core/AgentTexts.h"
#include "core/Strings.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/StoreOutcome.h"

namespace zefta {

namespace {

constexpr auto Section = "Settings";
constexpr std::string_view Extension = ".lng";

bool IsLanguageFile(const FolderEntry& entry) {
    return !entry.isFolder && !entry.isSpecial && entry.name.size() > Extension.size() &&
           AsciiLower(entry.name).ends_with(Extension);
}

/// Full paths in the order of their names; none when there is no such folder.
std::vector<std::string> FilesBesideTheProgram(const App& app) {
    const std::string folder = JoinPath(FolderPart(app.processes.OwnPath()), "Languages");
    std::vector<std::string> paths;
    try {
        for (const FolderEntry& entry : app.files.List(folder)) {
            if (IsLanguageFile(entry)) paths.push_back(JoinPath(folder, entry.name));
        }
    } catch (const RuntimeError&) {
        return {};
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

/// The name without its extension: translations of a template often keep the language that it names.
std::string CaptionOf(const App& app, const std::string& path) {
    const std::string name = NamePart(path);
    return app.ansi.ToText(
        AsciiLower(name).ends_with(Extension) ? name.substr(0, name.size() - Extension.size()) : name);
}

struct LanguageInForce {
    bool isExternal;
    std::string file;
};

void PutIntoForce(App& app, const LanguageInForce& language) {
    app.state.EnableExternalLanguage = language.isExternal;
    app.state.ExternalLanguageFile = language.file;
    app.messages.LanguageStrings.clear();
}

}  // namespace

std::vector<LanguageChoice> LanguageChoices(App& app) {
    const std::string chosen =
        app.state.EnableExternalLanguage ? app.state.ExternalLanguageFile : std::string();
    std::vector<std::string> paths = FilesBesideTheProgram(app);
    if (!chosen.empty() && std::find(paths.begin(), paths.end(), chosen) == paths.end())
        paths.push_back(chosen);
    std::vector<LanguageChoice> choices = {{AgentTextOf(app, "MSG_LanguageDefault"), "", chosen.empty()}};
    for (const std::string& path : paths) choices.push_back({CaptionOf(app, path), path, path == chosen});
    return choices;
}

void ChooseLanguage(App& app, const std::string& path) {
    const LanguageInForce before = {app.state.EnableExternalLanguage, app.state.ExternalLanguageFile};
    const bool isExternal = !path.empty();
    PutIntoForce(app, {isExternal, isExternal ? path : before.file});
    std::vector<SettingChange> changes = AgentTexts(app);
    if (isExternal) changes.push_back({Section, "ExternalLanguageFile", path});
    changes.push_back({Section, "EnableExternalLanguage", isExternal ? "True" : "False"});
    app.userSettings.Apply(changes);
    try {
        ExpectStored(app.userSettings);
    } catch (const RuntimeError&) {
        PutIntoForce(app, before);
        throw;
    }
}

}  // namespace zefta
