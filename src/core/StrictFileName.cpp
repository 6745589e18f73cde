#include "core/StrictFileName.h"

#include "core/FileNames.h"
#include "core/Strings.h"
#include "core/Transliteration.h"
#include "platform/Text.h"

namespace zefta {

namespace {

bool IsKept(char32_t character) {
    constexpr std::u32string_view KeptSigns = U" -_.,()[]{}&'!+";
    const bool isDigit = character >= '0' && character <= '9';
    const bool isLetter = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
    return isDigit || isLetter || KeptSigns.find(character) != std::u32string_view::npos;
}

void AppendAscii(std::string& name, char32_t character) {
    name += IsKept(character) ? static_cast<char>(character) : '_';
}

void AppendSpelled(std::string& name, char32_t character) {
    const auto spelling = AsciiSpelling(character);
    if (!spelling) return AppendAscii(name, character);
    for (const char letter : *spelling) AppendAscii(name, static_cast<unsigned char>(letter));
}

}  // namespace

std::string StrictFileName(std::string_view text) {
    std::string name;
    name.reserve(text.size());
    // A byte that is no UTF-8 is no character that could be kept.
    for (std::size_t next = 0; next < text.size();)
        AppendSpelled(name, NextCharacter(text, next).value_or(U'\0'));
    name = WithoutDeviceName(Trim(name));
    // Cutting may leave the name of a device alone.
    return WithoutDeviceName(Trim(CutToBytes(name, LongestMadeName)));
}

}  // namespace zefta
