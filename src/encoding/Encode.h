#pragma once

#include "core/App.h"
#include "encoding/CommandLines.h"

namespace zefta {

/// Trims the WAV file by a child of the program when the state says so, then runs the encoder that the state
/// selects, and returns when it has ended. Whether it worked shows only in the output file.
void EncodeFile(App& app, EncodeSource source);

/// The job of /encode over FileSpec: encodes each WAV file into its own folder and tags the output.
/// RuntimeError 76 when the folder can't be entered.
void EncodeJob(App& app);

}  // namespace zefta
