#pragma once

#include <string>
#include <string_view>

#include "core/App.h"

namespace zefta {

// The way of the main window through the folders.

/// The folder that a person means by what was typed: "~" is the home folder, a relative path counts from
/// `folder`. Keeps a closing separator. `folder` itself for "".
std::string TypedFolder(const App& app, const std::string& folder, const std::string& typed);

/// With each run of separators made a single one.
std::string WithoutDoubledSeparators(std::string_view path);

/// Whether the path, which is absolute, names the folder above all others.
bool IsRoot(std::string_view path);

/// The folder above an absolute path; the root for the root.
std::string FolderAbove(std::string_view path);

}  // namespace zefta
