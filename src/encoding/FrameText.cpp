#include "encoding/FrameText.h"

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/Strings.h"
#include "platform/Text.h"

namespace zefta {

namespace {

constexpr std::string_view LittleEndianMark = "\xFF\xFE";
constexpr std::string_view BigEndianMark = "\xFE\xFF";

/// The code units behind the byte order mark, one after the other.
class Units {
  public:
    explicit Units(std::string_view bytes)
        : rest_(bytes.substr(LittleEndianMark.size())), isLittle_(bytes.starts_with(LittleEndianMark)) {}

    std::optional<char32_t> Next() {
        if (rest_.size() < 2) return std::nullopt;
        const auto first = static_cast<unsigned char>(rest_[0]);
        const auto second = static_cast<unsigned char>(rest_[1]);
        rest_.remove_prefix(2);
        return isLittle_ ? first | second << 8U : second | first << 8U;
    }

  private:
    std::string_view rest_;
    bool isLittle_;
};

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

/// UTF-8 of UTF-16 bytes; half a pair of surrogates is no character and is left out.
std::string DecodeUtf16(std::string_view bytes) {
    std::string text;
    char32_t high = 0;
    Units units(bytes);
    while (const auto unit = units.Next()) {
        if (IsLowSurrogate(*unit)) {
            if (high != 0) AppendUtf8(text, 0x10000 + ((high - 0xD800) << 10U) + (*unit - 0xDC00));
        } else if (!IsHighSurrogate(*unit)) {
            AppendUtf8(text, *unit);
        }
        high = IsHighSurrogate(*unit) ? *unit : 0;
    }
    return text;
}

std::string JoinParts(std::string_view text) {
    std::string joined;
    while (!text.empty()) {
        const std::size_t end = text.find('\0');
        const std::string part = Trim(text.substr(0, end));
        if (!part.empty()) joined += (joined.empty() ? "" : ", ") + part;
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return joined;
}

}  // namespace

std::string TextOfFrame(const std::string& value, const CodePage& ansi) {
    // A description in front of the text ends in two NULs, of which the reader takes one.
    const std::string_view text = std::string_view(value).substr(value.starts_with('\0') ? 1 : 0);
    const std::string bytes = ansi.Encode(text.substr(0, 8));
    if (!bytes.starts_with(LittleEndianMark) && !bytes.starts_with(BigEndianMark)) return JoinParts(text);
    return JoinParts(DecodeUtf16(ansi.Encode(text)));
}

}  // namespace zefta
