#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/BinaryFile.h"

namespace zefta {

/// Bits of OggPage::flags.
enum OggPageFlag : std::uint8_t {
    /// The first segment goes on with a packet of the page before.
    OggContinued = 1,
    OggFirstPage = 2,
    OggLastPage = 4,
};

/// One page of an Ogg stream (RFC 3533 section 6). The texts are bytes that someone else owns.
struct OggPage {
    std::uint8_t flags = 0;
    /// -1 on a page on which no packet ends.
    std::int64_t granulePosition = 0;
    std::uint32_t serial = 0;
    std::uint32_t number = 0;
    /// Lengths of the segments, one a byte, at most 255 of them. A packet ends with its first segment of less
    /// than 255 bytes.
    std::string_view lacing;
    /// The segments.
    std::string_view body;

    bool Has(OggPageFlag flag) const { return (flags & flag) != 0; }
};

inline constexpr std::size_t OggPageHeaderLength = 27;
inline constexpr std::size_t OggMaxSegments = 255;
inline constexpr std::size_t OggFullSegment = 255;
inline constexpr std::size_t OggMaxPageLength =
    OggPageHeaderLength + OggMaxSegments + OggMaxSegments * OggFullSegment;

/// Bytes of the whole page.
std::size_t OggPageLength(const OggPage& page);

/// The page that `bytes` begin with; nothing when there is none, when it is not there to its end or when its
/// checksum is not the one of its bytes.
std::optional<OggPage> ParseOggPage(std::string_view bytes);

/// Appends the bytes of the page, with their checksum.
void AppendOggPage(std::string& bytes, const OggPage& page);

/// Gives a whole page, in place, another number and the checksum that belongs to it.
void RenumberOggPage(std::span<char> page, std::uint32_t number);

/// Checksum of a page whose checksum field counts as zero: polynomial 0x04c11db7, from the high bit down,
/// starting at 0, nothing inverted.
std::uint32_t OggChecksum(std::string_view page);

/// The pages of a file one after the other, in bounded memory. Errors as of BinaryFile.
class OggPageReader {
  public:
    /// From the current position of the file on.
    explicit OggPageReader(BinaryFile& source);

    /// The next page, valid until the next call. Nothing at the end of the file and where no whole, sound
    /// page stands: garbage between pages is not passed over.
    std::optional<OggPage> Next();

    /// The bytes of the page that Next gave.
    std::string_view PageBytes() const;

    /// What stands behind the last page up to the end of the file; nothing while that end is not in sight.
    std::optional<std::string_view> Rest() const {
        if (!sourceEnded_) return std::nullopt;
        return std::string_view(buffer_).substr(at_);
    }

  private:
    void Refill();

    BinaryFile& source_;
    std::string buffer_;
    /// Behind the last page that was given.
    std::size_t at_ = 0;
    std::size_t pageLength_ = 0;
    bool sourceEnded_ = false;
};

}  // namespace zefta
