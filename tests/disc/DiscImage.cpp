#include "disc/DiscImage.h"

#include <cmath>
#include <numbers>

#include "platform/AudioDisc.h"
#include "support/WavBuilder.h"

namespace zefta::test {

namespace {

/// A tone on both channels.
std::string Tone(int sectors, double hertz) {
    constexpr int FramesOfSector = DiscSectorBytes / 4;
    constexpr double Rate = 44100;
    constexpr double Peak = 12000;
    std::vector<int> samples;
    for (int i = 0; i < sectors * FramesOfSector; ++i) {
        const int sample = static_cast<int>(Peak * std::sin(2 * std::numbers::pi * hertz * i / Rate));
        samples.insert(samples.end(), {sample, sample / 2});
    }
    return SampleBytes(samples);
}

std::string TwoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string TimeOf(int sector) {
    return TwoDigits(sector / DiscSectorsOfSecond / 60) + ":" + TwoDigits(sector / DiscSectorsOfSecond % 60) +
           ":" + TwoDigits(sector % DiscSectorsOfSecond);
}

}  // namespace

DiscImage& DiscImage::Audio(int sectors) {
    Add(true, Tone(sectors, 220.0 * static_cast<double>(tracks_.size() + 1)));
    return *this;
}

DiscImage& DiscImage::Data(int sectors) {
    Add(false, std::string(static_cast<std::size_t>(sectors) * DiscSectorBytes, '\x5A'));
    return *this;
}

void DiscImage::Add(bool isAudio, std::string bytes) {
    const int sectors = static_cast<int>(bytes.size()) / DiscSectorBytes;
    tracks_.push_back({isAudio, sectors_, std::move(bytes)});
    sectors_ += sectors;
}

std::string DiscImage::WriteTo(const TempFolder& folder) const {
    std::string sheet = "FILE \"disc.bin\" BINARY\n";
    std::string bytes;
    for (std::size_t i = 0; i < tracks_.size(); ++i) {
        sheet += "  TRACK " + TwoDigits(static_cast<int>(i) + 1) +
                 (tracks_[i].isAudio ? " AUDIO\n" : " MODE1/2352\n") + "    INDEX 01 " +
                 TimeOf(tracks_[i].start) + "\n";
        bytes += tracks_[i].bytes;
    }
    folder.Write("disc.bin", bytes);
    return folder.Write("disc.cue", sheet);
}

}  // namespace zefta::test
