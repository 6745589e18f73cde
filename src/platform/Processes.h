#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// How urgently an outside tool runs, with the numbers of its setting and options.
inline constexpr int IdlePriority = 64;
inline constexpr int NormalPriority = 32;
inline constexpr int HighPriority = 128;

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
    /// Nothing is told about how it ended: only what it left on disk counts. With `showWindow` its output
    /// goes where ours goes, or to who follows the tools, else nowhere; the running program itself, started
    /// as a child, always keeps its streams, since its boxes and questions must reach the person.
    virtual void RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) = 0;

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
