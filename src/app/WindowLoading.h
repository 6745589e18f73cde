#pragma once

#include <memory>

#include "app/Windows.h"

namespace zefta {

/// Loads the module that holds the windows and the toolkit with it. Null when there is none on this machine.
std::unique_ptr<Windows> LoadWindows();

}  // namespace zefta
