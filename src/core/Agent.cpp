#include "core/Agent.h"

#include "core/Strings.h"
#include "core/Version.h"
#include "platform/AgentEndpoint.h"
#include "platform/CommandText.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr std::int32_t AgentCommandMessage = 3;
constexpr std::string_view FolderPlace = "%1";

/// The argument as it stands in a command line: in quotes where it has them in the message or needs them.
std::string Written(const CommandArgument& argument) {
    const bool needsQuotes = argument.text.find_first_of(" \t\"\\") != std::string::npos;
    return argument.quoted || needsQuotes ? QuotePath(argument.text) : argument.text;
}

}  // namespace

std::string AgentTitle() {
    return ApplicationTitle() + " Agent";
}

bool IsAgentRunning(const App& app) {
    return app.agent != nullptr && app.agent->IsServed(AgentTitle());
}

void CloseAgent(App& app) {
    if (IsAgentRunning(app)) app.agent->SendClose(AgentTitle());
}

std::string AgentCommand(App& app) {
    const std::string folder = FolderPart(app.processes.OwnPath());
    std::string command;
    for (CommandArgument& argument :
         SplitCommandLine(app.messages.GetMessage(AgentCommandMessage, FolderPlace))) {
        const bool isPath = argument.text.find(FolderPlace) != std::string::npos;
        if (isPath) argument.text = ReplaceAll(argument.text, "\\", std::string(1, PathSeparator));
        argument.text = ReplaceAll(argument.text, FolderPlace, folder);
        command += (command.empty() ? "" : " ") + Written(argument);
    }
    return command;
}

void StartAgent(App& app) {
    CloseAgent(app);
    app.processes.StartProgram(AgentCommand(app));
}

void ExitApplication(App& app, const std::function<void()>& unloadWindows) {
    CloseAgent(app);
    ReleaseGlobals(app);
    unloadWindows();
}

}  // namespace zefta
