#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "app/Windows.h"
#include "core/App.h"

namespace zefta {

/// The job ended without a complaint.
inline constexpr int ExitDone = 0;
/// A warning or error was shown, or a failure ended the process.
inline constexpr int ExitComplaint = 1;
/// The job needs a display and there is none.
inline constexpr int ExitNoDisplay = 2;

/// The entry routine: loads the settings, reads the command line (without the program's name), runs the one
/// job that it names and gives the exit status. Text that a person asked for goes to `output`; without
/// `openWindows` a job that is a window says that there is none.
int RunZefta(App& app, const std::vector<std::string>& arguments, std::ostream& output,
             const WindowOpener& openWindows = {});

}  // namespace zefta
