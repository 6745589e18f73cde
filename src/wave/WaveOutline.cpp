#include "wave/WaveOutline.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "platform/RuntimeError.h"
#include "wave/WaveChunks.h"

namespace zefta {

namespace {

constexpr std::int32_t BytesPerSample = 2;
constexpr std::int32_t MostBytesPerColumn = 4096;

/// Where 16-bit audio lies in its file.
struct Audio {
    std::int32_t start = 0;
    std::int32_t bytes = 0;
    std::int32_t channels = 0;

    std::int32_t FrameBytes() const { return channels * BytesPerSample; }
};

/// The channels of 16-bit audio; 0 for any other.
std::int32_t ReadChannels(BinaryFile& file, const WaveChunk& chunk) {
    if (chunk.size < ReadOfFormat) return 0;
    const std::int16_t tag = ReadShort(file);
    const std::int16_t channels = ReadShort(file);
    file.Seek(10, SeekFrom::Current);
    const std::int16_t bits = ReadShort(file);
    SkipBody(file, chunk, ReadOfFormat);
    const bool isKnown = tag == 1 && bits == 8 * BytesPerSample && (channels == 1 || channels == 2);
    return isKnown ? channels : 0;
}

std::optional<Audio> FindAudio(BinaryFile& file) {
    if (file.ReadBytes(4) != "RIFF") return Audio{0, file.Size(), 2};
    const std::int32_t riffLength = ReadLong(file);
    if (file.ReadBytes(4) != "WAVE") return std::nullopt;
    std::int32_t channels = 0;
    while (const auto chunk = NextChunk(file, riffLength)) {
        if (chunk->identifier == "fmt ") {
            channels = ReadChannels(file, *chunk);
            if (channels == 0) return std::nullopt;
        } else if (chunk->identifier == "data") {
            const std::int32_t rest = file.Size() - file.Position();
            return Audio{file.Position(), std::min(chunk->size, rest), channels};
        } else {
            SkipBody(file, *chunk);
        }
    }
    return std::nullopt;
}

std::int16_t SampleAt(std::span<const std::byte> bytes, std::size_t at) {
    const unsigned low = std::to_integer<unsigned>(bytes[at]);
    const unsigned high = std::to_integer<unsigned>(bytes[at + 1]);
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(low | high << 8));
}

class OutlineReading {
  public:
    OutlineReading(BinaryFile& file, const Audio& audio) : file_(file), audio_(audio) {}

    WaveOutline Read(std::size_t columns) {
        const std::int32_t frames = audio_.bytes / audio_.FrameBytes();
        const auto count = std::min(static_cast<std::int32_t>(columns), frames);
        if (count <= 0) return {};
        WaveOutline outline;
        outline.bytes = audio_.bytes;
        outline.channels.resize(static_cast<std::size_t>(audio_.channels));
        for (std::int32_t i = 0; i < count; ++i) {
            const auto first = static_cast<std::int32_t>(std::int64_t{frames} * i / count);
            const auto end = static_cast<std::int32_t>(std::int64_t{frames} * (i + 1) / count);
            AddColumn(outline, first, end - first);
        }
        return outline;
    }

  private:
    /// From the middle of the stretch when it is long: so the first and last column, in which silence ends,
    /// are no special case.
    void AddColumn(WaveOutline& outline, std::int32_t firstFrame, std::int32_t frames) {
        const std::int32_t taken = std::min(frames, MostBytesPerColumn / audio_.FrameBytes());
        const std::int32_t from = firstFrame + (frames - taken) / 2;
        file_.Seek(audio_.start + from * audio_.FrameBytes(), SeekFrom::Start);
        const auto wanted = std::span(bytes_).first(static_cast<std::size_t>(taken * audio_.FrameBytes()));
        const auto found = std::span(bytes_).first(file_.Read(wanted));
        for (std::size_t channel = 0; channel < outline.channels.size(); ++channel)
            outline.channels[channel].push_back(ColumnOf(found, channel));
    }

    WaveOutline::Column ColumnOf(std::span<const std::byte> bytes, std::size_t channel) const {
        const auto step = static_cast<std::size_t>(audio_.FrameBytes());
        WaveOutline::Column column;
        bool isFirst = true;
        for (std::size_t at = channel * BytesPerSample; at + 1 < bytes.size(); at += step) {
            const std::int16_t sample = SampleAt(bytes, at);
            column.low = isFirst ? sample : std::min(column.low, sample);
            column.high = isFirst ? sample : std::max(column.high, sample);
            isFirst = false;
        }
        return column;
    }

    BinaryFile& file_;
    Audio audio_;
    std::array<std::byte, MostBytesPerColumn> bytes_;
};

}  // namespace

WaveOutline ReadWaveOutline(FileSystem& files, const std::string& path, std::size_t columns) {
    try {
        const auto file = files.OpenReadOnly(path);
        if (!file) return {};
        const auto audio = FindAudio(*file);
        if (!audio || audio->channels == 0) return {};
        return OutlineReading(*file, *audio).Read(std::min(columns, MostOutlineColumns));
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace zefta
