#include <algorithm>
#include <cstdint>
#include <iconv.h>

#include "platform/CodePage.h"

namespace zefta {

namespace {

/// One byte as the system's converter reads it; the byte's own number when the code page leaves it undefined.
char32_t CharacterOf(iconv_t converter, unsigned char number) {
    char byte = static_cast<char>(number);
    char* in = &byte;
    std::size_t inLeft = 1;
    char32_t character = 0;
    char* out = reinterpret_cast<char*>(&character);
    std::size_t outLeft = sizeof character;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    const std::size_t result = iconv(converter, &in, &inLeft, &out, &outLeft);
    // Some tables hold a letter back, to compose it with a mark that may follow: the empty input lets it go.
    if (result != static_cast<std::size_t>(-1)) iconv(converter, nullptr, nullptr, &out, &outLeft);
    return outLeft == 0 ? character : number;
}

std::array<char32_t, 256> ReadTable(int number) {
    std::array<char32_t, 256> characters;
    for (std::size_t i = 0; i < characters.size(); ++i) characters[i] = static_cast<char32_t>(i);
    const iconv_t converter = iconv_open("UTF-32LE", ("CP" + std::to_string(number)).c_str());
    if (converter == reinterpret_cast<iconv_t>(-1)) return characters;
    for (std::size_t i = 0x80; i < characters.size(); ++i)
        characters[i] = CharacterOf(converter, static_cast<unsigned char>(i));
    iconv_close(converter);
    return characters;
}

}  // namespace

CodePage LoadCodePage(int number) {
    const auto& known = KnownCodePages();
    const bool isKnown = std::find(known.begin(), known.end(), number) != known.end();
    return CodePage(ReadTable(isKnown ? number : 1252));
}

}  // namespace zefta
