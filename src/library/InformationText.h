#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

/// What the dialog with the information of a compressed file shows, as lines of text: its measures, and of
/// each tag that it has a heading and a line for each field. A control character in a name or value becomes
/// a blank.
/// "" for a file that can't be opened.
std::string InformationText(App& app, const std::string& path);

}  // namespace zefta
