#include "app/WindowLoading.h"

#include "platform/WindowModule.h"

namespace zefta {

std::unique_ptr<Windows> LoadWindows() {
    using MakeWindows = Windows* (*)();
    const auto make = reinterpret_cast<MakeWindows>(FunctionOfWindowModule("MakeZeftaWindows"));
    return std::unique_ptr<Windows>(make != nullptr ? make() : nullptr);
}

}  // namespace zefta
