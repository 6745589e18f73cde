#pragma once

#include <cstdint>

#include "core/App.h"
#include "encoding/TargetKind.h"
#include "library/Selection.h"

namespace zefta {

/// An item of one of the mode menus.
struct ModeOfCommand {
    TargetKind kind = TargetKind::MP3;
    /// Its index in the menu of its kind: a LAME code (128, 555, 1128, 9001), an OggVorbisMode or an
    /// MPEGplusMode.
    std::int32_t code = 0;
};

/// Sets the fields of the state that choose an encoder as the commands of the main window do: what the
/// command line or a former command left in the switches is gone, TrimSilence and ReduceLevel are those of
/// the settings.
void SetModeOfCommand(AppState& state, const ModeOfCommand& mode);

// The commands. Each asks first; false, and nothing has happened, for any answer but Yes. A run-time failure
// of one file is shown and the next file follows. The folder of the selection becomes the current one.

/// Encodes the selected WAV files into their folder and tags what came out.
bool EncodeSelected(App& app, const Selection& selection, const ModeOfCommand& mode,
                    const SelectionWatch& watch);

/// Re-encodes the selected files that are no WAV files. With DeleteAfterReCompress the sources go.
bool ReEncodeSelected(App& app, const Selection& selection, const ModeOfCommand& mode,
                      const SelectionWatch& watch);

/// Decodes the selected files of compressed audio.
bool DecodeSelected(App& app, const Selection& selection, const SelectionWatch& watch);

}  // namespace zefta
