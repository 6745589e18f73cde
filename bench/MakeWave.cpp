// Writes a 16-bit stereo WAV file for measurements: half a second of silence, noise at a third of full scale,
// half a second of silence. Usage: zefta_make_wave FILE BYTES-OF-AUDIO

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include "core/ByteCodec.h"

namespace {

using zefta::ByteCodec::FromLong;
using zefta::ByteCodec::FromShort;

constexpr std::int32_t SilenceBytes = 88200;
constexpr std::int32_t PieceBytes = 1 << 20;

std::string Header(std::int32_t audioBytes) {
    return "RIFF" + FromLong(36 + audioBytes) + "WAVEfmt " + FromLong(16) + FromShort(1) + FromShort(2) +
           FromLong(44100) + FromLong(176400) + FromShort(4) + FromShort(16) + "data" + FromLong(audioBytes);
}

/// The same noise in every piece: what stands in the samples costs nobody more or less.
std::string Noise() {
    constexpr int Peak = 12000;
    std::uint32_t state = 1;
    std::string bytes;
    while (bytes.size() < PieceBytes) {
        state = state * 1664525 + 1013904223;
        bytes += FromShort(static_cast<std::int16_t>(static_cast<int>((state >> 8) % (2 * Peak + 1)) - Peak));
    }
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    const long audioBytes = argc == 3 ? std::strtol(argv[2], nullptr, 10) / 4 * 4 : 0;
    if (audioBytes < 3 * SilenceBytes || audioBytes > 2000000000) {
        std::cerr << "usage: zefta_make_wave FILE BYTES-OF-AUDIO (at most 2000000000)\n";
        return 2;
    }
    std::ofstream file(argv[1], std::ios::binary);
    const std::string silence(SilenceBytes, '\0');
    const std::string noise = Noise();
    file << Header(static_cast<std::int32_t>(audioBytes)) << silence;
    for (long left = audioBytes - 2 * SilenceBytes; left > 0; left -= PieceBytes)
        file.write(noise.data(), std::min<long>(left, PieceBytes));
    file << silence;
    return file.flush() ? 0 : 1;
}
