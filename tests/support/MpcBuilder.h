#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zefta::test {

/// Start of a version 7 stream; `profile` and `channels` are the 3rd and 4th byte of its flags.
std::string Mpc7(std::int32_t frames, int profile = 0, int channels = 0);

/// Start of a stream of version 4 to 6: four bytes of header, then the frame count.
std::string MpcOld(int version, int channels, int rateByte, std::int32_t frames = 0);

/// 7 bits a byte, most significant first, the high bit set on all but the last.
std::string MpcNumber(std::uint64_t number);

/// A packet of a version 8 stream; its size is right unless told otherwise.
std::string MpcPacket(std::string_view key, std::string_view body,
                      std::optional<std::uint64_t> size = std::nullopt);

/// Body of the packet "SH".
struct MpcStreamHeader {
    std::uint64_t samples = 441000;
    std::uint64_t silence = 0;
    /// Index into 44100, 48000, 37800, 32000.
    int rate = 0;
    int channels = 2;

    std::string Packet() const;
};

/// Packet "EI" with its first byte as given: 16 times the profile's number, and a flag in bit 0.
std::string MpcEncoderInfo(int profile);

/// A version 8 stream of these packets, a gain packet, audio and the end packet; no decoder would take it.
std::string Mpc8(std::string_view packets, std::size_t audioBytes = 500);
std::string Mpc8(const MpcStreamHeader& header = {}, std::size_t audioBytes = 500);

}  // namespace zefta::test
