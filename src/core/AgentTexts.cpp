#include "core/AgentTexts.h"

namespace zefta {

namespace {

constexpr auto AgentSection = "Agent";

struct AgentText {
    const char* key;
    std::int32_t message;
};

constexpr AgentText Texts[] = {
    {"MSG_Open", 33601},
    {"MSG_Compress", 33602},
    {"MSG_Settings", 33603},
    {"MSG_Exit", 33604},
    {"MSG_Language", 33605},
    {"MSG_RecentFolders", 33606},
    {"MSG_LanguageChangeNote", 33607},
    {"MSG_LanguageDefault", 33608},
};

}  // namespace

std::vector<SettingChange> AgentTexts(App& app) {
    std::vector<SettingChange> changes;
    for (const AgentText& text : Texts)
        changes.push_back({AgentSection, text.key, app.messages.GetMessage(text.message)});
    return changes;
}

std::string AgentTextOf(App& app, const std::string& key) {
    for (const AgentText& text : Texts) {
        if (key != text.key) continue;
        const std::string stored = app.userSettings.GetValue(AgentSection, key).value_or("");
        return stored.empty() ? app.messages.GetMessage(text.message) : stored;
    }
    return {};
}

}  // namespace zefta
