#include "platform/posix/PosixProcesses.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/ToolTranslation.h"
#include "platform/posix/ChildProcess.h"
#include "platform/posix/NameLookup.h"

namespace zefta {

namespace {

bool IsProgram(const std::string& path) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && access(path.c_str(), X_OK) == 0;
}

std::string OnSearchPath(const std::string& name) {
    const char* variable = std::getenv("PATH");
    std::string_view folders = variable != nullptr ? variable : "/usr/bin:/bin";
    while (!folders.empty()) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        const std::string path = JoinPath(folders.substr(0, end), name);
        if (IsProgram(path)) return path;
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return {};
}

int NiceValue(int priorityClass) {
    return priorityClass == IdlePriority ? 19 : priorityClass == HighPriority ? -10 : 0;
}

/// A path that names nothing as it stands but something in another case: tools on this system know only the
/// one on disk. Paths are the full ones and what stands behind the encoder's option of one letter for its
/// output; any other quoted text may be a title that only looks like a name in the current folder.
std::string InSpellingOfDisk(const std::string& argument) {
    constexpr std::string_view OutputOption = "-n";
    if (argument.starts_with(OutputOption))
        return argument.substr(0, OutputOption.size()) + SpellingOnDisk(argument.substr(OutputOption.size()));
    return argument.starts_with(PathSeparator) ? SpellingOnDisk(argument) : argument;
}

std::vector<CommandArgument> SpellPaths(std::vector<CommandArgument> command) {
    for (std::size_t i = 1; i < command.size(); ++i) {
        if (command[i].quoted) command[i].text = InSpellingOfDisk(command[i].text);
    }
    return command;
}

std::string FirstFound(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        if (std::string path = FindProgram(name); !path.empty()) return path;
    }
    return {};
}

/// Nothing when there is no such program.
std::optional<ChildSetup> ChildOf(const std::string& commandLine) {
    const std::vector<CommandArgument> command = SplitCommandLine(commandLine);
    if (command.empty()) return std::nullopt;
    ChildSetup child;
    child.program = FirstFound(ToolNames(command.front().text));
    if (child.program.empty()) return std::nullopt;
    child.arguments = TranslateToolArguments(SpellPaths(command));
    return child;
}

}  // namespace

std::string FindProgram(const std::string& program) {
    if (program.find(PathSeparator) == std::string::npos) return OnSearchPath(program);
    return IsProgram(program) ? program : std::string();
}

void PosixProcesses::RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) {
    auto child = ChildOf(commandLine);
    if (!child) {
        lastEnd_ = {ToolEnd::Way::Missing, 0};
        return;
    }
    child->nice = NiceValue(priorityClass);
    if (child->program == OwnPath()) {
        child->streams = ChildStreams::Ours;
    } else if (!showWindow) {
        child->streams = ChildStreams::None;
    } else {
        child->streams = watch_ != nullptr ? ChildStreams::Watched : ChildStreams::OurOutput;
    }
    if (child->streams == ChildStreams::Watched) watch_->ToolStarts(commandLine);
    lastEnd_ = RunChild(*child, watch_);
}

void PosixProcesses::StartProgram(const std::string& commandLine) {
    auto child = ChildOf(commandLine);
    if (!child) throw RuntimeError(ErrorNumber::FileNotFound);
    if (!StartDetached(*child)) throw RuntimeError(ErrorNumber::OutOfMemory);
}

std::string PosixProcesses::OwnPath() const {
    std::string path(4096, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return path;
}

}  // namespace zefta
