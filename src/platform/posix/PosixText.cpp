#include <locale.h>
#include <wctype.h>

#include "platform/Text.h"

namespace zefta {

namespace {

/// The C library's own tables of all scripts, whatever the locale of the person.
locale_t UnicodeLocale() {
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale;
}

char AsciiToLower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

char AsciiToUpper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - ('a' - 'A')) : character;
}

char32_t CharacterToLower(char32_t character) {
    if (character < 0x80) return static_cast<unsigned char>(AsciiToLower(static_cast<char>(character)));
    return static_cast<char32_t>(towlower_l(static_cast<wint_t>(character), UnicodeLocale()));
}

/// The character at the position, which moves behind it. A byte that is no UTF-8 is a number beyond all
/// characters.
char32_t NextCharacterOrByte(std::string_view text, std::size_t& position) {
    constexpr char32_t BeyondAll = 0x110000;
    const auto byte = static_cast<unsigned char>(text[position]);
    if (byte >= 0x80) return NextCharacter(text, position).value_or(BeyondAll + byte);
    ++position;
    return byte;
}

std::string MapAscii(std::string_view text, char (*fold)(char)) {
    std::string mapped(text);
    for (char& character : mapped) character = fold(character);
    return mapped;
}

template <typename Fold>
std::string Map(std::string_view text, Fold fold) {
    std::string mapped;
    mapped.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        if (const auto character = NextCharacter(text, position)) {
            AppendUtf8(mapped, fold(*character));
        } else {
            mapped += text[start];
        }
    }
    return mapped;
}

}  // namespace

std::string ToLower(std::string_view text) {
    if (IsAscii(text)) return MapAscii(text, AsciiToLower);
    return Map(text, CharacterToLower);
}

std::string ToUpper(std::string_view text) {
    if (IsAscii(text)) return MapAscii(text, AsciiToUpper);
    return Map(text, [](char32_t character) -> char32_t {
        if (character < 0x80) return static_cast<unsigned char>(AsciiToUpper(static_cast<char>(character)));
        return static_cast<char32_t>(towupper_l(static_cast<wint_t>(character), UnicodeLocale()));
    });
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    std::size_t inA = 0;
    std::size_t inB = 0;
    while (inA < a.size() && inB < b.size()) {
        const char32_t inFirst = NextCharacterOrByte(a, inA);
        const char32_t inSecond = NextCharacterOrByte(b, inB);
        if (inFirst != inSecond && CharacterToLower(inFirst) != CharacterToLower(inSecond)) return false;
    }
    return inA == a.size() && inB == b.size();
}

}  // namespace zefta
