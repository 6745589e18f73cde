#pragma once

#include <string_view>

#include "core/AppState.h"

namespace zefta {

/// Applies a mode word of /encode, given in lower case ("128", "oq5", "xtreme"). False, and nothing changes,
/// for a word that is none. "abr" is not among them, since it takes a number of its own.
bool ApplyModeWord(AppState& state, std::string_view word);

}  // namespace zefta
