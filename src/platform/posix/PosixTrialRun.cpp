#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "platform/TrialRun.h"

namespace zefta {

namespace {

constexpr int Succeeded = 0;
constexpr int Failed = 1;

void EndAtOnce(int) {
    _exit(Failed);
}

void Silence() {
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (null < 0) return;
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(null, stream);
}

[[noreturn]] void Try(const std::function<void()>& attempt, unsigned seconds) {
    Silence();
    // A crash here is an answer: nobody wants the memory of the process for it.
    for (const int crash : {SIGABRT, SIGSEGV, SIGBUS}) std::signal(crash, EndAtOnce);
    std::signal(SIGALRM, EndAtOnce);
    alarm(seconds);
    try {
        attempt();
    } catch (...) {
        _exit(Failed);
    }
    _exit(Succeeded);
}

}  // namespace

TrialRun::TrialRun(const std::function<void()>& attempt, unsigned seconds) {
    const pid_t child = fork();
    if (child == 0) Try(attempt, seconds);
    process_ = std::max(child, 0);
}

TrialRun::TrialRun(TrialRun&& other) noexcept
    : process_(std::exchange(other.process_, 0)), hasSucceeded_(other.hasSucceeded_) {}

TrialRun::~TrialRun() {
    Succeeds();
}

bool TrialRun::Succeeds() {
    if (process_ == 0) return hasSucceeded_;
    int status = 0;
    while (waitpid(process_, &status, 0) == -1 && errno == EINTR) {
    }
    process_ = 0;
    hasSucceeded_ = WIFEXITED(status) && WEXITSTATUS(status) == Succeeded;
    return hasSucceeded_;
}

bool SucceedsInOwnProcess(const std::function<void()>& attempt, unsigned seconds) {
    return TrialRun(attempt, seconds).Succeeds();
}

}  // namespace zefta
