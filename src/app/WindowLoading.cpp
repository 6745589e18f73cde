#include "app/WindowLoading.h"

#include <utility>

#include "platform/DisplayServer.h"
#include "platform/WindowModule.h"

namespace zefta {

LoadedWindows LoadWindows() {
    // It answers while the module is loaded.
    TrialRun server = AskX11Server();
    using MakeWindows = Windows* (*)(TrialRun&);
    const auto make = reinterpret_cast<MakeWindows>(FunctionOfWindowModule("MakeZeftaWindows"));
    if (make == nullptr) return {};
    std::unique_ptr<Windows> windows(make(server));
    const bool displayFails = windows == nullptr;
    return {std::move(windows), displayFails};
}

}  // namespace zefta
