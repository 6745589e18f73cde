#include "ui/DisplayTrial.h"

#include <QGuiApplication>

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

}  // namespace

bool CanOpenDisplay() {
    constexpr unsigned SecondsToAnswer = 10;
    return SucceedsInOwnProcess(OpenDisplay, SecondsToAnswer);
}

}  // namespace zefta
