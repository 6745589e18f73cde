#pragma once

#include <cstdint>
#include <limits>

#include "platform/RuntimeError.h"

namespace zefta {

/// A position in a file as the program counts it. RuntimeError 6 beyond 2 GiB.
inline std::int32_t CheckedPosition(std::int64_t position) {
    if (position > std::numeric_limits<std::int32_t>::max()) throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<std::int32_t>(position);
}

}  // namespace zefta
