#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

/// Runs an outside tool as the state tells, shown or hidden and at its priority, and returns when it has
/// ended. A note tells of one that is not there or complains by its end. False when the person had it ended:
/// what it was making is half-made. An empty command runs nothing.
bool RunTool(App& app, const std::string& command);

/// Runs the program itself, hidden, to trim and, with `normalize`, normalise the WAV file in place.
void RunTrimChild(App& app, const std::string& path, bool normalize);

}  // namespace zefta
