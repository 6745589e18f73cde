#include "encoding/ToolRuns.h"

#include "encoding/CommandLines.h"
#include "platform/CommandText.h"
#include "platform/ToolTranslation.h"

namespace zefta {

namespace {

std::string TextOfEnd(const std::string& program, const ToolEnd& end) {
    switch (end.How) {
        case ToolEnd::Way::Missing: {
            std::string names;
            for (const std::string& name : ToolNames(program)) names += (names.empty() ? "" : ", ") + name;
            return "No such program is installed: " + names + ".";
        }
        case ToolEnd::Way::Killed:
            return program + " crashed (signal " + std::to_string(end.Number) + ").";
        case ToolEnd::Way::Ended:
            return program + " was ended; what it had made of this file is deleted.";
        default:
            return end.Number == 0 ? "" : program + " ended with status " + std::to_string(end.Number) + ".";
    }
}

void TellEnd(App& app, const std::string& command, const ToolEnd& end) {
    const auto words = SplitCommandLine(command);
    const std::string text = words.empty() ? "" : TextOfEnd(words.front().text, end);
    if (!text.empty()) app.desktop.Note(text);
}

}  // namespace

bool RunTool(App& app, const std::string& command) {
    if (command.empty()) return true;
    app.processes.RunProgram(command, app.state.ShowExecuteWindows, app.state.PriorityClass);
    const ToolEnd end = app.processes.LastToolEnd();
    TellEnd(app, command, end);
    return end.How != ToolEnd::Way::Ended;
}

void RunTrimChild(App& app, const std::string& path, bool normalize) {
    const std::string child = TrimChildCommand(app.state, app.processes.OwnPath(), path, normalize);
    app.processes.RunProgram(child, false, app.state.PriorityClass);
}

}  // namespace zefta
