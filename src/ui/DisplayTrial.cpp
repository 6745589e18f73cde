#include "ui/DisplayTrial.h"

#include <QGuiApplication>

#include "platform/DisplayServer.h"

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

}  // namespace

bool CanOpenDisplay(TrialRun server) {
    // The toolkit takes tens of milliseconds to begin, for which each start of a window would wait.
    return server.Succeeds() || SucceedsInOwnProcess(OpenDisplay, SecondsForDisplay);
}

}  // namespace zefta
