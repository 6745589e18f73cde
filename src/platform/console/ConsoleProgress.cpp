#include "platform/console/ConsoleProgress.h"

#include <algorithm>
#include <cstdint>
#include <ostream>

#include "platform/Paths.h"
#include "platform/console/TerminalText.h"

namespace zefta {

namespace {

// A line that is wider than the terminal would go on in the next one, and could not be written over.
constexpr auto WithoutWrapping = "\x1b[?7l";
constexpr auto WithWrapping = "\x1b[?7h";

int PerCent(const ProgressReport& report) {
    const std::int64_t range = std::int64_t{report.maximum} - report.minimum;
    if (range <= 0) return 0;
    return static_cast<int>(
        std::clamp<std::int64_t>((std::int64_t{report.value} - report.minimum) * 100 / range, 0, 100));
}

}  // namespace

std::string ProgressLine(const ProgressReport& report) {
    std::string line =
        report.status + " " + NamePart(report.fileName) + " " + std::to_string(PerCent(report)) + "%";
    const auto remaining = report.labels.find("lblMSFRemaining");
    return remaining == report.labels.end() ? line : line + ", " + remaining->second;
}

ConsoleProgress::~ConsoleProgress() {
    if (shown_) stream_ << ClearLine << std::flush;
}

void ConsoleProgress::Show(const ProgressReport& report) {
    const auto now = std::chrono::steady_clock::now();
    if (now < next_ && report.status == status_) return;
    status_ = report.status;
    next_ = now + std::chrono::milliseconds(100);
    shown_ = true;
    std::string line = WithoutControls(ProgressLine(report));
    std::replace(line.begin(), line.end(), '\n', '?');
    stream_ << ClearLine << WithoutWrapping << line << WithWrapping << std::flush;
}

}  // namespace zefta
