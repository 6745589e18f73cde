#pragma once

#include <string>
#include <string_view>

#include "platform/CodePage.h"

namespace zefta {

/// The text of a frame, UTF-8.
struct ID3v2Text {
    std::string text;
    /// False when the bytes are no sound text of their encoding: the text is what could be made of them.
    bool isWhole = true;
};

/// Decodes the body of a text, comment or address frame by its encoding byte: 0 code page, 1 UTF-16 with a
/// byte order mark, 2 UTF-16 big-endian, 3 UTF-8 (ID3v2.4 section 4); any other one counts as 0. The language
/// of a comment stays in front with a NUL behind it, an address has the NUL alone; descriptions are dropped.
/// NULs at the end go; those between several values stay.
ID3v2Text DecodeID3v2Body(std::string_view identifier, std::string_view body, const CodePage& ansi);

/// Whether the encoding byte of the body says that its text is in the code page.
bool IsInCodePage(std::string_view body);

}  // namespace zefta
