// What the program finds in the module of windows: null means that no display can be opened.

#include <utility>

#include "ui/DisplayTrial.h"
#include "ui/QtWindows.h"

extern "C" __attribute__((visibility("default"))) zefta::Windows* MakeZeftaWindows(zefta::TrialRun& server) {
    return zefta::CanOpenDisplay(std::move(server)) ? new zefta::QtWindows : nullptr;
}
