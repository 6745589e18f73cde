#pragma once

#include <string>

#include "platform/Processes.h"

namespace zefta {

/// Starts programs directly, with no shell in between. A program that can't be found is passed over: callers
/// look at what a tool left on disk.
class PosixProcesses : public Processes {
  public:
    void RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) override;
    ToolEnd LastToolEnd() const override { return lastEnd_; }
    void StartProgram(const std::string& commandLine) override;
    void FollowTools(ToolWatch* watch) override { watch_ = watch; }
    std::string OwnPath() const override;

  private:
    ToolWatch* watch_ = nullptr;
    ToolEnd lastEnd_;
};

/// Path of the program on PATH, or as it stands when it holds a separator; "" when there is none.
std::string FindProgram(const std::string& program);

}  // namespace zefta
