#include "support/TagBuilders.h"

#include "core/ByteCodec.h"

namespace zefta::test {

namespace {

std::string Padded(std::string text, std::size_t width, char padding) {
    text.resize(width, padding);
    return text;
}

}  // namespace

std::string Id3v1::Bytes() const {
    std::string bytes = "TAG" + Padded(title, 30, padding) + Padded(artist, 30, padding) +
                        Padded(album, 30, padding) + Padded(year, 4, padding) + Padded(comment, 30, padding) +
                        static_cast<char>(genre);
    if (track >= 0) {
        bytes[125] = '\0';
        bytes[126] = static_cast<char>(track);
    }
    return bytes;
}

std::string RawFrame(std::string_view identifier, std::string_view body) {
    return std::string(identifier) + ByteCodec::LongToSyncSafe(static_cast<std::int32_t>(body.size())) +
           std::string(2, '\0') + std::string(body);
}

std::string TextFrame(std::string_view identifier, std::string_view text) {
    return RawFrame(identifier, std::string(1, '\0') + std::string(text));
}

std::string Id3v2(std::string_view frames, std::int32_t size, int flags) {
    std::string bytes = "ID3\3";
    bytes += '\0';
    bytes += static_cast<char>(flags);
    bytes += ByteCodec::LongToSyncSafe(size);
    bytes += frames;
    bytes.resize(static_cast<std::size_t>(size) + 10, '\0');
    return bytes;
}

std::string Audio(std::size_t count) {
    std::string bytes(count, '\0');
    for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<char>(0x80 | ((i * 37 + i / 251) & 0x7F));
    return bytes;
}

}  // namespace zefta::test
