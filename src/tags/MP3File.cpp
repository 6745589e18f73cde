#include "tags/MP3File.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "platform/RuntimeError.h"
#include "tags/ID3v1.h"
#include "tags/ID3v2.h"
#include "tags/ID3v2Frames.h"
#include "tags/Lyrics3.h"
#include "tags/MPEGHeader.h"

namespace zefta {

namespace {

/// A usual tag at the start, the first frame header and what is searched for a Xing block; and what the
/// readers of tags at the end look at.
constexpr BufferedFile::Windows FileWindows = {.head = 6400, .tail = 300};

constexpr std::int32_t FrameHeaderLength = 4;
/// A usual tag at the start alone.
constexpr BufferedFile::Windows TagWindows = {.head = 2048 + ID3v2HeaderSize, .tail = 300};

/// How many bytes behind the ID3v2 tag are tried as the start of a frame header.
constexpr std::int32_t SearchedForHeader = 40960;
/// A frame header has more than these bytes from its start to the end of the file.
constexpr std::int32_t LeastBehindHeader = 128;
/// How many bytes behind the frame header a Xing or Info block is looked for.
constexpr std::int32_t SearchedForMarker = 4096;

// Places in a Xing or Info block, counted from its marker. They are those of a block with all its fields,
// whatever its flags say: kept, so that files show the numbers that they always showed.
constexpr std::int32_t FrameCountPlace = 8;
constexpr std::int32_t EncoderPlace = 120;
constexpr std::int32_t EncoderLength = 16;

/// Playing time of a frame of 1152 samples at 44100 Hz, in milliseconds, rounded up. Used for all rates and
/// for frames of 576 samples too: kept, like the places above.
constexpr double FrameTime = 26.125;

/// An ID3v1 tag that was just written, and the file by its path.
struct WrittenID3v1 {
    FileSystem& files;
    std::string path;
    /// What stood in its place.
    std::string before;
    /// Of the file with it.
    std::int32_t fileSize;
};

/// After the other tag could not be written: both change, or none. A file of another size is the new one.
void TakeBack(const WrittenID3v1& written) {
    try {
        const auto file = written.files.OpenRead(written.path);
        if (file && file->Size() == written.fileSize) TakeBackID3v1(*file, written.before);
    } catch (const RuntimeError&) {
        // The failure that brought us here is the one to tell.
    }
}

/// What the tags of a file are written with.
struct WritingOfBoth {
    FileSystem& files;
    const CodePage& ansi;
    void (*writeID3v2)(FileSystem& files, std::unique_ptr<BinaryFile> file, const CodePage& ansi,
                       ID3Tag& tag);
};

void WriteBothTags(const WritingOfBoth& writing, std::unique_ptr<BinaryFile> file, ID3Tag& tag) {
    std::string before = SetID3v1(*file, writing.ansi, tag);
    const WrittenID3v1 written = {writing.files, tag.Path, std::move(before), file->Size()};
    try {
        writing.writeID3v2(writing.files, std::move(file), writing.ansi, tag);
    } catch (const RuntimeError& error) {
        // Where only the fill of the tag fails, its frames stand.
        if (error.Kind() != ErrorNumber::Overflow) TakeBack(written);
        throw;
    }
    if (tag.Path.empty()) TakeBack(written);
}

double Quotient(double dividend, double divisor) {
    if (divisor == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    return dividend / divisor;
}

std::optional<std::int32_t> FindHeader(std::string_view bytes, MPEGHeader& header) {
    for (std::size_t at = bytes.find('\xFF'); at != std::string_view::npos; at = bytes.find('\xFF', at + 1)) {
        if (header.ParseHeader(bytes.substr(at, FrameHeaderLength))) return static_cast<std::int32_t>(at);
    }
    return std::nullopt;
}

/// Position of the first four bytes that pass for a frame header; they are the start of the stream.
std::optional<std::int32_t> FindFirstFrame(BufferedFile& file, MPEGHeader& header) {
    constexpr std::int32_t Step = 1024;
    std::int32_t position = file.Position();
    const std::int32_t end = std::min(position + SearchedForHeader, file.Size() - LeastBehindHeader);
    for (; position < end; position += Step) {
        // What begins in the last three bytes of a step is too short here and met again in the next one.
        const std::int32_t wanted = std::min(Step, end - position) + FrameHeaderLength - 1;
        if (const auto found = FindHeader(file.View(position, wanted), header)) return position + *found;
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

/// Bytes of the block, counted from its marker; they may lie behind what was searched.
std::string Slice(BufferedFile& file, std::int32_t marker, std::int32_t place, std::int32_t count) {
    return std::string(file.View(Add(marker, place), count));
}

void TakeXing(BufferedFile& file, std::int32_t marker, ID3Tag& tag) {
    tag.VBR = true;
    tag.Frames = ByteCodec::ToLongBE(Slice(file, marker, FrameCountPlace, 4));
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
void ReadBlock(BufferedFile& file, std::int32_t start, const CodePage& ansi, ID3Tag& tag) {
    const std::string_view searched = file.View(start, SearchedForMarker);
    const std::size_t xing = searched.find("Xing");
    const std::size_t found = xing != std::string_view::npos ? xing : searched.find("Info");
    if (found == std::string_view::npos) return;
    const std::int32_t marker = start + static_cast<std::int32_t>(found);
    if (xing != std::string_view::npos) TakeXing(file, marker, tag);
    tag.Encoder = EncoderName(Slice(file, marker, EncoderPlace, EncoderLength), ansi);
}

/// Measures the stream from the position on.
void MeasureStream(BufferedFile& file, const CodePage& ansi, ID3Tag& tag) {
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

std::unique_ptr<BufferedFile> ThroughTagWindows(std::unique_ptr<BinaryFile> file) {
    return file ? std::make_unique<BufferedFile>(std::move(file), TagWindows) : nullptr;
}

void ReadMP3Tags(BufferedFile& file, const CodePage& ansi, ID3Tag& tag) {
    tag.Length = file.Size();
    ReadID3v1(file, tag, ansi);
    ReadLyrics3(file, tag, ansi);
    ReadID3v2(file, tag, ansi, UnknownContent::Carry);
    tag.ReadOnly = file.IsReadOnly();
    tag.AllowEdits = true;
}

void SetMP3Tags(FileSystem& files, std::unique_ptr<BinaryFile> file, const CodePage& ansi, ID3Tag& tag) {
    WriteBothTags({files, ansi, SetID3v2WithRoom}, std::move(file), tag);
}

void SetMP3Tags(FileSystem& files, const CodePage& ansi, ID3Tag& tag) {
    if (auto file = files.OpenRead(tag.Path)) {
        SetMP3Tags(files, std::move(file), ansi, tag);
    } else {
        tag.Path.clear();
    }
}

void SetWholeMP3Tags(FileSystem& files, const CodePage& ansi, ID3Tag& tag) {
    if (auto file = files.OpenRead(tag.Path)) {
        WriteBothTags({files, ansi, SetWholeID3v2}, std::move(file), tag);
    } else {
        tag.Path.clear();
    }
}

}  // namespace zefta
