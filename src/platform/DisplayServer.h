#pragma once

#include "platform/TrialRun.h"

namespace zefta {

/// How long a display may take to answer before it is none.
inline constexpr unsigned SecondsForDisplay = 10;

/// Begins to find out whether the X server that the environment names lets this program in. No attempt where
/// the toolkit will ask something else for its windows, or no library is there to ask the server by.
TrialRun AskX11Server();

}  // namespace zefta
