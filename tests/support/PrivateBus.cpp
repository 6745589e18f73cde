#include "support/PrivateBus.h"

#include <csignal>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zefta::test {

namespace {

std::string Configuration(const std::string& folder) {
    return "<busconfig><type>session</type><listen>unix:path=" + folder +
           "/bus</listen><auth>EXTERNAL</auth>"
           "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
           "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy>"
           "</busconfig>\n";
}

[[noreturn]] void BecomeDaemon(const std::string& configuration, int addressEnd) {
    // A test that dies leaves no bus behind.
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    dup2(addressEnd, STDOUT_FILENO);
    // What it says about limits of the machine is nothing that a test has done.
    if (const int null = open("/dev/null", O_WRONLY); null >= 0) dup2(null, STDERR_FILENO);
    const std::string option = "--config-file=" + configuration;
    execlp("dbus-daemon", "dbus-daemon", option.c_str(), "--nofork", "--print-address=1", nullptr);
    _exit(127);
}

/// The first line; the bus serves from then on.
std::string ReadLine(int descriptor) {
    std::string line;
    for (char byte = 0; read(descriptor, &byte, 1) == 1 && byte != '\n';) line += byte;
    return line;
}

}  // namespace

PrivateBus::PrivateBus() {
    const std::string configuration = folder_.Write("bus.conf", Configuration(folder_.Path()));
    int ends[2];
    if (pipe(ends) != 0) return;
    daemon_ = fork();
    if (daemon_ == 0) BecomeDaemon(configuration, ends[1]);
    close(ends[1]);
    address_ = ReadLine(ends[0]);
    close(ends[0]);
}

PrivateBus::~PrivateBus() {
    if (daemon_ <= 0) return;
    kill(daemon_, SIGTERM);
    waitpid(daemon_, nullptr, 0);
}

}  // namespace zefta::test
