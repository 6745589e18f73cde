#pragma once

#include <string>
#include <string_view>

#include "core/App.h"

namespace zefta {

/// Whether the job only tells what it would do. The file system of the App then keeps every change in memory,
/// so that a worker goes its usual way; what would be slow for nothing, such as the copying of audio, it may
/// leave out.
bool IsPreview(const App& app);

/// The text with each control character as a blank, so that it stays one line; a run of line ends is one
/// blank.
std::string OneLine(std::string_view text);

/// Tells a step of a previewed job in one line: "rename: old -> new", "collision: new is taken",
/// "refused: name: reason", "tags: path: ...", "unchanged: path", "folder: path", "copy: source -> target",
/// "write: path: ...". "in: folder" tells that the names in the lines behind it are of that folder, "." being
/// the one where the job began. Names are bytes. Does nothing in a run that is no preview.
void TellStep(App& app, std::string_view line);

}  // namespace zefta
