#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// Without the blanks (and only blanks: tabs and line ends stay) at both ends.
std::string Trim(std::string_view text);

/// Lower case of the 26 ASCII letters: for file kinds, options and keys. Text.h folds all scripts.
std::string AsciiLower(std::string_view text);

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b);

/// All occurrences of `what`, from left to right; text put in is not looked at again.
std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

/// The same, finding `what` in any ASCII case.
std::string ReplaceAllIgnoringCase(std::string_view text, std::string_view what, std::string_view with);

/// Where the last `what` begins; npos when there is none. Faster than rfind on bytes of every kind.
std::size_t FindLast(std::string_view text, std::string_view what);

/// Text of exactly `length` bytes: longer text is cut at the right, shorter text is filled with NUL bytes.
/// Takes text in its form on disk, since widths of fields count bytes there.
std::string FitString(std::string_view bytes, std::size_t length);

/// Whether the name, in any case, matches the mask: '*' stands for any run of characters, '?' for one
/// character, everything else for itself. "*.*" wants a dot.
bool MatchesMask(std::string_view name, std::string_view mask);

}  // namespace zefta
