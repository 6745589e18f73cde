#include "encoding/StreamExtent.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

#include "core/ByteCodec.h"
#include "core/FileKind.h"
#include "platform/BufferedFile.h"
#include "platform/RuntimeError.h"
#include "tags/ID3Tag.h"
#include "tags/MPEGHeader.h"
#include "tags/MPEGplusStream.h"
#include "tags/OggStream.h"

namespace zefta {

namespace {

// MP3: frames one behind the other.

constexpr std::int32_t HeaderLength = 4;
/// Fewer frames than these in a row may be an accident.
constexpr int LeastFrames = 10;
/// How far behind a tag, or behind what broke the row, the next frame is looked for.
constexpr std::int32_t SearchedForFrame = 65536;

struct Frame {
    std::int32_t bytes;
    double seconds;
};

/// ISO/IEC 11172-3 section 2.4.3.1: 384 samples in layer I, 1152 in the others, half of that in layer III of
/// the low sampling frequencies. Nothing for free format, whose frames have no length in their header.
std::optional<Frame> FrameOf(std::string_view bytes) {
    MPEGHeader header;
    if (!header.ParseHeader(bytes) || header.Bitrate == 0 || header.SampleRate == 0) return std::nullopt;
    const std::int32_t samples = header.Layer == 1                          ? 384
                                 : header.Layer == 3 && header.Version == 2 ? 576
                                                                            : 1152;
    const std::int32_t padding = (static_cast<unsigned char>(bytes[2]) & 2) != 0 ? 1 : 0;
    const std::int32_t slot = header.Layer == 1 ? 4 : 1;
    const std::int32_t slots = samples / 8 * header.Bitrate * 1000 / header.SampleRate / slot + padding;
    return Frame{slots * slot, static_cast<double>(samples) / header.SampleRate};
}

/// The next place at which two frames stand in a row; nothing when none is near.
std::optional<std::int32_t> FindFrames(BufferedFile& file, std::int32_t from) {
    const std::int32_t end = std::min(from, file.Size() - SearchedForFrame) + SearchedForFrame;
    for (std::int32_t at = from; at < end; ++at) {
        const auto frame = FrameOf(file.View(at, HeaderLength));
        if (frame && FrameOf(file.View(at + frame->bytes, HeaderLength))) return at;
    }
    return std::nullopt;
}

std::int32_t BehindID3v2(BufferedFile& file) {
    const std::string_view head = file.View(0, 10);
    if (!head.starts_with("ID3") || head.size() < 10) return 0;
    return std::min(ByteCodec::SyncSafeToLong(head.substr(6)) + 10, file.Size());
}

/// Whether the rest of the file is none or begins like a tag.
bool IsEndOfFrames(BufferedFile& file, std::int32_t at) {
    const std::string_view rest = file.View(at, 8);
    return rest.empty() || rest.starts_with("TAG") || rest.starts_with("APETAGEX") ||
           rest.starts_with("LYRICSBE");
}

std::optional<StreamExtent> MeasureMP3(BufferedFile& file) {
    StreamExtent extent;
    int frames = 0;
    auto at = FindFrames(file, BehindID3v2(file));
    while (at) {
        const auto frame = FrameOf(file.View(*at, HeaderLength));
        if (!frame) {
            if (IsEndOfFrames(file, *at)) break;
            at = FindFrames(file, *at + 1);
            continue;
        }
        // A frame that goes on behind the end of the file.
        if (frame->bytes > file.Size() - *at) break;
        ++frames;
        extent.seconds += frame->seconds;
        *at += frame->bytes;
    }
    if (frames < LeastFrames) return std::nullopt;
    extent.isWhole = at && IsEndOfFrames(file, *at);
    return extent;
}

// Ogg Vorbis: pages, of which the last one is marked.

std::int32_t SampleRateOf(std::string_view identificationPage) {
    // Vorbis I specification section 4.2.2: version and channels stand between the marker and the rate.
    constexpr std::size_t RatePlace = 12;
    const auto page = ParseOggPage(identificationPage);
    if (!page || page->body.size() < RatePlace + 4) return 0;
    return ByteCodec::ToLong(page->body.substr(RatePlace, 4));
}

std::optional<StreamExtent> MeasureOgg(BinaryFile& file) {
    OggPageReader pages(file);
    const auto headers = ReadOggHeaders(pages);
    const std::int32_t rate = headers ? SampleRateOf(headers->identificationPage) : 0;
    if (rate <= 0) return std::nullopt;
    StreamExtent extent;
    while (const auto page = pages.Next()) {
        if (page->serial != headers->serial) return std::nullopt;
        if (page->granulePosition >= 0) extent.seconds = static_cast<double>(page->granulePosition) / rate;
        extent.isWhole = page->Has(OggLastPage);
    }
    return extent;
}

// MPEGplus: what the header says, and the packet that ends the stream.

std::optional<StreamExtent> MeasureMPEGplus(BinaryFile& file) {
    constexpr std::string_view EndPacket = "SE\3";
    ID3Tag tag;
    if (!IsVersion8Stream(file)) return std::nullopt;
    file.Seek(-4, SeekFrom::Current);
    tag.Length = file.Size();
    ReadMPEGplusStream(file, tag);
    if (tag.MPEGplusExtension.StreamVersion != 8 || tag.Seconds == 0) return std::nullopt;
    file.Seek(-static_cast<std::int32_t>(EndPacket.size()), SeekFrom::End);
    return StreamExtent{static_cast<double>(tag.Seconds),
                        file.ReadBytes(static_cast<std::int32_t>(EndPacket.size())) == EndPacket};
}

}  // namespace

std::optional<StreamExtent> MeasureStream(FileSystem& files, const std::string& path) {
    try {
        auto opened = files.OpenReadOnly(path);
        if (!opened) return std::nullopt;
        if (IsOggFile(path)) return MeasureOgg(*opened);
        if (IsMPEGplusFile(path)) return MeasureMPEGplus(*opened);
        BufferedFile file(std::move(opened), {.head = BufferedFile::LongestWindow, .tail = 0});
        return MeasureMP3(file);
    } catch (const RuntimeError&) {
        // A file that can't be measured is none of which anything is known.
        return std::nullopt;
    }
}

}  // namespace zefta
