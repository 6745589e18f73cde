#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// Whether UTF8ToAnsi gives all of the text: it is valid and has no NUL.
bool IsWholeUtf8(std::string_view bytes);

// Text between records and the formats that hold UTF-8 strings (Vorbis comments, APE items). Records hold
// UTF-8 too, so nothing is lost on either way.

/// The text of a UTF-8 string, which ends before its first NUL; "#" when it isn't valid UTF-8.
std::string UTF8ToAnsi(std::string_view bytes);

/// The text as UTF-8 with a final NUL, which counts as part of the result; the input as it is, without a
/// NUL, when it can't be told in UTF-8. Text behind a NUL is not taken over.
std::string AnsiToUTF8(std::string_view text);

}  // namespace zefta
