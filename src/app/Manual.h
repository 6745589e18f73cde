#pragma once

#include "core/App.h"

namespace zefta {

/// Opens ReadMe.html of the program's folder. RuntimeError 53 when it is not there, a warning when nothing
/// can show it.
void OpenManual(App& app);

}  // namespace zefta
