#include "tags/Lyrics3.h"

#include <algorithm>

#include "core/Numbers.h"
#include "core/Strings.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

/// How far before the end of the file the closing marker is looked for.
constexpr std::int32_t Window = 300;
constexpr std::string_view LyricsMarker = "LYRICS";
constexpr std::int32_t BeginMarkerLength = 11;
constexpr std::size_t SizeDigits = 6;
constexpr std::size_t IdentifierLength = 3;
constexpr std::size_t FieldHeaderLength = 8;

/// Sizes and lengths are digits alone: no sign, blank, fraction or other form of a number.
std::int32_t NumberOfDigits(std::string_view digits) {
    const bool areDigits = digits.find_first_not_of("0123456789") == std::string_view::npos;
    if (!areDigits) throw RuntimeError(ErrorNumber::TypeMismatch);
    return WholeNumber(digits);
}

/// The number in front of the marker; the size is held in 16 bits.
std::int16_t BlockSize(std::string_view window, std::size_t marker) {
    if (marker < SizeDigits) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return ToI16(std::int64_t{NumberOfDigits(window.substr(marker - SizeDigits, SizeDigits))});
}

/// Walks the fields (Lyrics3 v2.00: identifier of 3 letters, length of 5 digits, value).
void ReadFields(std::string_view fields, LyricsExtension& lyrics, const CodePage& ansi) {
    for (std::size_t at = 0; at + 1 < fields.size();) {
        const std::string_view rest = fields.substr(at);
        const std::string_view identifier = rest.substr(0, IdentifierLength);
        const std::string_view digits =
            rest.size() > IdentifierLength ? rest.substr(IdentifierLength, 5) : std::string_view();
        const std::int32_t length = NumberOfDigits(digits);
        const std::string_view value = rest.substr(std::min(FieldHeaderLength, rest.size()));
        const std::string text = Trim(ansi.Decode(value.substr(0, static_cast<std::size_t>(length))));
        if (identifier == "ETT") lyrics.TrackTitle = text;
        if (identifier == "EAR") lyrics.Artist = text;
        at += FieldHeaderLength + static_cast<std::size_t>(length);
    }
}

}  // namespace

bool ReadLyrics3(BinaryFile& file, ID3Tag& tag, const CodePage& ansi) {
    // A file that is shorter than the window is looked at as if it were filled up in front.
    const std::int32_t windowLength = std::min(Window, file.Size());
    file.Seek(-windowLength, SeekFrom::End);
    const std::string window = file.ReadBytes(windowLength);
    const std::size_t marker = FindLast(window, LyricsMarker);
    if (marker == std::string::npos) return false;
    tag.LyricsPresent = true;
    const std::int16_t size = BlockSize(window, marker);
    // From the end of the file to the byte behind "LYRICSBEGIN", whether a tag stands behind the block or
    // not.
    const std::int32_t back = windowLength - static_cast<std::int32_t>(marker) + size +
                              static_cast<std::int32_t>(SizeDigits) - BeginMarkerLength;
    if (size >= BeginMarkerLength && file.Seek(-back, SeekFrom::End))
        ReadFields(file.ReadBytes(size - BeginMarkerLength), tag.LyricsExtension, ansi);
    return true;
}

}  // namespace zefta
