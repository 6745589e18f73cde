#include "tags/MPEGHeader.h"

namespace zefta {

namespace {

constexpr std::uint8_t Mpeg25 = 25;

/// By the two version bits; 1 is reserved.
constexpr std::uint8_t Versions[4] = {Mpeg25, 0, 2, 1};

/// By the two layer bits; 0 is reserved.
constexpr std::uint8_t Layers[4] = {0, 3, 2, 1};

}  // namespace

bool MPEGHeader::ParseHeader(std::string_view bytes) {
    IsCorrect = false;
    if (bytes.size() != 4) return false;
    const auto byte = [&](std::size_t index) { return static_cast<std::uint8_t>(bytes[index]); };
    if (byte(0) != 255 || (byte(1) & 224) != 224) return false;

    const unsigned versionBits = (byte(1) >> 3) & 3U;
    if (Versions[versionBits] == 0) return false;
    Version = Versions[versionBits];
    const unsigned layerBits = (byte(1) >> 1) & 3U;
    if (layerBits != 0) Layer = Layers[layerBits];
    BitrateIndex = static_cast<std::uint8_t>((byte(2) & 240) / 15);
    if (Version == Mpeg25 || Layer < 1 || BitrateIndex > 15) return false;

    Bitrate = BitrateTable[Version - 1][Layer - 1][BitrateIndex];
    SampleRateIndex = (byte(2) >> 2) & 3;
    SampleRate = SampleRateTable[Version - 1][SampleRateIndex];
    ChannelMode = (byte(3) & 192) / 63;
    IsCorrect = true;
    return true;
}

}  // namespace zefta
