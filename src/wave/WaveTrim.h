#pragma once

#include "core/App.h"

namespace zefta {

/// The job of /wavetrim: scans and rewrites all files that match FileSpec. A failure with one file costs a
/// box and the walk goes on; it ends behind the file at hand when the person cancels.
void WaveTrimJob(App& app);

}  // namespace zefta
