#include "tags/OggCommentHeader.h"

#include <bit>
#include <cstdint>
#include <vector>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "platform/Text.h"
#include "tags/OggCommentKeys.h"
#include "tags/OggStream.h"
#include "tags/UTF8.h"

namespace zefta {

namespace {

constexpr char FramingBit = 1;
constexpr std::size_t NumberLength = 4;

/// The number at the front of the text, which is taken away; nothing when the text is shorter.
std::optional<std::uint32_t> TakeNumber(std::string_view& text) {
    if (text.size() < NumberLength) return std::nullopt;
    const auto number = std::bit_cast<std::uint32_t>(ByteCodec::ToLong(text.substr(0, NumberLength)));
    text.remove_prefix(NumberLength);
    return number;
}

/// The same with as many bytes as the number says.
std::optional<std::string_view> TakeString(std::string_view& text) {
    const auto length = TakeNumber(text);
    if (!length || text.size() < *length) return std::nullopt;
    const std::string_view taken = text.substr(0, *length);
    text.remove_prefix(*length);
    return taken;
}

std::string NumberOf(std::size_t count) {
    return ByteCodec::FromLong(ToI32(static_cast<std::int64_t>(count)));
}

std::string Utf8(const std::string& text) {
    std::string bytes = AnsiToUTF8(text);
    if (bytes.ends_with('\0')) bytes.pop_back();
    return bytes;
}

std::vector<std::string> CommentLines(const ID3Tag& tag) {
    std::vector<std::string> lines;
    for (const OggCommentKey& row : OggCommentKeys()) {
        const std::string value = row.write ? Utf8(row.write(tag)) : std::string();
        if (!value.empty()) lines.push_back(ToUpper(row.key) + value);
    }
    for (std::int32_t i = 1, count = tag.OggVorbisExtension.getExComCount(); i <= count; ++i)
        lines.push_back(tag.OggVorbisExtension.getExComValue(ToI16(std::int64_t{i})));
    return lines;
}

}  // namespace

std::optional<std::string_view> OggVendor(std::string_view packet) {
    if (!packet.starts_with(OggCommentMarker)) return std::nullopt;
    std::string_view rest = packet.substr(OggCommentMarker.size());
    const auto vendor = TakeString(rest);
    const auto count = vendor ? TakeNumber(rest) : std::nullopt;
    if (!count) return std::nullopt;
    for (std::uint32_t i = 0; i < *count; ++i) {
        if (!TakeString(rest)) return std::nullopt;
    }
    const bool framed = !rest.empty() && (rest.front() & FramingBit) != 0;
    return framed ? vendor : std::nullopt;
}

std::string RenderOggCommentHeader(std::string_view vendor, const ID3Tag& tag) {
    const std::vector<std::string> lines = CommentLines(tag);
    std::string packet(OggCommentMarker);
    packet.append(NumberOf(vendor.size())).append(vendor).append(NumberOf(lines.size()));
    for (const std::string& line : lines) packet.append(NumberOf(line.size())).append(line);
    return packet += FramingBit;
}

}  // namespace zefta
