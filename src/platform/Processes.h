#pragma once

#include <string>

namespace zefta {

/// How urgently an outside tool runs, with the numbers of its setting and options.
inline constexpr int IdlePriority = 64;
inline constexpr int NormalPriority = 32;
inline constexpr int HighPriority = 128;

/// Starts other programs.
class Processes {
  public:
    Processes() = default;
    Processes(const Processes&) = delete;
    Processes& operator=(const Processes&) = delete;
    virtual ~Processes() = default;

    /// Starts the command line (CommandText.h tells how it is split) and returns when the program has ended.
    /// Nothing is told about how it ended: only what it left on disk counts. With `showWindow` its output
    /// goes where ours goes, else nowhere; the running program itself, started as a child, always keeps its
    /// streams, since its boxes and questions must reach the person.
    virtual void RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) = 0;

    /// Full path of the running executable.
    virtual std::string OwnPath() const = 0;
};

}  // namespace zefta
