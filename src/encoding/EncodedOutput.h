#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

/// Whether the output of a WAV file of that name has a name of its own. The kind of a file is told without
/// its dot: "xwav" is a WAV file too, and an encoder would write over it.
bool HasOutputName(const std::string& waveName);

/// The path under which the encoder that the state selects leaves its output, in the folder; "" for a name
/// without an output.
std::string EncodedOutputPath(const AppState& state, const std::string& folder, const std::string& waveName);

/// Whether the encoder has made something. An encoder that could not read its input may leave an empty file
/// and still call it a success.
bool HasEncodedOutput(App& app, const std::string& path);

/// Gives a freshly encoded file the tags of its kind: the title is the name of the WAV file without its
/// extension, the encoder is this program.
void TagEncodedOutput(App& app, const std::string& path, const std::string& waveName);

}  // namespace zefta
