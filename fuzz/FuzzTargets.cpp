#include "fuzz/FuzzTargets.h"

#include <algorithm>
#include <iterator>

namespace zefta::fuzz {

namespace {

constexpr FuzzTarget Targets[] = {
    {"ID3v1", FuzzID3v1},
    {"Lyrics3", FuzzLyrics3},
    {"ID3v2", FuzzID3v2},
    {"APE2", FuzzAPE2},
    {"MP3File", FuzzMP3File},
    {"OGGFile", FuzzOGGFile},
    {"MPEGplusFile", FuzzMPEGplusFile},
    {"WaveInfo", FuzzWaveInfo},
    {"ScanWave", FuzzScanWave},
    {"SetID3v1", FuzzSetID3v1},
    {"SetID3v2", FuzzSetID3v2},
    {"SetAPE2", FuzzSetAPE2},
    {"SetOggComments", FuzzSetOggComments},
    {"ProcessWave", FuzzProcessWave},
    {"ProfileFile", FuzzProfileFile},
};

}  // namespace

std::span<const FuzzTarget> FuzzTargets() {
    return Targets;
}

const FuzzTarget* FindFuzzTarget(std::string_view name) {
    const auto found = std::find_if(std::begin(Targets), std::end(Targets),
                                    [&](const FuzzTarget& target) { return target.name == name; });
    return found == std::end(Targets) ? nullptr : found;
}

}  // namespace zefta::fuzz
