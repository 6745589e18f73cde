#pragma once

#include <string>

#include "core/AppState.h"

namespace zefta {

// The command lines of the outside tools, as pure functions of the encoder fields of the state.
// Paths stand in double quotes (QuotePath); nothing else is escaped.

/// Name and place of one WAV file on its way to an encoder.
struct EncodeSource {
    /// Name of the WAV file.
    std::string name;
    /// Its full path.
    std::string path;
    /// Folder for the output; "" for the current folder.
    std::string destination;
};

/// The program itself, to trim and, with `normalize`, normalise one WAV file in place without a backup.
/// `ownPath` is the path of the running program.
std::string TrimChildCommand(const AppState& state, const std::string& ownPath, const std::string& path,
                             bool normalize);

/// The output is named after the source and goes to the current folder, whatever the destination.
std::string OggEncodeCommand(const AppState& state, const EncodeSource& source);

std::string MPEGplusEncodeCommand(const AppState& state, const EncodeSource& source);

/// "" when the state names no LAME mode: nothing is to be run then.
std::string LameEncodeCommand(const AppState& state, const EncodeSource& source);

/// The command of the encoder that the state selects: Ogg Vorbis before MPEGplus before LAME.
std::string EncodeCommand(const AppState& state, const EncodeSource& source);

// The decoders take the full path of a compressed file.

std::string OggDecodeCommand(const std::string& path);
std::string MPEGplusDecodeCommand(const std::string& path);
std::string LameDecodeCommand(const std::string& path);

/// The command of the decoder that the state selects, in the same order.
std::string DecodeCommand(const AppState& state, const std::string& path);

/// Where the decoded file belongs: "a.ogg.wav" for "a.ogg".
std::string DecodedPath(const std::string& path);

/// Where the Ogg Vorbis decoder puts it: "a.wav" for "a.ogg" and "a.OGG". The path ends in ".ogg" in any
/// case.
std::string OggDecoderOutput(const std::string& path);

}  // namespace zefta
