#include "support/ProgramRun.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/TempFolder.h"

namespace zefta::test {

namespace {

constexpr unsigned SecondsAllowed = 60;

void Redirect(const std::string& path, int flags, int descriptor) {
    const int file = open(path.c_str(), flags, 0600);
    if (file < 0 || dup2(file, descriptor) < 0) _exit(126);
}

[[noreturn]] void BecomeProgram(const ProgramCall& call, const TempFolder& streams) {
    Redirect(streams / "in", O_RDONLY, STDIN_FILENO);
    Redirect(streams / "out", O_WRONLY | O_CREAT, STDOUT_FILENO);
    Redirect(streams / "err", O_WRONLY | O_CREAT, STDERR_FILENO);
    if (!call.folder.empty() && chdir(call.folder.c_str()) != 0) _exit(126);
    for (const auto& [name, value] : call.environment) {
        if (value.empty()) {
            unsetenv(name.c_str());
        } else {
            setenv(name.c_str(), value.c_str(), 1);
        }
    }
    std::vector<char*> arguments = {const_cast<char*>(call.program.c_str())};
    for (const std::string& argument : call.arguments)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    alarm(SecondsAllowed);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

}  // namespace

ProgramResult RunToEnd(const ProgramCall& call) {
    const TempFolder streams;
    streams.Write("in", call.input);
    const pid_t child = fork();
    if (child == 0) BecomeProgram(call, streams);
    int state = 0;
    waitpid(child, &state, 0);
    ProgramResult result;
    result.status = WIFEXITED(state)             ? WEXITSTATUS(state)
                    : WTERMSIG(state) == SIGALRM ? 124
                                                 : -WTERMSIG(state);
    result.output = streams.Exists("out") ? streams.Read("out") : "";
    result.error = streams.Exists("err") ? streams.Read("err") : "";
    return result;
}

}  // namespace zefta::test
