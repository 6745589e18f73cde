#include "platform/posix/ChildProcess.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <poll.h>
#include <string_view>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace zefta {

namespace {

constexpr int NoDescriptor = -1;
constexpr std::chrono::milliseconds TickOfWatch{15};
/// A tool that is to end gets so long to do it by itself.
constexpr std::chrono::milliseconds TimeToEnd{1000};
/// The exit status of a child that could not become the program.
constexpr int NotStarted = 127;

ToolEnd EndOf(int waitStatus) {
    if (WIFSIGNALED(waitStatus)) return {ToolEnd::Way::Killed, WTERMSIG(waitStatus)};
    return {ToolEnd::Way::Exited, WEXITSTATUS(waitStatus)};
}

/// Closes what it holds.
class Descriptor {
  public:
    explicit Descriptor(int number = NoDescriptor) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    int Number() const { return number_; }
    bool IsOpen() const { return number_ != NoDescriptor; }
    void Hold(int number) {
        Close();
        number_ = number;
    }
    void Close() {
        if (IsOpen()) close(std::exchange(number_, NoDescriptor));
    }

  private:
    int number_;
};

/// The way from the child's streams to the watch.
struct OutputPipe {
    Descriptor reading;
    Descriptor writing;

    bool Open() {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) return false;
        reading.Hold(ends[0]);
        writing.Hold(ends[1]);
        fcntl(ends[0], F_SETFL, O_NONBLOCK);
        // Room for a tool that writes while we paint or the person answers. Not every system gives it.
        constexpr int Room = 1 << 20;
        fcntl(ends[0], F_SETPIPE_SZ, Room);
        return true;
    }
};

std::vector<char*> ArgumentsFor(ChildSetup& setup) {
    std::vector<char*> arguments = {setup.program.data()};
    for (std::string& argument : setup.arguments) arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    return arguments;
}

// Between the fork and the program nothing may allocate.

void LeadToNull(int stream, int flags) {
    const int null = open("/dev/null", flags | O_CLOEXEC);
    if (null >= 0) dup2(null, stream);
}

void LeadStreams(ChildStreams streams, int output) {
    if (streams == ChildStreams::Ours) return;
    // A tool must not eat the answers that a person or script has for us.
    LeadToNull(STDIN_FILENO, O_RDONLY);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        if (streams == ChildStreams::Watched) dup2(output, stream);
        if (streams == ChildStreams::None) LeadToNull(stream, O_WRONLY);
    }
}

[[noreturn]] void BecomeChild(const ChildSetup& setup, char* const* arguments, int output) {
    LeadStreams(setup.streams, output);
    if (setup.nice) setpriority(PRIO_PROCESS, 0, *setup.nice);
    execv(setup.program.c_str(), arguments);
    _exit(NotStarted);
}

/// What becomes readable when the child ends. NoDescriptor on a system that has no such thing.
int OpenEndOf(pid_t child) {
    // The C library's own function has no C linkage in some versions.
    return static_cast<int>(syscall(SYS_pidfd_open, child, 0));
}

/// A child that a watch follows, from its start to its end.
class WatchedChild {
  public:
    WatchedChild(pid_t child, Descriptor& output, ToolWatch& watch)
        : child_(child), output_(output), watch_(watch), end_(OpenEndOf(child)) {}

    /// From now on the watch may have it ended.
    void MayBeEnded() { mayBeEnded_ = true; }

    ToolEnd Follow() {
        while (!HasEnded()) {
            WaitForNews();
            ReadOutput();
            TickWhenDue();
        }
        DrainOutput();
        return askedToEnd_ ? ToolEnd{ToolEnd::Way::Ended, 0} : EndOf(status_);
    }

  private:
    /// Asked of the system, since not every one has a descriptor that tells of an end.
    bool HasEnded() {
        const pid_t ended = waitpid(child_, &status_, WNOHANG);
        return ended == child_ || (ended == -1 && errno != EINTR);
    }

    /// A descriptor below 0 is passed over by poll.
    void WaitForNews() {
        std::array<pollfd, 2> news = {pollfd{output_.Number(), POLLIN, 0}, pollfd{end_.Number(), POLLIN, 0}};
        poll(news.data(), news.size(), static_cast<int>(TickOfWatch.count()));
    }

    /// One piece, so that a tool that never stops writing lets the window live. False when there is none.
    bool ReadOutput() {
        if (!output_.IsOpen()) return false;
        const ssize_t count = read(output_.Number(), buffer_.data(), buffer_.size());
        if (count > 0) {
            watch_.ToolWrites(std::string_view(buffer_.data(), static_cast<std::size_t>(count)));
            return true;
        }
        // Its end would be news at once and for ever.
        if (count == 0) output_.Close();
        return false;
    }

    /// What was written before the end. Bounded: a process that the tool left behind may write on.
    void DrainOutput() {
        constexpr int MostPieces = 64;
        for (int i = 0; i < MostPieces && ReadOutput(); ++i) {
        }
    }

    void TickWhenDue() {
        const auto now = std::chrono::steady_clock::now();
        if (now < nextTick_) return;
        watch_.ToolRuns();
        if (mayBeEnded_ && !askedToEnd_ && watch_.WantsToolEnded()) AskToEnd();
        if (askedToEnd_ && now - *askedToEnd_ > TimeToEnd) kill(child_, SIGKILL);
        // Counted from before: what the watch does takes its time from the pause.
        nextTick_ = now + TickOfWatch;
    }

    /// It may be stopped, and would not hear of it then.
    void AskToEnd() {
        kill(child_, SIGTERM);
        kill(child_, SIGCONT);
        askedToEnd_ = std::chrono::steady_clock::now();
    }

    pid_t child_;
    int status_ = 0;
    bool mayBeEnded_ = false;
    std::optional<std::chrono::steady_clock::time_point> askedToEnd_;
    Descriptor& output_;
    ToolWatch& watch_;
    Descriptor end_;
    std::chrono::steady_clock::time_point nextTick_ = std::chrono::steady_clock::now();
    std::array<char, 16384> buffer_;
};

/// As waitpid tells it.
int WaitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) == -1 && errno == EINTR) {
    }
    return status;
}

}  // namespace

ToolEnd RunChild(ChildSetup& setup, ToolWatch* watch) {
    const std::vector<char*> arguments = ArgumentsFor(setup);
    OutputPipe output;
    if (setup.streams == ChildStreams::Watched && !output.Open()) setup.streams = ChildStreams::None;
    const pid_t child = fork();
    if (child == 0) BecomeChild(setup, arguments.data(), output.writing.Number());
    if (child < 0) return {ToolEnd::Way::Exited, NotStarted};
    // Ours must not keep the pipe from ending.
    output.writing.Close();
    if (watch == nullptr) return EndOf(WaitFor(child));
    WatchedChild watched(child, output.reading, *watch);
    if (setup.streams != ChildStreams::Ours) watched.MayBeEnded();
    return watched.Follow();
}

bool StartDetached(ChildSetup& setup) {
    const std::vector<char*> arguments = ArgumentsFor(setup);
    const pid_t child = fork();
    if (child == 0) {
        // The program is a grandchild, which the system takes care of: nobody here has to wait for it, and
        // closing the terminal leaves it open.
        if (const pid_t program = fork(); program != 0) _exit(program < 0 ? 1 : 0);
        setsid();
        BecomeChild(setup, arguments.data(), NoDescriptor);
    }
    return child > 0 && WaitFor(child) == 0;
}

}  // namespace zefta
