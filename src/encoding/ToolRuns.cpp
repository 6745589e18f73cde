#include "encoding/ToolRuns.h"

#include "encoding/CommandLines.h"

namespace zefta {

void RunTool(App& app, const std::string& command) {
    if (!command.empty())
        app.processes.RunProgram(command, app.state.ShowExecuteWindows, app.state.PriorityClass);
}

void RunTrimChild(App& app, const std::string& path, bool normalize) {
    const std::string child = TrimChildCommand(app.state, app.processes.OwnPath(), path, normalize);
    app.processes.RunProgram(child, false, app.state.PriorityClass);
}

}  // namespace zefta
