#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

/// The path under which the encoder that the state selects leaves its output, in the folder.
std::string EncodedOutputPath(const AppState& state, const std::string& folder, const std::string& name);

/// Whether the encoder has made something. An encoder that could not read its input may leave an empty file
/// and still call it a success.
bool HasEncodedOutput(App& app, const std::string& path);

/// Gives a freshly encoded file its tag: the title is the name of the WAV file without its extension, the
/// encoder is this program.
void TagEncodedOutput(App& app, const std::string& path, const std::string& waveName);

}  // namespace zefta
