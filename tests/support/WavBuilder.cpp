#include "support/WavBuilder.h"

#include "core/ByteCodec.h"

namespace zefta::test {

namespace {

using ByteCodec::FromLong;
using ByteCodec::FromShort;

/// A sample of the tone: a saw that never comes near silence.
int ToneSample(std::size_t index, int amplitude) {
    constexpr int Audible = 300;
    const int saw = static_cast<int>(index * 97 % static_cast<std::size_t>(2 * amplitude + 1)) - amplitude;
    if (saw >= 0) return saw < Audible ? Audible : saw;
    return saw > -Audible ? -Audible : saw;
}

}  // namespace

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

WavBuilder& WavBuilder::FormatTag(std::int16_t tag) {
    formatTag_ = tag;
    return *this;
}

WavBuilder& WavBuilder::Channels(std::int16_t channels) {
    channels_ = channels;
    return *this;
}

WavBuilder& WavBuilder::Rate(std::int32_t samplesPerSecond) {
    rate_ = samplesPerSecond;
    return *this;
}

WavBuilder& WavBuilder::Bits(std::int16_t bitsPerSample) {
    bits_ = bitsPerSample;
    return *this;
}

WavBuilder& WavBuilder::FormatExtra(std::string_view bytes) {
    formatExtra_ = bytes;
    return *this;
}

WavBuilder& WavBuilder::Silence(std::size_t bytes) {
    audio_.append(bytes, '\0');
    return *this;
}

WavBuilder& WavBuilder::Tone(std::size_t bytes, int amplitude) {
    const std::size_t wanted = audio_.size() + bytes;
    for (std::size_t i = 0; audio_.size() < wanted; ++i)
        audio_ += FromShort(static_cast<std::int16_t>(ToneSample(i, amplitude)));
    audio_.resize(wanted);
    return *this;
}

WavBuilder& WavBuilder::Samples(std::initializer_list<int> samples) {
    audio_ += SampleBytes(samples);
    return *this;
}

WavBuilder& WavBuilder::Audio(std::string_view bytes) {
    audio_ += bytes;
    return *this;
}

WavBuilder& WavBuilder::Chunk(std::string_view identifier, std::string_view body) {
    (audio_.empty() ? ahead_ : behind_) += ChunkBytes(identifier, body);
    return *this;
}

WavBuilder& WavBuilder::FormType(std::string_view type) {
    formType_ = type;
    return *this;
}

WavBuilder& WavBuilder::RiffSize(std::int32_t size) {
    riffSize_ = size;
    return *this;
}

WavBuilder& WavBuilder::DataSize(std::int32_t size) {
    dataSize_ = size;
    return *this;
}

WavBuilder& WavBuilder::FormatSize(std::int32_t size) {
    formatSize_ = size;
    return *this;
}

WavBuilder& WavBuilder::WithoutFormat() {
    hasFormat_ = false;
    return *this;
}

WavBuilder& WavBuilder::WithoutData() {
    hasData_ = false;
    return *this;
}

WavBuilder& WavBuilder::DataAheadOfFormat() {
    dataAheadOfFormat_ = true;
    return *this;
}

std::string WavBuilder::FormatChunk() const {
    if (!hasFormat_) return {};
    const auto frameBytes = static_cast<std::int16_t>(channels_ * (bits_ / 8));
    const std::string body = FromShort(formatTag_) + FromShort(channels_) + FromLong(rate_) +
                             FromLong(rate_ * frameBytes) + FromShort(frameBytes) + FromShort(bits_) +
                             formatExtra_;
    return ChunkBytes("fmt ", body, formatSize_);
}

std::string WavBuilder::DataChunk() const {
    return hasData_ ? ChunkBytes("data", audio_, dataSize_) : std::string();
}

std::string WavBuilder::Bytes() const {
    const std::string body = dataAheadOfFormat_ ? ahead_ + DataChunk() + FormatChunk() + behind_
                                                : FormatChunk() + ahead_ + DataChunk() + behind_;
    const auto size = static_cast<std::int32_t>(formType_.size() + body.size());
    return "RIFF" + FromLong(riffSize_.value_or(size)) + formType_ + body;
}

}  // namespace zefta::test
