#include "tags/UTF8.h"

#include "platform/Text.h"

namespace zefta {

namespace {

std::string_view UpToNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

}  // namespace

bool IsWholeUtf8(std::string_view bytes) {
    return bytes.find('\0') == std::string_view::npos && IsValidUtf8(bytes);
}

std::string UTF8ToAnsi(std::string_view bytes) {
    const std::string_view text = UpToNul(bytes);
    return IsValidUtf8(text) ? std::string(text) : "#";
}

std::string AnsiToUTF8(std::string_view text) {
    const std::string_view whole = UpToNul(text);
    return IsValidUtf8(whole) ? std::string(whole) + '\0' : std::string(text);
}

}  // namespace zefta
