#pragma once

#include <string>

#include "platform/RuntimeError.h"

namespace zefta {

/// The run-time failure that a system error number stands for.
ErrorNumber ErrorNumberOf(int systemError);

/// Throws the failure of the current errno, with the path in its text.
[[noreturn]] void ThrowSystemError(const std::string& path);

}  // namespace zefta
