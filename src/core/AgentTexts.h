#pragma once

#include <vector>

#include "core/App.h"

namespace zefta {

/// The texts of the agent in the language in force, for section "Agent" of the person's store: the agent has
/// no language file of its own.
std::vector<SettingChange> AgentTexts(App& app);

}  // namespace zefta
