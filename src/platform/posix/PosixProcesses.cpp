#include "platform/posix/PosixProcesses.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "platform/Paths.h"
#include "platform/ToolTranslation.h"
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

/// What the child needs, made ready before the fork: behind it nothing may allocate.
struct ChildSetup {
    std::string program;
    std::vector<std::string> arguments;
    bool ownStreams = false;
    bool hidden = false;
    int nice = 0;
};

void RedirectToNull(int descriptor, int flags) {
    const int null = open("/dev/null", flags);
    if (null >= 0) dup2(null, descriptor);
}

[[noreturn]] void BecomeChild(const ChildSetup& setup, char* const* arguments) {
    if (!setup.ownStreams) {
        // A tool must not eat the answers that a person or script has for us.
        RedirectToNull(STDIN_FILENO, O_RDONLY);
        if (setup.hidden) RedirectToNull(STDOUT_FILENO, O_WRONLY);
        if (setup.hidden) RedirectToNull(STDERR_FILENO, O_WRONLY);
    }
    // Refused when it asks for more than the person may have; the tool then runs as we do.
    setpriority(PRIO_PROCESS, 0, setup.nice);
    execv(setup.program.c_str(), arguments);
    _exit(127);
}

void RunAndWait(ChildSetup& setup) {
    std::vector<char*> arguments = {setup.program.data()};
    for (std::string& argument : setup.arguments) arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) BecomeChild(setup, arguments.data());
    if (child < 0) return;
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR) {
    }
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

}  // namespace

std::string FindProgram(const std::string& program) {
    if (program.find(PathSeparator) == std::string::npos) return OnSearchPath(program);
    return IsProgram(program) ? program : std::string();
}

void PosixProcesses::RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) {
    const std::vector<CommandArgument> command = SplitCommandLine(commandLine);
    if (command.empty()) return;
    ChildSetup setup;
    setup.program = FirstFound(ToolNames(command.front().text));
    if (setup.program.empty()) return;
    setup.arguments = TranslateToolArguments(SpellPaths(command));
    setup.ownStreams = setup.program == OwnPath();
    setup.hidden = !showWindow;
    setup.nice = NiceValue(priorityClass);
    RunAndWait(setup);
}

std::string PosixProcesses::OwnPath() const {
    std::string path(4096, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return path;
}

}  // namespace zefta
