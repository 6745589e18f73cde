#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// What is shown of a value: what follows a NUL never was.
std::string_view ShownText(std::string_view value);

/// What is shown of the first value that shows anything.
std::string FirstShown(std::string_view first, std::string_view second);

}  // namespace zefta
