#pragma once

#include <cstdint>
#include <string_view>

namespace zefta {

/// The four bytes of one MPEG audio frame header, decoded (ISO/IEC 11172-3 section 2.4.1.3 and ISO/IEC
/// 13818-3 section 2.4.2.3). CRC, padding, private, copyright, original and emphasis bits are not read.
///
/// The fields hold what the last call set; a refused header leaves those that were decoded before the
/// refusal.
struct MPEGHeader {
    /// kbps by version, layer (both less 1) and BitrateIndex; free format and the forbidden index hold 0.
    static constexpr std::int16_t BitrateTable[2][3][16] = {
        // ISO/IEC 11172-3, table 3-B.2
        {
            {0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448, 0},
            {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384, 0},
            {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 0},
        },
        // ISO/IEC 13818-3, low sampling frequencies
        {
            {0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256, 0},
            {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
            {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160, 0},
        },
    };

    /// Hertz by version (less 1) and SampleRateIndex; the reserved index holds 0. The third row is that of
    /// MPEG-2.5, for which no header is accepted.
    static constexpr std::int32_t SampleRateTable[3][4] = {
        {44100, 48000, 32000, 0},
        {22050, 24000, 16000, 0},
        {11025, 12000, 8000, 0},
    };

    /// 1 for MPEG-1, 2 for MPEG-2, 25 for MPEG-2.5, which is never accepted.
    std::uint8_t Version = 0;
    /// 1 to 3; 0 when no header has told one yet.
    std::uint8_t Layer = 0;
    /// 0 for free format, 1 to 14, and 16 for the forbidden index 15.
    std::uint8_t BitrateIndex = 0;
    /// 0 to 3; 3 is reserved.
    std::uint8_t SampleRateIndex = 0;
    /// Whether the last header was accepted.
    bool IsCorrect = false;
    /// kbps; 0 for free format.
    std::int16_t Bitrate = 0;
    /// Hertz; 0 for the reserved index.
    std::int32_t SampleRate = 0;
    /// 0 stereo, 1 joint stereo, 2 dual channel, 3 mono.
    std::int32_t ChannelMode = 0;

    /// Decodes exactly four bytes; the new IsCorrect. Free format and the reserved sample rate are accepted,
    /// and so are the reserved layer bits (0) once a header has told a layer. Kept: which bytes count as the
    /// start of a stream follows from this.
    bool ParseHeader(std::string_view bytes);
};

}  // namespace zefta
