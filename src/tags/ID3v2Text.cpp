#include "tags/ID3v2Text.h"

#include <algorithm>

#include "platform/Text.h"

namespace zefta {

namespace {

using namespace std::string_view_literals;

enum Encoding : char { Utf16 = 1, Utf16BigEndian = 2, Utf8 = 3 };

constexpr std::size_t LanguageLength = 3;

/// Two bytes of UTF-16 text.
char32_t UnitAt(std::string_view bytes, std::size_t at, bool bigEndian) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return bigEndian ? char32_t{first} << 8 | second : char32_t{second} << 8 | first;
}

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

std::optional<std::string> FromUtf16(std::string_view bytes, bool bigEndian) {
    if (bytes.size() % 2 != 0) return std::nullopt;
    std::string text;
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        char32_t character = UnitAt(bytes, at, bigEndian);
        if (IsHighSurrogate(character) && at + 2 < bytes.size()) {
            const char32_t low = UnitAt(bytes, at += 2, bigEndian);
            if (!IsLowSurrogate(low)) return std::nullopt;
            character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
        } else if (IsHighSurrogate(character) || IsLowSurrogate(character)) {
            return std::nullopt;
        }
        AppendUtf8(text, character);
    }
    return text;
}

/// Without a mark the order of most writers is taken.
std::optional<std::string> FromMarkedUtf16(std::string_view bytes) {
    if (bytes.starts_with("\xFE\xFF"sv)) return FromUtf16(bytes.substr(2), true);
    return FromUtf16(bytes.substr(bytes.starts_with("\xFF\xFE"sv) ? 2 : 0), false);
}

std::optional<std::string> TextOf(std::string_view bytes, char encoding) {
    if (encoding == Utf16) return FromMarkedUtf16(bytes);
    if (encoding == Utf16BigEndian) return FromUtf16(bytes, true);
    return IsValidUtf8(bytes) ? std::optional(std::string(bytes)) : std::nullopt;
}

/// In the code page, without the NULs at the end.
std::optional<std::string> InCodePage(std::string_view bytes, char encoding, const CodePage& ansi) {
    std::optional<std::string> text = TextOf(bytes, encoding);
    if (!text) return std::nullopt;
    while (text->ends_with('\0')) text->pop_back();
    std::string encoded = ansi.Encode(*text);
    return ansi.Decode(encoded) == *text ? std::optional(std::move(encoded)) : std::nullopt;
}

struct Described {
    std::string_view description;
    std::string_view rest;
};

/// Description, its end, and what stands behind it.
Described SplitDescription(std::string_view bytes, char encoding) {
    const std::size_t width = encoding == Utf8 ? 1 : 2;
    for (std::size_t at = 0; at + width <= bytes.size(); at += width) {
        if (bytes.substr(at, width) == "\0\0"sv.substr(0, width))
            return {bytes.substr(0, at), bytes.substr(at + width)};
    }
    return {"", bytes};
}

}  // namespace

std::optional<std::string> ID3v2BodyInCodePage(std::string_view identifier, std::string_view body,
                                               const CodePage& ansi) {
    if (body.empty()) return std::string();
    const char encoding = body.front();
    body.remove_prefix(1);
    if (encoding < Utf16 || encoding > Utf8) return std::string(body);
    if (identifier == "WXXX") return '\0' + std::string(SplitDescription(body, encoding).rest);
    if (identifier != "COMM") return InCodePage(body, encoding, ansi);
    const std::string_view language = body.substr(0, LanguageLength);
    const auto text =
        InCodePage(SplitDescription(body.substr(language.size()), encoding).rest, encoding, ansi);
    if (!text) return std::nullopt;
    return std::string(language) + '\0' + *text;
}

}  // namespace zefta
