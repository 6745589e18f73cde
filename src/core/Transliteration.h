#pragma once

#include <optional>
#include <string_view>

namespace zefta {

/// The plain ASCII that is written for a character of another kind: its base letter for a Latin letter with
/// marks, the usual spelling of a Cyrillic or Greek one, the twin of a typographic dash or quote. "" for
/// marks and signs that go without trace. Nothing for a character that has no spelling, and for ASCII.
std::optional<std::string_view> AsciiSpelling(char32_t character);

}  // namespace zefta
