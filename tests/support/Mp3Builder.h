#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zefta::test {

/// Builds the bytes of an MP3 file: what stands in front, one frame header, perhaps a Xing or Info block, and
/// filler that looks like no header and no marker. `Mp3().Block("Xing", 1000).Size(50000).Bytes()`.
class Mp3 {
  public:
    /// Bytes ahead of the header, such as a tag.
    Mp3& InFront(std::string_view bytes);
    /// The four bytes of the header: 128 kbps at 44100 Hz, joint stereo, unless told. "" for none at all.
    Mp3& Header(std::string_view bytes);
    /// A block with that marker, the frame count in its place and the encoder's name 120 bytes behind the
    /// marker, 16 bytes long.
    Mp3& Block(std::string_view marker, std::int32_t frames, std::string_view encoder = "LAME3.100");
    /// Bytes from the start of the header to the marker; 36 unless told.
    Mp3& BlockAt(std::size_t offset);
    /// Bytes at the end of the file, such as a tag.
    Mp3& Behind(std::string_view bytes);
    /// Of the whole file. Filler goes between the block and what stands behind; nothing is cut.
    Mp3& Size(std::size_t size);

    std::string Bytes() const;

  private:
    std::string inFront_;
    std::string header_ = "\xFF\xFB\x90\x64";
    std::string block_;
    std::size_t blockAt_ = 36;
    std::string behind_;
    std::size_t size_ = 1000;
};

}  // namespace zefta::test
