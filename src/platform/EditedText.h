#pragma once

#include <string_view>

namespace zefta {

// What stands around the text in files that people edit.

/// What editors put in front of a text in UTF-8.
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

inline bool HasByteOrderMark(std::string_view text) {
    return text.starts_with(ByteOrderMark);
}

inline std::string_view WithoutByteOrderMark(std::string_view text) {
    if (HasByteOrderMark(text)) text.remove_prefix(ByteOrderMark.size());
    return text;
}

/// Without the blanks and tabs at both ends.
inline std::string_view TrimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace zefta
