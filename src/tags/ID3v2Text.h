#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/CodePage.h"

namespace zefta {

/// The body of a text, comment or address frame in the form in which the program writes it: text in the code
/// page, no encoding byte. Takes the body with its encoding byte: 0 code page, 1 UTF-16 with a byte order
/// mark, 2 UTF-16 big-endian, 3 UTF-8 (ID3v2.4 section 4); any other is taken as it stands. Nothing when the
/// text is damaged or has a character that the code page lacks.
std::optional<std::string> ID3v2BodyInCodePage(std::string_view identifier, std::string_view body,
                                               const CodePage& ansi);

}  // namespace zefta
