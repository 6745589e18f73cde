#include "core/FileNames.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/Strings.h"
#include "platform/Text.h"

namespace zefta {

namespace {

constexpr std::size_t ExtensionLength = 4;

bool IsForbidden(char32_t character) {
    constexpr std::u32string_view Forbidden = U"\\/:*?\"<>|";
    const bool isControl = character < 32 || (character >= 127 && character < 160);
    return isControl || Forbidden.find(character) != std::u32string_view::npos;
}

std::string WithAllowedCharacters(std::string_view text) {
    std::string name;
    name.reserve(text.size());
    for (std::size_t next = 0; next < text.size();) {
        const std::size_t start = next;
        const auto character = NextCharacter(text, next);
        if (!character || IsForbidden(*character)) {
            name += '_';
        } else {
            name += text.substr(start, next - start);
        }
    }
    return name;
}

/// The serial and parallel ports: a digit, also a raised one.
bool IsPortName(std::string_view stem) {
    constexpr std::array<std::string_view, 3> RaisedDigits = {"\u00B9", "\u00B2", "\u00B3"};
    if (!stem.starts_with("com") && !stem.starts_with("lpt")) return false;
    const std::string_view digit = stem.substr(3);
    if (digit.size() == 1) return digit[0] >= '1' && digit[0] <= '9';
    return std::find(RaisedDigits.begin(), RaisedDigits.end(), digit) != RaisedDigits.end();
}

/// Devices answer to their names with any extension: "con.txt" is the console too.
bool IsDeviceName(std::string_view name) {
    constexpr std::array<std::string_view, 6> Devices = {"con", "prn", "aux", "nul", "conin$", "conout$"};
    const std::string stem = AsciiLower(Trim(name.substr(0, name.find('.'))));
    return std::find(Devices.begin(), Devices.end(), stem) != Devices.end() || IsPortName(stem);
}

bool IsAsciiLetterOrDigit(char character) {
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
           (character >= 'A' && character <= 'Z');
}

/// The dot and three letters or digits that end the name; "" when it ends otherwise.
std::string_view ShortExtension(std::string_view name) {
    if (name.size() <= ExtensionLength) return {};
    const std::string_view end = name.substr(name.size() - ExtensionLength);
    return end[0] == '.' && std::all_of(end.begin() + 1, end.end(), IsAsciiLetterOrDigit)
               ? end
               : std::string_view();
}

void DropDotsAndBlanksAtEnd(std::string& name) {
    name.resize(name.find_last_not_of(". ") + 1);
}

std::string CutToLongestName(std::string name) {
    if (name.size() <= LongestMadeName) return name;
    const std::string extension(ShortExtension(name));
    std::string stem(CutToBytes(name, LongestMadeName - extension.size()));
    DropDotsAndBlanksAtEnd(stem);
    return stem + extension;
}

}  // namespace

std::string MakeFileName(std::string_view text) {
    std::string name = WithAllowedCharacters(text);
    DropDotsAndBlanksAtEnd(name);
    // Cutting may leave the name of a device alone, and what is put into one needs room.
    return WithoutDeviceName(CutToLongestName(WithoutDeviceName(std::move(name))));
}

std::string SpacesToUnderscores(std::string_view text) {
    std::string name(text);
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

std::string_view CutToBytes(std::string_view text, std::size_t most) {
    if (text.size() <= most) return text;
    std::size_t length = 0;
    for (std::size_t next = 0; next < text.size();) {
        NextCharacter(text, next);
        if (next > most) break;
        length = next;
    }
    return text.substr(0, length);
}

std::string WithoutDeviceName(std::string name) {
    if (IsDeviceName(name)) name.insert(std::min(name.find('.'), name.size()), "_");
    return name;
}

std::size_t ExtensionStart(std::string_view name) {
    std::size_t behind = 0;
    for (std::size_t count = 0; count < ExtensionLength; ++count) {
        if (behind == name.size()) return 0;
        NextCharacter(name, behind);
    }
    std::size_t start = 0;
    while (behind < name.size()) {
        NextCharacter(name, behind);
        NextCharacter(name, start);
    }
    return start;
}

}  // namespace zefta
