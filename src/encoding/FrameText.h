#pragma once

#include <string>

#include "platform/CodePage.h"

namespace zefta {

/// The text behind a value of an ID3v2 frame as the reader gives it. The reader looks at no encoding: text in
/// UTF-16 with a byte order mark comes as characters of the code page, and NULs end a value or part several
/// in one frame. Here UTF-16 is decoded, the parts are joined by ", " and blanks at the ends go.
std::string TextOfFrame(const std::string& value, const CodePage& ansi);

}  // namespace zefta
