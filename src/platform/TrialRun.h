#pragma once

#include <functional>

namespace zefta {

/// Whether the attempt comes to its end in a process of its own, which is all that it changes. One that
/// aborts, crashes, ends its process or takes longer than that many seconds does not. What it writes to the
/// standard streams is discarded.
bool SucceedsInOwnProcess(const std::function<void()>& attempt, unsigned seconds);

}  // namespace zefta
