#include "wave/WaveInfo.h"

#include <utility>

#include "core/Numbers.h"
#include "platform/RuntimeError.h"
#include "tags/FileReading.h"
#include "wave/WaveChunks.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int16_t NoWaveBitrate = -1;
constexpr std::int32_t Stereo = 0;
constexpr std::int32_t Mono = 3;
/// Holds all chunks in front of the audio of a usual file.
constexpr std::int32_t HeadOfFile = 512;

/// False when the chunk is too small to be one.
bool ReadFormat(BinaryFile& file, const WaveChunk& chunk, ID3Tag& tag) {
    if (chunk.size < ReadOfFormat) return false;
    file.Seek(2, SeekFrom::Current);
    tag.ChannelMode = ReadShort(file) == 2 ? Stereo : Mono;
    tag.SampleRate = ReadLong(file);
    file.Seek(8, SeekFrom::Current);
    SkipBody(file, chunk, ReadOfFormat);
    return true;
}

/// Takes every file for 16-bit, whatever it says of itself: kept, lists have shown it so.
std::int32_t PlayingTime(const ID3Tag& tag) {
    const double bytesPerSecond = (tag.ChannelMode == Stereo ? 2.0 : 1.0) * tag.SampleRate * 2.0;
    if (bytesPerSecond == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    return ToI32(tag.Length / bytesPerSecond);
}

/// Walks the chunks; false for a file that is no usable WAV file.
bool WalkChunks(BinaryFile& file, ID3Tag& tag, const std::function<void()>& afterChunk) {
    if (file.ReadBytes(4) != "RIFF") return false;
    const std::int32_t riffLength = ReadLong(file);
    if (file.ReadBytes(4) != "WAVE") return false;
    while (const auto chunk = NextChunk(file, riffLength)) {
        if (chunk->identifier == "fmt ") {
            if (!ReadFormat(file, *chunk, tag)) return false;
        } else if (chunk->identifier == "data") {
            tag.Length = chunk->size;
            if (tag.SampleRate != 0) break;
            SkipBody(file, *chunk);
        } else {
            SkipBody(file, *chunk);
        }
        if (afterChunk) afterChunk();
    }
    tag.Seconds = PlayingTime(tag);
    return true;
}

}  // namespace

void ReadWaveInfo(FileSystem& files, const std::string& path, ID3Tag& tag,
                  const std::function<void()>& afterChunk) {
    auto opened = files.OpenRead(path);
    if (!opened) return;
    tag.Path = PathOfRecord(path);
    try {
        BufferedFile file(std::move(opened), {.head = HeadOfFile, .tail = 0});
        tag.Length = file.Size();
        if (!WalkChunks(file, tag, afterChunk)) tag.Bitrate = NoWaveBitrate;
    } catch (const RuntimeError&) {
        tag.Bitrate = NoWaveBitrate;
    }
}

ID3Tag WaveFile::GetWaveInfo(const std::string& path) {
    ID3Tag tag;
    ReadWaveInfo(app_.files, path, tag, [this] { app_.desktop.ServeEvents(); });
    return tag;
}

}  // namespace zefta
