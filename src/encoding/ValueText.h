#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// The text of a value in which NULs may part several: those that show anything, trimmed, with ", " between.
std::string ValueText(std::string_view value);

}  // namespace zefta
