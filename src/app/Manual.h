#pragma once

#include "core/App.h"

namespace zefta {

/// Opens ReadMe.html of the program's folder; a warning when it is not there or nothing can show it.
void OpenManual(App& app);

}  // namespace zefta
