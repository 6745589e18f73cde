#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/OpenDocument.h"
#include "platform/posix/PosixProcesses.h"

namespace zefta {

bool OpenDocument(const std::string& address) {
    const std::string opener = FindProgram("xdg-open");
    if (opener.empty()) return false;
    const pid_t child = fork();
    if (child == 0) {
        // A grandchild of its own session: nobody has to wait for it, and closing the terminal leaves it
        // open.
        if (fork() != 0) _exit(0);
        setsid();
        execl(opener.c_str(), opener.c_str(), address.c_str(), nullptr);
        _exit(127);
    }
    if (child < 0) return false;
    waitpid(child, nullptr, 0);
    return true;
}

}  // namespace zefta
