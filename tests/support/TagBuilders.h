#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zefta::test {

/// 128 bytes of ID3v1 for a test's file.
struct Id3v1 {
    std::string title = {};
    std::string artist = {};
    std::string album = {};
    std::string year = {};
    std::string comment = {};
    int track = -1;
    int genre = 255;
    char padding = '\0';

    std::string Bytes() const;
};

/// A frame with its 7-bit size; `body` holds the encoding byte too.
std::string RawFrame(std::string_view identifier, std::string_view body);

/// A text frame with the encoding byte 0.
std::string TextFrame(std::string_view identifier, std::string_view text);

/// An ID3v2 tag: header, frames and NUL bytes up to `size` (the size field: without the header).
std::string Id3v2(std::string_view frames, std::int32_t size, int flags = 0);

/// Bytes that stand for audio: no run of them looks like a tag.
std::string Audio(std::size_t count);

}  // namespace zefta::test
