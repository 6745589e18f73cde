#include "tags/OggFile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <span>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "tags/OggCommentKeys.h"

namespace zefta {

namespace {

constexpr std::string_view PageMarker = "OggS";
constexpr std::string_view CodecName = "vorbis";
/// The marker of the first page and 4096 bytes, in which the comments are looked for.
constexpr std::size_t HeadOfStream = PageMarker.size() + 4096;
/// In which the last page is looked for.
constexpr std::size_t TailLength = 8192;
/// Offsets in a page (RFC 3533 section 6).
constexpr std::size_t GranulePosition = 6;
constexpr std::size_t PageNumber = 18;
constexpr std::size_t SegmentCount = 26;
/// The rate that play time is counted with, whatever the stream has. Kept: lists and names made from the
/// play time agree with what other installations made.
constexpr double CountedRate = 44100;
constexpr double BytesPerKbps = 125;

/// Takes bytes from the front of a text; there are fewer, at last none, where the text ends.
class Cursor {
  public:
    explicit Cursor(std::string_view text) : rest_(text) {}

    bool AtEnd() const { return rest_.empty(); }

    std::string_view Take(std::size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    /// The next 4 bytes as a length or count, which is held in 16 bits; RuntimeError 6 when it is longer.
    std::size_t TakeLength() {
        const auto number = std::bit_cast<std::uint32_t>(ByteCodec::ToLong(Take(4)));
        return static_cast<std::size_t>(ToI16(std::int64_t{number}));
    }

  private:
    std::string_view rest_;
};

/// What stands behind the first `what`, compared without regard to case; empty when there is none.
std::string_view Behind(std::string_view text, std::string_view what) {
    const auto sameLetter = [](char a, char b) {
        return EqualsIgnoringAsciiCase(std::string_view(&a, 1), std::string_view(&b, 1));
    };
    const auto found = std::search(text.begin(), text.end(), what.begin(), what.end(), sameLetter);
    if (found == text.end()) return {};
    return text.substr(static_cast<std::size_t>(found - text.begin()) + what.size());
}

/// Whether the packet that begins the page ends within these bytes, which stand behind the page's marker.
bool HoldsFirstPacket(std::string_view page) {
    Cursor cursor(page);
    cursor.Take(SegmentCount - PageMarker.size());
    std::size_t segments = 0;
    for (const char count : cursor.Take(1)) segments = static_cast<unsigned char>(count);
    const std::string_view lacing = cursor.Take(segments);
    const auto last = std::find_if(lacing.begin(), lacing.end(),
                                   [](char length) { return static_cast<unsigned char>(length) < 255; });
    if (last == lacing.end()) return false;
    const auto length =
        static_cast<std::size_t>(last - lacing.begin()) * 255 + static_cast<unsigned char>(*last);
    return cursor.Take(length).size() == length;
}

/// The comment header (Vorbis I specification section 5.2), found by its name on the second page.
void ReadComments(std::string_view head, ID3Tag& tag, const CodePage& ansi) {
    const std::string_view page = Behind(head, PageMarker);
    tag.ReadInPart = !HoldsFirstPacket(page);
    Cursor cursor(Behind(page, CodecName));
    tag.OggVorbisExtension.LibVorbisVersion = ansi.ToText(Trim(cursor.Take(cursor.TakeLength())));
    for (std::size_t count = cursor.TakeLength(); count > 0 && !cursor.AtEnd(); --count)
        ReadOggComment(tag, cursor.Take(cursor.TakeLength()), ansi);
}

void ReadMeasures(std::string_view tail, ID3Tag& tag) {
    const std::size_t last = FindLast(tail, PageMarker);
    if (last == std::string_view::npos) return;
    Cursor page(tail.substr(last));
    page.Take(GranulePosition);
    tag.Seconds = ToI32(ByteCodec::ToLong(page.Take(4)) / CountedRate);
    tag.Bitrate = tag.Seconds < 1 ? std::int16_t{0}
                                  : ToI16(static_cast<double>(tag.Length) / tag.Seconds / BytesPerKbps);
    tag.VBR = true;
    page.Take(PageNumber - GranulePosition - 4);
    tag.OggVorbisExtension.PagesCount = ByteCodec::ToLong(page.Take(4));
}

/// What the file has at its position, as much of it as fits.
std::string_view ReadInto(std::span<char> block, BinaryFile& file) {
    return {block.data(), file.Read(std::as_writable_bytes(block))};
}

}  // namespace

void ReadOGGFile(const FileReading& reading, const std::string& path, ID3Tag& tag) {
    const auto file = reading.files.OpenReadOnly(path);
    if (!file) {
        tag.Path.clear();
        return;
    }
    tag.Path = PathOfRecord(path);
    tag.Length = file->Size();
    tag.Bitrate = 0;
    tag.VBR = false;
    tag.Seconds = 0;
    std::array<char, std::max(HeadOfStream, TailLength)> block;
    const std::string_view head = ReadInto(std::span(block).first<HeadOfStream>(), *file);
    if (head.starts_with(PageMarker)) {
        tag.IsOggVorbisFile = true;
        ReadComments(head.substr(PageMarker.size()), tag, reading.ansi);
        if (file->Seek(-static_cast<std::int32_t>(TailLength), SeekFrom::End))
            ReadMeasures(ReadInto(std::span(block).first<TailLength>(), *file), tag);
    }
    tag.ReadOnly = file->IsReadOnly();
    tag.AllowEdits = true;
}

}  // namespace zefta
