#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zefta::test {

/// Builds the bytes of a whole WAV file: 16-bit stereo at 44100 Hz unless told otherwise, with sizes that are
/// right unless told otherwise. `Wav().Silence(4704).Tone(88200).Chunk("LIST", text).Bytes()`.
class Wav {
  public:
    // The "fmt " chunk.

    Wav& FormatTag(std::int16_t tag);
    Wav& Channels(std::int16_t channels);
    Wav& Format(std::int16_t tag, std::int16_t channels) { return FormatTag(tag).Channels(channels); }
    Wav& Mono() { return Channels(1); }
    Wav& Stereo() { return Channels(2); }
    Wav& Rate(std::int32_t samplesPerSecond);
    Wav& Bits(std::int16_t bitsPerSample);
    /// More bytes behind the 16 of the format.
    Wav& FormatExtra(std::string_view bytes);

    // The audio, piece by piece; numbers of bytes.

    Wav& Silence(std::size_t bytes);
    Wav& Tone(std::size_t bytes, int peak = 8000);
    Wav& Sample(int sample) { return Samples({sample}); }
    Wav& Samples(std::initializer_list<int> samples);
    Wav& Audio(std::string_view bytes);

    /// Another chunk: ahead of the audio when there is none yet, else behind it. No pad byte is added.
    Wav& Chunk(std::string_view identifier, std::string_view body);
    /// Bytes behind everything, counted by the RIFF size.
    Wav& Tail(std::string_view bytes);

    // What is wrong with the file.

    Wav& FormType(std::string_view type);
    Wav& RiffSize(std::int32_t size);
    Wav& DataSize(std::int32_t size);
    /// The size field of the "fmt " chunk.
    Wav& FormatSize(std::int32_t size);
    Wav& WithoutFormat();
    Wav& WithoutData();
    Wav& DataAheadOfFormat();

    const std::string& AudioBytes() const { return audio_; }
    std::string Bytes() const;

  private:
    std::string FormatChunk() const;
    std::string DataChunk() const;

    std::int16_t formatTag_ = 1;
    std::int16_t channels_ = 2;
    std::int32_t rate_ = 44100;
    std::int16_t bits_ = 16;
    std::string formatExtra_;
    std::string audio_;
    std::string ahead_;
    std::string behind_;
    std::string formType_ = "WAVE";
    std::optional<std::int32_t> riffSize_;
    std::optional<std::int32_t> dataSize_;
    std::optional<std::int32_t> formatSize_;
    bool hasFormat_ = true;
    bool hasData_ = true;
    bool dataAheadOfFormat_ = false;
};

/// Audio that is never near silence and reaches `peak` and `-peak` on both channels.
std::string ToneBytes(std::size_t bytes, int peak = 8000);

/// 16-bit little-endian samples.
std::string SampleBytes(const std::vector<int>& samples);

/// The samples of audio bytes; a last odd byte is left out.
std::vector<int> SamplesOf(std::string_view audio);

/// One chunk: identifier, size field as given or else of the body, body.
std::string ChunkBytes(std::string_view identifier, std::string_view body,
                       std::optional<std::int32_t> size = std::nullopt);

}  // namespace zefta::test
