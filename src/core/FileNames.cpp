#include "core/FileNames.h"

#include <algorithm>
#include <array>

#include "core/Strings.h"
#include "platform/Text.h"

namespace zefta {

namespace {

// 255 bytes is what file systems take; an extension of four has to fit.
constexpr std::size_t MaximumLength = 251;

bool IsForbidden(char character) {
    constexpr std::string_view Forbidden = "\\/:*?\"<>|";
    return static_cast<unsigned char>(character) < 32 || character == 127 ||
           Forbidden.find(character) != std::string_view::npos;
}

/// Devices answer to their names with any extension: "con.txt" is the console too.
bool IsDeviceName(std::string_view name) {
    constexpr std::array<std::string_view, 4> Devices = {"con", "prn", "aux", "nul"};
    const std::string stem = AsciiLower(Trim(name.substr(0, name.find('.'))));
    if (std::find(Devices.begin(), Devices.end(), stem) != Devices.end()) return true;
    return stem.size() == 4 && (stem.starts_with("com") || stem.starts_with("lpt")) && stem[3] >= '1' &&
           stem[3] <= '9';
}

/// The longest run of whole characters that fits.
std::string CutToLength(const std::string& text) {
    std::size_t length = 0;
    for (std::size_t next = 0; next < text.size();) {
        NextCharacter(text, next);
        if (next > MaximumLength) break;
        length = next;
    }
    return text.substr(0, length);
}

void DropDotsAndBlanksAtEnd(std::string& name) {
    name.resize(name.find_last_not_of(". ") + 1);
}

}  // namespace

std::string MakeFileName(std::string_view text) {
    std::string name(text);
    std::replace_if(name.begin(), name.end(), IsForbidden, '_');
    DropDotsAndBlanksAtEnd(name);
    if (IsDeviceName(name)) name.insert(std::min(name.find('.'), name.size()), "_");
    name = CutToLength(name);
    DropDotsAndBlanksAtEnd(name);
    return name;
}

}  // namespace zefta
