#pragma once

#include <string>

namespace zefta {

/// Name of the program that reads discs and asks databases: what its libraries do in a damaged image, a
/// worn-out drive or a silent network can't take the window with it.
inline constexpr const char* DiscHelperName = "zefta-cd";

/// Full path of the helper beside the running program or in its library folder; "" when this build has none.
std::string DiscHelperPath(const std::string& ownPath);

}  // namespace zefta
