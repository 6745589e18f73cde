#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>

#include "platform/Termination.h"

namespace zefta {

namespace {

/// A handler of a signal may do little more than write to a descriptor that it finds here.
volatile int writeEnd = -1;

void TellTermination(int) {
    const int formerError = errno;
    const ssize_t written = write(writeEnd, "", 1);
    static_cast<void>(written);
    errno = formerError;
}

int MakePipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return -1;
    writeEnd = ends[1];
    struct sigaction action = {};
    action.sa_handler = TellTermination;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaction(signal, &action, nullptr);
    return ends[0];
}

}  // namespace

int TerminationDescriptor() {
    static const int readEnd = MakePipe();
    return readEnd;
}

}  // namespace zefta
