#include "platform/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace zefta {

namespace {

/// Length of the sequence that a first byte announces (RFC 3629); 0 for a byte that begins none.
std::size_t SequenceLength(unsigned char first) {
    if (first < 0x80) return 1;
    if (first >= 0xC2 && first <= 0xDF) return 2;
    if (first >= 0xE0 && first <= 0xEF) return 3;
    if (first >= 0xF0 && first <= 0xF4) return 4;
    return 0;
}

bool IsSurrogate(char32_t character) {
    return character >= 0xD800 && character <= 0xDFFF;
}

/// Whether the character needs all the bytes that it came in.
bool IsShortestForm(char32_t character, std::size_t length) {
    return length < 3 || character >= (length == 3 ? 0x800U : 0x10000U);
}

}  // namespace

std::optional<char32_t> NextCharacter(std::string_view text, std::size_t& position) {
    const auto first = static_cast<unsigned char>(text[position]);
    const std::size_t length = SequenceLength(first);
    const std::size_t start = position++;
    if (length == 0 || start + length > text.size()) return std::nullopt;
    if (length == 1) return first;
    char32_t character = first & (0xFFU >> (length + 1));
    for (std::size_t i = start + 1; i < start + length; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0) != 0x80) return std::nullopt;
        character = (character << 6) | (byte & 0x3FU);
    }
    if (!IsShortestForm(character, length) || IsSurrogate(character) || character > 0x10FFFF)
        return std::nullopt;
    position = start + length;
    return character;
}

bool IsAscii(std::string_view text) {
    constexpr std::uint64_t TopBits = 0x8080808080808080;
    std::size_t at = 0;
    for (; at + sizeof(std::uint64_t) <= text.size(); at += sizeof(std::uint64_t)) {
        std::uint64_t eight;
        std::memcpy(&eight, text.data() + at, sizeof eight);
        if ((eight & TopBits) != 0) return false;
    }
    return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                       [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

bool IsValidUtf8(std::string_view text) {
    if (IsAscii(text)) return true;
    for (std::size_t position = 0; position < text.size();) {
        if (!NextCharacter(text, position)) return false;
    }
    return true;
}

void AppendUtf8(std::string& text, char32_t character) {
    const auto tail = [&](unsigned shift) {
        text += static_cast<char>(0x80 | ((character >> shift) & 0x3F));
    };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | (character >> 6));
        tail(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0 | (character >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | (character >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace zefta
