#pragma once

#include <string>

#include "core/App.h"
#include "wave/WaveFile.h"

namespace zefta {

/// Copies one file by WaveFile::CopyWave with its events, so that `target` has either its whole content or
/// what it had before; false when it can't be copied, which a box has told then: the source can't be opened
/// (message 1006), the target can't be created or is the source (message 1007), or a run-time failure. In a
/// preview nothing is copied.
bool CopyTrack(App& app, WaveFile& wave, const std::string& source, const std::string& target);

}  // namespace zefta
