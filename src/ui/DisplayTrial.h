#pragma once

#include "platform/TrialRun.h"

namespace zefta {

/// Whether the toolkit can open the display of this session. It ends the process that tries in vain, so
/// another one tries; a display that does not answer for some seconds is none.
/// `server`: what AskX11Server began, which may answer sooner.
bool CanOpenDisplay(TrialRun server);

}  // namespace zefta
