#include <cstdlib>
#include <dlfcn.h>
#include <stdexcept>

#include "platform/DisplayServer.h"

namespace zefta {

namespace {

// As the library declares them. It is asked for by name, since programs that show no window must not load it.
using Connect = void* (*)(const char* display, int* screen);
using HasError = int (*)(void* connection);

template <typename Function>
Function FunctionOf(void* library, const char* name) {
    return reinterpret_cast<Function>(dlsym(library, name));
}

bool IsEmpty(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr || *value == '\0';
}

/// The toolkit asks that server for windows unless it is told otherwise.
bool UsesX11() {
    return IsEmpty("WAYLAND_DISPLAY") && IsEmpty("QT_QPA_PLATFORM");
}

void ReachServer() {
    void* library = dlopen("libxcb.so.1", RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) throw std::runtime_error("no library");
    const auto connect = FunctionOf<Connect>(library, "xcb_connect");
    const auto hasError = FunctionOf<HasError>(library, "xcb_connection_has_error");
    if (connect == nullptr || hasError == nullptr || hasError(connect(nullptr, nullptr)) != 0)
        throw std::runtime_error("no server");
}

}  // namespace

TrialRun AskX11Server() {
    return UsesX11() ? TrialRun(ReachServer, SecondsForDisplay) : TrialRun();
}

}  // namespace zefta
