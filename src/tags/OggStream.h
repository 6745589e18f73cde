#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/BinaryFile.h"
#include "tags/OggPages.h"

namespace zefta {

// What the three header packets begin with (Vorbis I specification section 4.2.1).

inline constexpr std::string_view OggIdentificationMarker = "\1vorbis";
inline constexpr std::string_view OggCommentMarker = "\3vorbis";
inline constexpr std::string_view OggSetupMarker = "\5vorbis";

/// Bytes that the comment and the setup header may have together. A stream with more is not taken for one.
inline constexpr std::size_t OggMaxHeaderLength = 64 * 1024 * 1024;

/// The headers of a Vorbis stream (Vorbis I specification appendix A.2).
struct OggHeaders {
    /// The first page as it stands; it holds the identification header and nothing else.
    std::string identificationPage;
    std::uint32_t serial = 0;
    /// Of the first page.
    std::uint32_t number = 0;
    /// Pages of comment and setup header.
    std::uint32_t pages = 0;
    std::string comment;
    std::string setup;
    /// The setup header begins a page of its own.
    bool setupOnFreshPage = false;
    /// There is no audio: the stream ends with the page of the setup header.
    bool endsStream = false;
};

/// Takes the header pages from the reader. Nothing when the file does not begin with the headers of one
/// Vorbis stream alone, their pages numbered in sequence and the last one ending with the setup header.
std::optional<OggHeaders> ReadOggHeaders(OggPageReader& pages);

/// Writes the stream with another comment header: the identification page as it is, the other two headers on
/// full pages (libogg's layout), then the pages that `pages` has left, as they are but for their numbers and
/// checksums where the headers take more or fewer pages than before. Numbers that are missing between two
/// pages stay missing.
///
/// An ID3v1 tag behind the last page is copied. False when what is left holds anything but sound pages of
/// this stream: another stream beside or behind it, a damaged or cut page, foreign bytes. The destination is
/// of no use then, nor after a run-time failure of reading or writing.
bool WriteOggStream(const OggHeaders& headers, std::string_view comment, OggPageReader& pages,
                    BinaryFile& destination);

}  // namespace zefta
