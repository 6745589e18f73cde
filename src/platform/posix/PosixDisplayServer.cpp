#include <dlfcn.h>

#include "platform/DisplayServer.h"

namespace zefta {

namespace {

// As the library declares them. It is asked for by name, since programs that show no window must not load it.
using Connect = void* (*)(const char* display, int* screen);
using HasError = int (*)(void* connection);
using Disconnect = void (*)(void* connection);

template <typename Function>
Function FunctionOf(void* library, const char* name) {
    return reinterpret_cast<Function>(dlsym(library, name));
}

}  // namespace

bool ReachesX11Server() {
    void* library = dlopen("libxcb.so.1", RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) return false;
    const auto connect = FunctionOf<Connect>(library, "xcb_connect");
    const auto hasError = FunctionOf<HasError>(library, "xcb_connection_has_error");
    const auto disconnect = FunctionOf<Disconnect>(library, "xcb_disconnect");
    if (connect == nullptr || hasError == nullptr || disconnect == nullptr) return false;
    void* connection = connect(nullptr, nullptr);
    const bool reached = hasError(connection) == 0;
    disconnect(connection);
    return reached;
}

}  // namespace zefta
