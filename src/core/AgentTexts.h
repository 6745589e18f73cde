#pragma once

#include <string>
#include <vector>

#include "core/App.h"

namespace zefta {

/// The texts of the agent in the language in force, for section "Agent" of the person's store: the agent has
/// no language file of its own.
std::vector<SettingChange> AgentTexts(App& app);

/// The agent's text of that key ("MSG_Open") as the store has it, or in the language in force where the store
/// has none. "" for another key.
std::string AgentTextOf(App& app, const std::string& key);

}  // namespace zefta
