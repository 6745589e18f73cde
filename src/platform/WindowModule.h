#pragma once

namespace zefta {

/// The function of that name in the module of windows that stands beside the program or in its library
/// folder; null when there is no module, it can't be loaded, or it has no such function. The module stays
/// loaded.
void* FunctionOfWindowModule(const char* name);

}  // namespace zefta
