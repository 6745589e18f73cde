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
class WavBuilder {
  public:
    // The "fmt " chunk.

    WavBuilder& FormatTag(std::int16_t tag);
    WavBuilder& Channels(std::int16_t channels);
    WavBuilder& Mono() { return Channels(1); }
    WavBuilder& Stereo() { return Channels(2); }
    WavBuilder& Rate(std::int32_t samplesPerSecond);
    WavBuilder& Bits(std::int16_t bitsPerSample);
    /// More bytes behind the 16 of the format.
    WavBuilder& FormatExtra(std::string_view bytes);

    // The audio, piece by piece; numbers of bytes.

    WavBuilder& Silence(std::size_t bytes);
    /// Samples that change all the time between -amplitude and amplitude, each at least 300 away from 0.
    WavBuilder& Tone(std::size_t bytes, int amplitude = 8000);
    WavBuilder& Samples(std::initializer_list<int> samples);
    WavBuilder& Audio(std::string_view bytes);

    /// Another chunk: ahead of the audio when there is none yet, else behind it. No pad byte is added.
    WavBuilder& Chunk(std::string_view identifier, std::string_view body);

    // What is wrong with the file.

    WavBuilder& FormType(std::string_view type);
    WavBuilder& RiffSize(std::int32_t size);
    WavBuilder& DataSize(std::int32_t size);
    /// The size field of the "fmt " chunk.
    WavBuilder& FormatSize(std::int32_t size);
    WavBuilder& WithoutFormat();
    WavBuilder& WithoutData();
    WavBuilder& DataAheadOfFormat();

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

inline WavBuilder Wav() {
    return {};
}

/// 16-bit little-endian samples.
std::string SampleBytes(const std::vector<int>& samples);

/// The samples of audio bytes; a last odd byte is left out.
std::vector<int> SamplesOf(std::string_view audio);

/// One chunk: identifier, size field as given or else of the body, body.
std::string ChunkBytes(std::string_view identifier, std::string_view body,
                       std::optional<std::int32_t> size = std::nullopt);

}  // namespace zefta::test
