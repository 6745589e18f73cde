#include "ui/DisplayTrial.h"

#include <QGuiApplication>
#include <stdexcept>

#include "platform/DisplayServer.h"
#include "platform/TrialRun.h"

namespace zefta {

namespace {

void OpenDisplay() {
    static int count = 1;
    static char name[] = "zefta";
    static char* arguments[] = {name, nullptr};
    // The session is not to take notice of a program that is gone again at once.
    qunsetenv("SESSION_MANAGER");
    // Left to the end of the process, which is near.
    new QGuiApplication(count, arguments);
}

void ReachServer() {
    if (!ReachesX11Server()) throw std::runtime_error("no server");
}

/// The toolkit asks that server for windows unless it is told otherwise.
bool UsesX11() {
    return qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

}  // namespace

bool CanOpenDisplay() {
    constexpr unsigned SecondsToAnswer = 10;
    // The toolkit takes tens of milliseconds to begin, for which each start of a window would wait.
    if (UsesX11() && SucceedsInOwnProcess(ReachServer, SecondsToAnswer)) return true;
    return SucceedsInOwnProcess(OpenDisplay, SecondsToAnswer);
}

}  // namespace zefta
