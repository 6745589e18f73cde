#include "platform/posix/PipedProgram.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace zefta {

namespace {

constexpr int MillisecondsOfWaiting = 15;

std::vector<char*> ArgumentsFor(std::string& program, std::vector<std::string>& arguments) {
    std::vector<char*> pointers = {program.data()};
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Between the fork and the program nothing may allocate.
[[noreturn]] void BecomeProgram(char* const* arguments, int output, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    // It may have died before that.
    if (getppid() != parent) _exit(127);
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (null >= 0) {
        dup2(null, STDIN_FILENO);
        dup2(null, STDERR_FILENO);
    }
    dup2(output, STDOUT_FILENO);
    execv(arguments[0], arguments);
    _exit(127);
}

}  // namespace

PipedProgram::PipedProgram(std::string program, std::vector<std::string> arguments) {
    const std::vector<char*> pointers = ArgumentsFor(program, arguments);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;
    const pid_t parent = getpid();
    child_ = fork();
    if (child_ == 0) BecomeProgram(pointers.data(), ends[1], parent);
    close(ends[1]);
    output_ = ends[0];
    fcntl(output_, F_SETFL, O_NONBLOCK);
}

/// A program that hangs in a drive can't be ended at once, and nobody has to wait for it.
PipedProgram::~PipedProgram() {
    CloseOutput();
    if (child_ <= 0) return;
    kill(child_, SIGKILL);
    constexpr int Tries = 20;
    constexpr useconds_t MicrosecondsBetween = 5000;
    for (int i = 0; i < Tries && waitpid(child_, nullptr, WNOHANG) == 0; ++i) usleep(MicrosecondsBetween);
}

void PipedProgram::CloseOutput() {
    if (output_ >= 0) close(std::exchange(output_, -1));
}

PipedProgram::News PipedProgram::Read(std::string_view& piece) {
    if (output_ < 0) return News::End;
    pollfd news = {output_, POLLIN, 0};
    poll(&news, 1, MillisecondsOfWaiting);
    const ssize_t count = read(output_, buffer_.data(), buffer_.size());
    if (count > 0) {
        piece = std::string_view(buffer_.data(), static_cast<std::size_t>(count));
        return News::Bytes;
    }
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return News::Nothing;
    CloseOutput();
    return News::End;
}

bool PipedProgram::HasSucceeded() {
    if (child_ <= 0) return false;
    int status = 0;
    while (waitpid(child_, &status, 0) == -1) {
        if (errno != EINTR) return false;
    }
    child_ = -1;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace zefta
