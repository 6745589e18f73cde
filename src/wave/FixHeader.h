#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

/// Writes the low half of Frequency over bytes 24 and 25 of the file, the low half of the sample rate in a
/// WAV header. All else stays, and nothing is looked at: the upper half of the rate, the bytes per second
/// and a file that is no WAV file but by its name. Message 1003 when the file can't be opened for writing.
void FixHeader(App& app, const std::string& path);

/// The job of /fixheader: all files that match FileSpec; message 1002 when that does not name WAV files. A
/// failure of one file costs a box and the walk goes on.
void FixHeaderJob(App& app);

}  // namespace zefta
