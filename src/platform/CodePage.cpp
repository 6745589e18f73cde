#include "platform/CodePage.h"

#include <algorithm>
#include <array>

#include "platform/Text.h"

namespace zefta {

namespace {

struct LanguageCodePage {
    /// With its script where a language is written in two.
    std::string_view language;
    int codePage;
};

/// As Windows assigns them; every language that is not here has 1252.
constexpr LanguageCodePage LanguageCodePages[] = {
    {"ru", 1251}, {"uk", 1251}, {"be", 1251},       {"bg", 1251},          {"mk", 1251}, {"sr", 1251},
    {"kk", 1251}, {"ky", 1251}, {"mn", 1251},       {"tt", 1251},          {"pl", 1250}, {"cs", 1250},
    {"sk", 1250}, {"hu", 1250}, {"sl", 1250},       {"hr", 1250},          {"ro", 1250}, {"sq", 1250},
    {"bs", 1250}, {"el", 1253}, {"tr", 1254},       {"az", 1254},          {"uz", 1254}, {"he", 1255},
    {"yi", 1255}, {"ar", 1256}, {"fa", 1256},       {"ur", 1256},          {"lt", 1257}, {"lv", 1257},
    {"et", 1257}, {"vi", 1258}, {"th", 874},        {"tg", 1251},          {"ba", 1251}, {"sah", 1251},
    {"tk", 1250}, {"ug", 1256}, {"sr@latin", 1250}, {"uz@cyrillic", 1251},
};

const LanguageCodePage* RowOf(std::string_view language) {
    const auto found = std::find_if(std::begin(LanguageCodePages), std::end(LanguageCodePages),
                                    [&](const LanguageCodePage& row) { return row.language == language; });
    return found == std::end(LanguageCodePages) ? nullptr : found;
}

}  // namespace

CodePage::CodePage(const std::array<char32_t, 256>& characters) : characters_(characters) {
    for (std::size_t byte = 0; byte < characters_.size(); ++byte)
        bytes_.emplace(characters_[byte], static_cast<char>(byte));
    for (char32_t byte = 0; byte < 0x80; ++byte) keepsAscii_ = keepsAscii_ && characters_[byte] == byte;
}

std::string CodePage::Decode(std::string_view bytes) const {
    if (keepsAscii_ && IsAscii(bytes)) return std::string(bytes);
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes) AppendUtf8(text, characters_[static_cast<unsigned char>(byte)]);
    return text;
}

std::string CodePage::Encode(std::string_view text) const {
    if (keepsAscii_ && IsAscii(text)) return std::string(text);
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const auto character = NextCharacter(text, position);
        const auto found = character ? bytes_.find(*character) : bytes_.end();
        bytes += found == bytes_.end() ? '?' : found->second;
    }
    return bytes;
}

std::string CodePage::ToText(std::string_view bytes) const {
    return IsValidUtf8(bytes) ? std::string(bytes) : Decode(bytes);
}

const std::vector<int>& KnownCodePages() {
    static const std::vector<int> numbers = {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};
    return numbers;
}

int CodePageOfLanguage(std::string_view languageTag) {
    const std::string language(languageTag.substr(0, languageTag.find_first_of("_-.@")));
    const std::string_view script = languageTag.substr(std::min(languageTag.find('@'), languageTag.size()));
    const LanguageCodePage* row = RowOf(language + std::string(script));
    if (row == nullptr) row = RowOf(language);
    return row == nullptr ? 1252 : row->codePage;
}

}  // namespace zefta
