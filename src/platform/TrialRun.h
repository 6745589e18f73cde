#pragma once

#include <functional>

namespace zefta {

/// An attempt in a process of its own, which is all that it changes, beside this one. What it writes to the
/// standard streams is discarded.
class TrialRun {
  public:
    /// None, which does not succeed.
    TrialRun() = default;
    /// Begins. An attempt that takes longer than that many seconds is ended.
    TrialRun(const std::function<void()>& attempt, unsigned seconds);
    TrialRun(TrialRun&& other) noexcept;
    TrialRun& operator=(TrialRun&&) = delete;
    /// Waits for the end.
    ~TrialRun();

    /// Waits for the end, and tells whether the attempt came to its own: one that aborted, crashed, ended its
    /// process or took too long did not.
    bool Succeeds();

  private:
    /// 0 when none is under way.
    int process_ = 0;
    bool hasSucceeded_ = false;
};

/// The same where nothing is to be done meanwhile.
bool SucceedsInOwnProcess(const std::function<void()>& attempt, unsigned seconds);

}  // namespace zefta
