#include <csignal>

#include "platform/FileSizeLimit.h"

namespace zefta {

void FailWritesBeyondTheSizeLimit() {
    // A handler, not SIG_IGN: programs inherit what is ignored, and tools shall meet the limit as they would
    // anywhere.
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    sigaction(SIGXFSZ, &action, nullptr);
}

}  // namespace zefta
