#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zefta {

bool IsValidUtf8(std::string_view text);

/// Whether all bytes are below 128: such a text is the same in every code page and in UTF-8.
bool IsAscii(std::string_view text);

/// The character that begins at `position`, which moves behind it. Empty, and the position moves on by one
/// byte, when no valid UTF-8 character begins there.
std::optional<char32_t> NextCharacter(std::string_view text, std::size_t& position);

void AppendUtf8(std::string& text, char32_t character);

/// Case of all scripts, character by character. Bytes that are no UTF-8 stay as they are.
std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);

/// Whether ToLower gives the same for both. Most texts are told apart by their first letters, at no cost.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

}  // namespace zefta
