#include <dlfcn.h>

#include "platform/FontConfiguration.h"

namespace zefta {

void LoadFontConfiguration() {
    // By name, since programs that show no window must not load it. It stays: the toolkit uses the same one.
    void* library = dlopen("libfontconfig.so.1", RTLD_LAZY | RTLD_LOCAL);
    if (library == nullptr) return;
    using Initialise = int (*)();
    const auto initialise = reinterpret_cast<Initialise>(dlsym(library, "FcInit"));
    if (initialise != nullptr) initialise();
}

}  // namespace zefta
