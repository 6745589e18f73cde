#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zefta {

/// Sectors of a second, and bytes of one of audio: 16-bit stereo at 44100 Hz, little-endian.
inline constexpr std::int32_t DiscSectorsOfSecond = 75;
inline constexpr std::int32_t DiscSectorBytes = 2352;

struct DiscTrack {
    bool IsAudio = true;
    /// First sector, counted from the beginning of the lead-in as databases of discs do: 150 and above.
    std::int32_t Start = 0;
    std::int32_t Sectors = 0;

    bool operator==(const DiscTrack&) const = default;
};

/// The table of contents of a disc.
struct DiscContents {
    /// The number of the first track; the others follow it without a gap.
    std::int32_t FirstNumber = 1;
    std::vector<DiscTrack> Tracks;
    /// The sector behind the last one, counted as Start.
    std::int32_t LeadOut = 0;

    bool operator==(const DiscContents&) const = default;
};

/// Called while something is waited for, at least every 20 milliseconds, so that a window stays alive; false
/// ends the waiting.
using WaitStep = std::function<bool()>;

enum class TrackReading { Done, Failed, Cancelled };

/// Compact discs: in a drive, or as an image in a file (.cue with its .bin, .nrg, .toc). A source is the path
/// of a drive or image; "" is the first drive of the machine.
class AudioDisc {
  public:
    AudioDisc() = default;
    AudioDisc(const AudioDisc&) = delete;
    AudioDisc& operator=(const AudioDisc&) = delete;
    virtual ~AudioDisc() = default;

    /// The drives of the machine, in rising order.
    virtual std::vector<std::string> Drives() const = 0;

    /// Nothing when there is no disc, it can't be read, the waiting was ended, or this build reads no discs.
    virtual std::optional<DiscContents> ReadContents(const std::string& source, const WaitStep& wait) = 0;

    /// Reads a track of audio from its first to its last sector and hands on what was read, in pieces of any
    /// size. Each sector was read until two readings were the same; Failed when one never was. What `take`
    /// throws ends the reading.
    virtual TrackReading ReadTrack(const std::string& source, std::int32_t number,
                                   const std::function<void(std::span<const std::byte>)>& take,
                                   const WaitStep& wait) = 0;
};

/// The one of the machine. `ownPath` is the path of the running program, beside which its helper for discs
/// stands.
std::unique_ptr<AudioDisc> MakeAudioDisc(const std::string& ownPath);

}  // namespace zefta
