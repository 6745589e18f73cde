#include "tags/MPEGplusStream.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::string_view Version7Marker = "MP+\7";
constexpr std::string_view Version8Marker = "MPCK";
/// Of all streams up to version 7, whatever they were made from.
constexpr std::int32_t CommonRate = 44100;
constexpr double SamplesPerFrame = 1152;
constexpr double BytesPerKilobit = 125;

// Values of ChannelMode.
constexpr std::int32_t Stereo = 0;
constexpr std::int32_t JointStereo = 1;
constexpr std::int32_t Mono = 3;

std::uint8_t FlagsAt(std::string_view bytes, std::size_t index) {
    return index < bytes.size() ? static_cast<std::uint8_t>(bytes[index]) : std::uint8_t{0};
}

double Divide(double dividend, double divisor) {
    if (divisor == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
    return dividend / divisor;
}

double SecondsOf(std::int32_t frames, const ID3Tag& tag) {
    return frames * SamplesPerFrame / tag.SampleRate;
}

std::int16_t BitrateOver(double seconds, const ID3Tag& tag) {
    return ToI16(Divide(tag.Length, seconds) / BytesPerKilobit);
}

/// Profiles 1 to 5 as versions 7 and 8 have them: qualities 3 to 7 in steps of 16 from 128 on. What lies
/// between two of them, or carries another sample rate in its low bits, is no profile.
std::uint8_t ProfileOf(std::uint8_t byte) {
    constexpr std::uint8_t first = 128;
    constexpr std::uint8_t last = 192;
    constexpr std::uint8_t step = 16;
    const bool isProfile = byte >= first && byte <= last && byte % step == 0;
    return isProfile ? static_cast<std::uint8_t>((byte - first) / step + 1) : std::uint8_t{0};
}

// --- version 7

void ReadVersion7(BinaryFile& file, ID3Tag& tag) {
    tag.MPEGplusExtension.StreamVersion = 7;
    const double seconds = SecondsOf(ByteCodec::ToLong(file.ReadBytes(4)), tag);
    tag.Seconds = ToI32(seconds);
    tag.Bitrate = BitrateOver(seconds, tag);
    const std::string flags = file.ReadBytes(4);
    tag.ChannelMode = (FlagsAt(flags, 3) & 127) < 64 ? Stereo : JointStereo;
    tag.MPEGplusExtension.StreamProfile = ProfileOf(FlagsAt(flags, 2));
}

// --- versions 4 to 6

std::uint8_t OldVersion(std::uint8_t second) {
    // Bits 3 and 4: 0 is version 4, 1 is 5, 2 is 6. There is no version for 3.
    constexpr std::array<std::uint8_t, 4> versions = {4, 5, 6, 0};
    return versions[(second & 31) >> 3];
}

void ReadOldVersion(BinaryFile& file, std::string_view head, ID3Tag& tag) {
    tag.MPEGplusExtension.StreamVersion = OldVersion(FlagsAt(head, 1));
    tag.ChannelMode = (FlagsAt(head, 2) & 127) == 0 ? Stereo : JointStereo;
    tag.Bitrate = static_cast<std::int16_t>(FlagsAt(head, 3) * 2);
    const std::int32_t frames = ByteCodec::ToLong(file.ReadBytes(4));
    if (tag.MPEGplusExtension.StreamVersion == 4) tag.Seconds = ToI32(SecondsOf(frames, tag));
    if (tag.Seconds < 1) tag.Seconds = ToI32(Divide(tag.Length, tag.Bitrate) / BytesPerKilobit);
    // The stored rate gives way to the measured one.
    tag.Bitrate = BitrateOver(tag.Seconds, tag);
}

// --- version 8

/// A packet: a key of two letters, its size, a body.
struct Packet {
    std::string key;
    /// Positions in the file.
    std::int32_t body;
    std::int32_t end;
};

/// The packets that describe the stream are among the first few.
constexpr int PacketsLookedAt = 64;
constexpr std::int32_t LongestHeader = 2 + 10;
/// Longer than the body of any packet that is read.
constexpr std::int32_t LongestBody = 64;

/// A number of 7 bits a byte, most significant first, with the high bit set on all but the last. The offset
/// moves behind it. Nothing when it is cut off or does not fit into 63 bits.
std::optional<std::int64_t> VariableLength(std::string_view bytes, std::size_t& offset) {
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max() >> 7;
    std::int64_t value = 0;
    while (offset < bytes.size() && value <= largest) {
        const std::uint8_t byte = FlagsAt(bytes, offset++);
        value = value << 7 | (byte & 127);
        if (byte < 128) return value;
    }
    return std::nullopt;
}

/// The packet at the position; nothing when it does not lie in the file whole.
std::optional<Packet> PacketAt(BinaryFile& file, std::int32_t position) {
    file.Seek(position, SeekFrom::Start);
    const std::string header = file.ReadBytes(LongestHeader);
    std::size_t offset = 2;
    const std::optional<std::int64_t> size = VariableLength(header, offset);
    const auto headerSize = static_cast<std::int32_t>(offset);
    if (!size || *size < headerSize || *size > file.Size() - position) return std::nullopt;
    return Packet{header.substr(0, 2), position + headerSize, position + static_cast<std::int32_t>(*size)};
}

std::string BodyOf(BinaryFile& file, const Packet& packet) {
    file.Seek(packet.body, SeekFrom::Start);
    return file.ReadBytes(std::min(packet.end - packet.body, LongestBody));
}

/// Sample rate, channels and length from the body of "SH".
void ReadStreamHeader(std::string_view body, ID3Tag& tag) {
    constexpr std::array<std::int32_t, 4> rates = {44100, 48000, 37800, 32000};
    std::size_t offset = 4 + 1;  // checksum, version
    const std::optional<std::int64_t> samples = VariableLength(body, offset);
    const std::optional<std::int64_t> silence = VariableLength(body, offset);
    if (!samples || !silence || offset + 2 > body.size()) return;
    const std::size_t rate = FlagsAt(body, offset) >> 5;
    if (rate < rates.size()) tag.SampleRate = rates[rate];
    const int channels = (FlagsAt(body, offset + 1) >> 4) + 1;
    tag.ChannelMode = channels == 1 ? Mono : Stereo;
    const auto heard = static_cast<double>(std::max(*samples - *silence, std::int64_t{0}));
    const double seconds = heard / tag.SampleRate;
    tag.Seconds = ToI32(seconds);
    tag.Bitrate = BitrateOver(seconds, tag);
}

/// Profile from the body of "EI", whose first byte has a flag in its lowest bit.
std::uint8_t ReadEncoderInfo(std::string_view body) {
    return ProfileOf(FlagsAt(body, 0) & 0xFE);
}

void ReadVersion8(BinaryFile& file, ID3Tag& tag) {
    tag.MPEGplusExtension.StreamVersion = 8;
    std::int32_t position = file.Position();
    std::string header;
    for (int n = 0; n < PacketsLookedAt; ++n) {
        const std::optional<Packet> packet = PacketAt(file, position);
        if (!packet || packet->key == "AP") break;
        if (packet->key == "SH") header = BodyOf(file, *packet);
        if (packet->key == "EI") tag.MPEGplusExtension.StreamProfile = ReadEncoderInfo(BodyOf(file, *packet));
        position = packet->end;
    }
    // Last, since it is what can fail. Without it the stream has no measures.
    ReadStreamHeader(header, tag);
}

}  // namespace

void ReadMPEGplusStream(BinaryFile& file, ID3Tag& tag) {
    tag.IsMpegPlusFile = true;
    tag.SampleRate = CommonRate;
    tag.Encoder = "MPEGplus";
    tag.VBR = true;
    const std::string head = file.ReadBytes(4);
    if (head == Version8Marker) {
        ReadVersion8(file, tag);
    } else if (head == Version7Marker) {
        ReadVersion7(file, tag);
    } else {
        ReadOldVersion(file, head, tag);
    }
}

bool IsVersion8Stream(BinaryFile& file) {
    constexpr std::size_t flagsOffset = 5;
    constexpr std::size_t sizeOffset = 6;
    constexpr std::int32_t headerSize = 10;
    constexpr std::uint8_t footerPresent = 16;
    file.Seek(0, SeekFrom::Start);
    const std::string head = file.ReadBytes(headerSize);
    std::int32_t start = 0;
    if (head.starts_with("ID3") && head.size() > sizeOffset) {
        start = ByteCodec::SyncSafeToLong(head.substr(sizeOffset)) + headerSize;
        // The readers take the footer for a part of the stream; a writer must not cut a stream for that.
        if ((FlagsAt(head, flagsOffset) & footerPresent) != 0) start += headerSize;
    }
    file.Seek(start, SeekFrom::Start);
    return file.ReadBytes(4) == Version8Marker;
}

}  // namespace zefta
