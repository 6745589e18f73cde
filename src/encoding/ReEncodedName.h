#pragma once

#include <string>

#include "core/AppState.h"
#include "encoding/TargetKind.h"

namespace zefta {

// The names that the re-encoding of a file needs, as pure functions.

/// Name of the WAV file from which the encoder works. Fixed, and so is the name of its output: "temp.ogg".
inline constexpr auto TemporaryWaveName = "temp.wav";

/// The mode as the new name carries it behind the old one: "mode 18", "xtreme", "192 abr"; "" for a constant
/// LAME rate, which leaves empty brackets in the name. Kept: files made so far are found and replaced by it.
std::string ModeInName(const AppState& state, TargetKind target);

/// Full paths, all in the folder of the source.
struct ReEncodeNames {
    std::string folder;
    /// Where the decoder leaves its output: "a.mp3.wav".
    std::string decoded;
    std::string temporaryWave;
    std::string temporaryOutput;
    /// "a (192 abr).mp3" for "a.ogg".
    std::string final;
};

/// `path` is the full path of the source.
ReEncodeNames NamesForReEncoding(const AppState& state, const std::string& path, TargetKind target);

}  // namespace zefta
