#include "app/WindowLoading.h"

#include <utility>

#include "platform/WindowModule.h"

namespace zefta {

LoadedWindows LoadWindows() {
    using MakeWindows = Windows* (*)();
    const auto make = reinterpret_cast<MakeWindows>(FunctionOfWindowModule("MakeZeftaWindows"));
    if (make == nullptr) return {};
    std::unique_ptr<Windows> windows(make());
    const bool displayFails = windows == nullptr;
    return {std::move(windows), displayFails};
}

}  // namespace zefta
