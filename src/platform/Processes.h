#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// How urgently an outside tool runs, with the numbers of its setting and options.
inline constexpr int IdlePriority = 64;
inline constexpr int NormalPriority = 32;
inline constexpr int HighPriority = 128;

/// How a program ended.
struct ToolEnd {
    enum class Way {
        /// By itself; Number is its exit status.
        Exited,
        /// It crashed, or somebody else killed it; Number is the signal.
        Killed,
        /// By us, since the watch wanted it: what it was making is half-made.
        Ended,
        /// There is no such program.
        Missing,
    };

    Way How = Way::Exited;
    int Number = 0;
};

/// Follows the outside tools while RunProgram waits for them.
class ToolWatch {
  public:
    ToolWatch() = default;
    ToolWatch(const ToolWatch&) = delete;
    ToolWatch& operator=(const ToolWatch&) = delete;
    virtual ~ToolWatch() = default;

    /// A shown tool is about to start.
    virtual void ToolStarts(const std::string& commandLine) = 0;

    /// A tool runs. Called at least every 20 milliseconds, so that a window stays alive meanwhile.
    virtual void ToolRuns() = 0;

    /// Whether the tool that runs is to be ended. Asked behind each ToolRuns, but not of the program itself
    /// as a child, which is amid a file that must stay whole.
    virtual bool WantsToolEnded() { return false; }

    /// A piece of what a shown tool wrote on its output and error streams, in the order it came. May be any
    /// bytes and end anywhere.
    virtual void ToolWrites(std::string_view output) = 0;
};

/// Starts other programs.
class Processes {
  public:
    Processes() = default;
    Processes(const Processes&) = delete;
    Processes& operator=(const Processes&) = delete;
    virtual ~Processes() = default;

    /// Starts the command line (CommandText.h tells how it is split) and returns when the program has ended.
    /// Only what it left on disk counts; LastToolEnd tells how it ended. With `showWindow` its output
    /// goes where ours goes, or to who follows the tools, else nowhere; the running program itself, started
    /// as a child, always keeps its streams, since its boxes and questions must reach the person.
    virtual void RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) = 0;

    /// How the program ended that RunProgram waited for last.
    virtual ToolEnd LastToolEnd() const { return {}; }

    /// Starts the command line and does not wait: the program has a session of its own, no streams of ours,
    /// and lives on when we end. RuntimeError 53 when there is no such program.
    virtual void StartProgram(const std::string& commandLine) = 0;

    /// From now on `watch` is told of the tools that RunProgram waits for, and what shown ones write goes to
    /// it instead of where our output goes. Null ends that. Must live until then.
    virtual void FollowTools(ToolWatch* watch) { (void)watch; }

    /// Full path of the running executable.
    virtual std::string OwnPath() const = 0;
};

}  // namespace zefta
