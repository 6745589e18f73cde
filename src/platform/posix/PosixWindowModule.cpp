#include <dlfcn.h>

#include "platform/Paths.h"
#include "platform/WindowModule.h"
#include "platform/posix/PosixProcesses.h"

namespace zefta {

namespace {

constexpr const char* ModuleName = "libzefta-windows.so";

void* Load(const std::string& folder) {
    // A window uses few of the thousands of functions of the toolkit: each is looked for when it is called.
    return dlopen(JoinPath(folder, ModuleName).c_str(), RTLD_LAZY | RTLD_LOCAL);
}

}  // namespace

void* FunctionOfWindowModule(const char* name) {
    const std::string folder(FolderPart(PosixProcesses().OwnPath()));
    void* module = Load(folder);
    if (module == nullptr) module = Load(JoinPath(folder, "../lib/zefta"));
    return module != nullptr ? dlsym(module, name) : nullptr;
}

}  // namespace zefta
