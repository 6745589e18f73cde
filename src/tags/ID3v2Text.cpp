#include "tags/ID3v2Text.h"

#include <algorithm>
#include <optional>

#include "platform/Text.h"

namespace zefta {

namespace {

using namespace std::string_view_literals;

enum Encoding : char { SingleByte = 0, Utf16 = 1, Utf16BigEndian = 2, Utf8 = 3 };

constexpr std::size_t LanguageLength = 3;
constexpr char32_t ByteOrderMark = 0xFEFF;

Encoding EncodingOf(std::string_view body) {
    const char byte = body.empty() ? char{SingleByte} : body.front();
    return byte == Utf16 ? Utf16 : byte == Utf16BigEndian ? Utf16BigEndian : byte == Utf8 ? Utf8 : SingleByte;
}

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// The code units of UTF-16 text.
class Units {
  public:
    Units(std::string_view bytes, bool bigEndian) : rest_(bytes), bigEndian_(bigEndian) {}

    /// Nothing at the end, where half a unit may be left.
    std::optional<char32_t> Next() {
        const auto unit = Peek();
        if (unit) rest_.remove_prefix(2);
        return unit;
    }

    std::optional<char32_t> Peek() const {
        if (rest_.size() < 2) return std::nullopt;
        const auto first = static_cast<unsigned char>(rest_[0]);
        const auto second = static_cast<unsigned char>(rest_[1]);
        return bigEndian_ ? char32_t{first} << 8U | second : char32_t{second} << 8U | first;
    }

    bool HasHalf() const { return rest_.size() == 1; }

  private:
    std::string_view rest_;
    bool bigEndian_;
};

/// Half a pair of surrogates is no character and is left out. Each of several values may have a mark.
ID3v2Text FromUtf16(std::string_view bytes, bool bigEndian) {
    ID3v2Text result;
    Units units(bytes, bigEndian);
    while (const auto unit = units.Next()) {
        const auto next = IsHighSurrogate(*unit) ? units.Peek() : std::nullopt;
        if (next && IsLowSurrogate(*next)) {
            AppendUtf8(result.text, 0x10000 + ((*unit - 0xD800) << 10U) + (*next - 0xDC00));
            units.Next();
        } else if (IsHighSurrogate(*unit) || IsLowSurrogate(*unit)) {
            result.isWhole = false;
        } else if (*unit != ByteOrderMark || !(result.text.empty() || result.text.ends_with('\0'))) {
            AppendUtf8(result.text, *unit);
        }
    }
    if (units.HasHalf()) result.isWhole = false;
    return result;
}

ID3v2Text DecodeText(std::string_view bytes, Encoding encoding, const CodePage& ansi) {
    switch (encoding) {
        case Utf16:
            // Without a mark the order of most writers is taken.
            return FromUtf16(bytes, bytes.starts_with("\xFE\xFF"sv));
        case Utf16BigEndian:
            return FromUtf16(bytes, true);
        case Utf8:
            return {ansi.ToText(bytes), IsValidUtf8(bytes)};
        case SingleByte:
            break;
    }
    return {ansi.Decode(bytes)};
}

ID3v2Text WithoutNulsAtTheEnd(ID3v2Text decoded) {
    while (decoded.text.ends_with('\0')) decoded.text.pop_back();
    return decoded;
}

/// What stands behind the description and its end; all of it when there is no end.
std::string_view BehindDescription(std::string_view bytes, Encoding encoding) {
    const std::size_t width = encoding == Utf16 || encoding == Utf16BigEndian ? 2 : 1;
    for (std::size_t at = 0; at + width <= bytes.size(); at += width) {
        if (bytes.substr(at, width) == "\0\0"sv.substr(0, width)) return bytes.substr(at + width);
    }
    return bytes;
}

}  // namespace

ID3v2Text DecodeID3v2Body(std::string_view identifier, std::string_view body, const CodePage& ansi) {
    const Encoding encoding = EncodingOf(body);
    body.remove_prefix(std::min<std::size_t>(1, body.size()));
    // An address is in the code page whatever its description is in.
    if (identifier == "WXXX") {
        const ID3v2Text address = DecodeText(BehindDescription(body, encoding), SingleByte, ansi);
        return {'\0' + WithoutNulsAtTheEnd(address).text};
    }
    if (identifier != "COMM") return WithoutNulsAtTheEnd(DecodeText(body, encoding, ansi));
    const std::string_view language = body.substr(0, LanguageLength);
    const std::string_view text = BehindDescription(body.substr(language.size()), encoding);
    ID3v2Text decoded = WithoutNulsAtTheEnd(DecodeText(text, encoding, ansi));
    decoded.text = ansi.Decode(language) + '\0' + decoded.text;
    return decoded;
}

bool IsInCodePage(std::string_view body) {
    return EncodingOf(body) == SingleByte;
}

}  // namespace zefta
