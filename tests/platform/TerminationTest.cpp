#include <csignal>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "platform/Termination.h"

namespace zefta::test {
namespace {

/// The signals and the descriptor are those of the process: each case has one of its own. Its exit status.
template <typename Step>
int InChild(Step step) {
    const pid_t child = fork();
    if (child == 0) _exit(step());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool IsReadable(int descriptor) {
    pollfd state = {descriptor, POLLIN, 0};
    return poll(&state, 1, 0) == 1;
}

TEST(Termination, EverySignal_MakesTheDescriptorReadableAndEndsNothing) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const int result = InChild([&] {
            const int descriptor = TerminationDescriptor();
            if (IsReadable(descriptor)) return 1;
            raise(signal);
            return IsReadable(descriptor) ? 0 : 2;
        });
        EXPECT_EQ(result, 0) << signal;
    }
}

TEST(Termination, Programs_EndByTheSignalsAsEver) {
    const int result = InChild([] {
        if (TerminationDescriptor() < 0) return 1;
        const pid_t program = fork();
        if (program == 0) execlp("sleep", "sleep", "60", nullptr);
        // Until the program stands in its place the child has our handlers.
        usleep(300'000);
        kill(program, SIGTERM);
        int status = 0;
        waitpid(program, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM ? 0 : 2;
    });
    EXPECT_EQ(result, 0);
}

}  // namespace
}  // namespace zefta::test
