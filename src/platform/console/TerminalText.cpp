#include "platform/console/TerminalText.h"

namespace zefta {

namespace {

bool IsControl(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return (code < 0x20 && byte != '\n' && byte != '\t') || code == 0x7F;
}

/// U+0080 to U+009F, which old terminals know as controls of one byte.
bool BeginsHighControl(std::string_view text) {
    constexpr char Lead = '\xC2';
    return text.size() >= 2 && text[0] == Lead && static_cast<unsigned char>(text[1]) < 0xA0;
}

}  // namespace

std::string WithoutControls(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const bool isHigh = BeginsHighControl(text);
        shown += isHigh || IsControl(text.front()) ? '?' : text.front();
        text.remove_prefix(isHigh ? 2 : 1);
    }
    return shown;
}

}  // namespace zefta
