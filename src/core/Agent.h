#pragma once

#include <functional>
#include <string>

#include "core/App.h"

namespace zefta {

/// Under this title the agent is found: that of the application, then " Agent".
std::string AgentTitle();

bool IsAgentRunning(const App& app);

/// Asks the agent that runs to end, and does not wait for it. Nothing happens when none runs.
void CloseAgent(App& app);

/// Starts the agent of the program's folder; one that runs is closed first. RuntimeError 53 when its file is
/// not there.
void StartAgent(App& app);

/// The command line that starts the agent: message 3 with the program's folder put in. That folder is one
/// argument or a part of one whatever characters it has.
std::string AgentCommand(App& app);

/// The end of the whole application: closes the agent, lets go of what the run has gathered, then has every
/// open window unloaded, the last opened one first.
void ExitApplication(App& app, const std::function<void()>& unloadWindows);

}  // namespace zefta
