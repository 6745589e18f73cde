#pragma once

#include "app/Windows.h"

namespace zefta {

/// Loads the module that holds the windows and the toolkit with it.
LoadedWindows LoadWindows();

}  // namespace zefta
