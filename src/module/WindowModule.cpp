// What the program finds in the module of windows.

#include "ui/QtWindows.h"

extern "C" __attribute__((visibility("default"))) zefta::Windows* MakeZeftaWindows() {
    return new zefta::QtWindows;
}
