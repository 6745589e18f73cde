#include "support/WavBuilder.h"

#include <iterator>

#include "core/ByteCodec.h"

namespace zefta::test {

using ByteCodec::FromLong;
using ByteCodec::FromShort;

std::string ToneBytes(std::size_t bytes, int peak) {
    constexpr int Sevenths[] = {7, -7, 5, -6, -7, 7, 6, -5};
    std::string audio;
    for (std::size_t i = 0; audio.size() < bytes; ++i)
        audio += FromShort(static_cast<std::int16_t>(peak * Sevenths[i % std::size(Sevenths)] / 7));
    audio.resize(bytes);
    return audio;
}

std::string SampleBytes(const std::vector<int>& samples) {
    std::string bytes;
    for (const int sample : samples) bytes += FromShort(static_cast<std::int16_t>(sample));
    return bytes;
}

std::vector<int> SamplesOf(std::string_view audio) {
    std::vector<int> samples;
    for (std::size_t at = 0; at + 2 <= audio.size(); at += 2)
        samples.push_back(ByteCodec::ToShort(audio.substr(at, 2)));
    return samples;
}

std::string ChunkBytes(std::string_view identifier, std::string_view body, std::optional<std::int32_t> size) {
    return std::string(identifier) + FromLong(size.value_or(static_cast<std::int32_t>(body.size()))) +
           std::string(body);
}

Wav& Wav::FormatTag(std::int16_t tag) {
    formatTag_ = tag;
    return *this;
}

Wav& Wav::Channels(std::int16_t channels) {
    channels_ = channels;
    return *this;
}

Wav& Wav::Rate(std::int32_t samplesPerSecond) {
    rate_ = samplesPerSecond;
    return *this;
}

Wav& Wav::Bits(std::int16_t bitsPerSample) {
    bits_ = bitsPerSample;
    return *this;
}

Wav& Wav::FormatExtra(std::string_view bytes) {
    formatExtra_ = bytes;
    return *this;
}

Wav& Wav::Silence(std::size_t bytes) {
    audio_.append(bytes, '\0');
    return *this;
}

Wav& Wav::Tone(std::size_t bytes, int peak) {
    return Audio(ToneBytes(bytes, peak));
}

Wav& Wav::Samples(std::initializer_list<int> samples) {
    audio_ += SampleBytes(samples);
    return *this;
}

Wav& Wav::Audio(std::string_view bytes) {
    audio_ += bytes;
    return *this;
}

Wav& Wav::Chunk(std::string_view identifier, std::string_view body) {
    (audio_.empty() ? ahead_ : behind_) += ChunkBytes(identifier, body);
    return *this;
}

Wav& Wav::Tail(std::string_view bytes) {
    behind_ += bytes;
    return *this;
}

Wav& Wav::FormType(std::string_view type) {
    formType_ = type;
    return *this;
}

Wav& Wav::RiffSize(std::int32_t size) {
    riffSize_ = size;
    return *this;
}

Wav& Wav::DataSize(std::int32_t size) {
    dataSize_ = size;
    return *this;
}

Wav& Wav::FormatSize(std::int32_t size) {
    formatSize_ = size;
    return *this;
}

Wav& Wav::WithoutFormat() {
    hasFormat_ = false;
    return *this;
}

Wav& Wav::WithoutData() {
    hasData_ = false;
    return *this;
}

Wav& Wav::DataAheadOfFormat() {
    dataAheadOfFormat_ = true;
    return *this;
}

std::string Wav::FormatChunk() const {
    if (!hasFormat_) return {};
    const auto frameBytes = static_cast<std::int16_t>(channels_ * (bits_ / 8));
    const std::string body = FromShort(formatTag_) + FromShort(channels_) + FromLong(rate_) +
                             FromLong(rate_ * frameBytes) + FromShort(frameBytes) + FromShort(bits_) +
                             formatExtra_;
    return ChunkBytes("fmt ", body, formatSize_);
}

std::string Wav::DataChunk() const {
    return hasData_ ? ChunkBytes("data", audio_, dataSize_) : std::string();
}

std::string Wav::Bytes() const {
    const std::string body = dataAheadOfFormat_ ? ahead_ + DataChunk() + FormatChunk() + behind_
                                                : FormatChunk() + ahead_ + DataChunk() + behind_;
    const auto size = static_cast<std::int32_t>(formType_.size() + body.size());
    return "RIFF" + FromLong(riffSize_.value_or(size)) + formType_ + body;
}

}  // namespace zefta::test
