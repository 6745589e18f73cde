#pragma once

#include <chrono>
#include <iosfwd>

#include "platform/Desktop.h"

namespace zefta {

/// Progress as one line that is written over itself, at most ten times a second.
class ConsoleProgress : public ProgressView {
  public:
    explicit ConsoleProgress(std::ostream& stream) : stream_(stream) {}
    ~ConsoleProgress() override;

    void Show(const ProgressReport& report) override;

  private:
    std::ostream& stream_;
    std::string status_;
    std::chrono::steady_clock::time_point next_;
    bool shown_ = false;
};

/// The text of the line: status, file name, per cent, and what remains when that is told.
std::string ProgressLine(const ProgressReport& report);

}  // namespace zefta
