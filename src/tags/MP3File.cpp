#include "tags/MP3File.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "platform/RuntimeError.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/Lyrics3.h"
#include "tags/MPEGHeader.h"

namespace zefta {

namespace {

/// A usual tag at the start, the first frame header and what is searched for a Xing block; and what the
/// readers of tags at the end look at.
constexpr BufferedFile::Windows FileWindows = {.head = 8192, .tail = 300};

constexpr std::int32_t FrameHeaderLength = 4;
/// How many bytes behind the ID3v2 tag are tried as the start of a frame header.
constexpr std::int32_t SearchedForHeader = 40960;
/// A frame header has more than these bytes from its start to the end of the file.
constexpr std::int32_t LeastBehindHeader = 128;
/// How many bytes behind the frame header a Xing or Info block is looked for.
constexpr std::size_t SearchedForMarker = 4096;

// Places in a Xing or Info block, counted from its marker. They are those of a block with all its fields,
// whatever its flags say: kept, so that files show the numbers that they always showed.
constexpr std::int32_t FrameCountPlace = 8;
constexpr std::int32_t EncoderPlace = 120;
constexpr std::int32_t EncoderLength = 16;

/// Playing time of a frame of 1152 samples at 44100 Hz, in milliseconds, rounded up. Used for all rates and
/// for frames of 576 samples too: kept, like the places above.
constexpr double FrameTime = 26.125;

double Quotient(double dividend, double divisor) {
    if (divisor == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    return dividend / divisor;
}

/// The bytes from a position on, as far as the file has them.
template <std::size_t Size>
std::string_view ReadInto(std::array<char, Size>& buffer, BinaryFile& file, std::int32_t position) {
    file.Seek(position, SeekFrom::Start);
    return {buffer.data(), file.Read(std::as_writable_bytes(std::span(buffer)))};
}

std::optional<std::int32_t> FindHeader(std::string_view bytes, MPEGHeader& header) {
    for (std::size_t at = bytes.find('\xFF'); at != std::string_view::npos; at = bytes.find('\xFF', at + 1)) {
        if (header.ParseHeader(bytes.substr(at, FrameHeaderLength))) return static_cast<std::int32_t>(at);
    }
    return std::nullopt;
}

/// Position of the first four bytes that pass for a frame header; they are the start of the stream.
std::optional<std::int32_t> FindFirstFrame(BinaryFile& file, MPEGHeader& header) {
    constexpr std::int32_t Step = 1024;
    std::array<char, Step + FrameHeaderLength - 1> buffer;
    std::int32_t position = file.Position();
    const std::int32_t end = std::min(position + SearchedForHeader, file.Size() - LeastBehindHeader);
    for (; position < end; position += Step) {
        // What begins in the last three bytes of the buffer is too short here and met again in the next one.
        const auto wanted = static_cast<std::size_t>(std::min(Step, end - position) + FrameHeaderLength - 1);
        const std::string_view bytes = ReadInto(buffer, file, position).substr(0, wanted);
        if (const auto found = FindHeader(bytes, header)) return position + *found;
    }
    return std::nullopt;
}

/// Takes the whole file, tags included, for a stream of that rate: kept as well.
void EstimateConstantRate(ID3Tag& tag) {
    const double bytes = tag.Length;
    const double bits = Multiply(tag.Length, 8);
    tag.Frames = ToI32(bits / tag.Bitrate / FrameTime);
    tag.Seconds = ToI32(bytes / tag.Bitrate / 125);
}

/// The stretch behind the frame header in which a Xing or Info block is looked for.
class SearchedStretch {
  public:
    SearchedStretch(BinaryFile& file, std::int32_t start)
        : file_(file), start_(start), bytes_(ReadInto(buffer_, file, start)) {}
    SearchedStretch(const SearchedStretch&) = delete;
    SearchedStretch& operator=(const SearchedStretch&) = delete;

    /// Where the marker stands in the stretch.
    std::optional<std::int32_t> Find(std::string_view marker) const {
        const std::size_t found = bytes_.find(marker);
        return found == std::string_view::npos ? std::nullopt
                                               : std::optional(static_cast<std::int32_t>(found));
    }

    /// Bytes from a place on, which may lie behind the stretch.
    std::string Slice(std::int32_t place, std::int32_t count) const {
        if (static_cast<std::size_t>(place + count) <= bytes_.size())
            return std::string(
                bytes_.substr(static_cast<std::size_t>(place), static_cast<std::size_t>(count)));
        file_.Seek(start_ + place, SeekFrom::Start);
        return file_.ReadBytes(count);
    }

  private:
    BinaryFile& file_;
    std::int32_t start_;
    std::array<char, SearchedForMarker> buffer_;
    std::string_view bytes_;
};

void TakeXing(const SearchedStretch& stretch, std::int32_t marker, ID3Tag& tag) {
    tag.VBR = true;
    tag.Frames = ByteCodec::ToLongBE(stretch.Slice(marker + FrameCountPlace, 4));
    tag.Seconds = ToI32(Quotient(tag.Frames * FrameTime * 44100 / 1000, tag.SampleRate));
    tag.Bitrate = ToI16(Quotient(tag.Length, tag.Seconds) / 125);
}

/// The first word of the encoder's name: "LAME3.90" of "LAME3.90 xyz".
std::string EncoderName(std::string bytes, const CodePage& ansi) {
    std::replace(bytes.begin(), bytes.end(), '\0', ' ');
    const std::string name = Trim(bytes);
    return ansi.Decode(std::string_view(name).substr(0, name.find(' ')));
}

/// What a Xing or Info block behind the header tells. Its place does not have to be the right one for the
/// version and channels of the stream.
void ReadBlock(BinaryFile& file, std::int32_t start, const CodePage& ansi, ID3Tag& tag) {
    const SearchedStretch stretch(file, start);
    const auto xing = stretch.Find("Xing");
    const auto marker = xing ? xing : stretch.Find("Info");
    if (!marker) return;
    if (xing) TakeXing(stretch, *xing, tag);
    tag.Encoder = EncoderName(stretch.Slice(*marker + EncoderPlace, EncoderLength), ansi);
}

/// Measures the stream from the position on.
void MeasureStream(BinaryFile& file, const CodePage& ansi, ID3Tag& tag) {
    MPEGHeader header;
    const auto frame = FindFirstFrame(file, header);
    if (!frame) return;
    tag.Bitrate = header.Bitrate;
    tag.SampleRate = header.SampleRate;
    tag.ChannelMode = header.ChannelMode;
    if (tag.Bitrate > 0) EstimateConstantRate(tag);
    ReadBlock(file, *frame + FrameHeaderLength, ansi, tag);
}

}  // namespace

void ReadMP3File(const FileReading& reading, const std::string& path, ID3Tag& tag) {
    auto opened = reading.files.OpenReadOnly(path);
    if (!opened) {
        tag.Path.clear();
        return;
    }
    tag.Path = PathOfRecord(path);
    BufferedFile file(std::move(opened), FileWindows);
    tag.Length = file.Size();
    ReadID3v1(file, tag, reading.ansi);
    ReadLyrics3(file, tag, reading.ansi);
    ReadID3v2(file, tag, reading.ansi, reading.unknown);
    MeasureStream(file, reading.ansi, tag);
    tag.ReadOnly = file.IsReadOnly();
    tag.AllowEdits = true;
}

}  // namespace zefta
