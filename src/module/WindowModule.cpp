// What the program finds in the module of windows: null means that no display can be opened.

#include "ui/DisplayTrial.h"
#include "ui/QtWindows.h"

extern "C" __attribute__((visibility("default"))) zefta::Windows* MakeZeftaWindows() {
    return zefta::CanOpenDisplay() ? new zefta::QtWindows : nullptr;
}
