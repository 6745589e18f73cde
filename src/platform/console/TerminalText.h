#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// Takes the line at hand off the terminal.
inline constexpr std::string_view ClearLine = "\r\x1b[K";

/// The text with a "?" for each character that a terminal would obey instead of showing it: names of files
/// and texts of tags may hold any. Line ends and tabulators stay.
std::string WithoutControls(std::string_view text);

}  // namespace zefta
