#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/App.h"
#include "tags/ID3Tag.h"
#include "tags/ID3v1.h"

namespace zefta {

/// One frame of CD audio: a 75th of a second of 16-bit stereo at 44100 Hz.
inline constexpr std::int32_t CdFrameBytes = 2352;

/// The first 16 bytes of a "fmt " chunk.
struct WaveFormatFields {
    std::int16_t FormatTag = 0;
    std::int16_t Channels = 0;
    std::int32_t SamplesPerSec = 0;
    std::int32_t AvgBytesPerSec = 0;
    std::int16_t BlockAlign = 0;
    std::int16_t BitsPerSample = 0;
};

/// The class on which all per-file work hangs. One instance serves one job at a time: set the properties,
/// then ScanWave, then ProcessWave on the same instance, since the scan leaves in it what the rewrite needs.
/// Positions and lengths are in bytes.
class WaveFile {
  public:
    using Event = std::function<void(std::int32_t)>;

    /// Calls the handler, if there is one.
    static void Raise(const Event& event, std::int32_t value) {
        if (event) event(value);
    }

    explicit WaveFile(App& app) : app_(app) {}

    // Properties.

    /// Layout of the silence around the audio: 1 normal, 2 first, 3 last track, 4 first, 5 last track of a
    /// NON-STOP run; any other takes Before and After.
    std::int32_t Format = 0;
    /// A sample, read as 0 to 65535, is silent when at or below MinSample or at or above MaxSample.
    std::int32_t MinSample = 0;
    std::int32_t MaxSample = 65536;
    /// Take a file without RIFF header as raw audio without asking.
    bool RAW = false;
    /// CD frames of silence; a negative number counts as 0.
    std::int32_t Before = 0;
    std::int32_t After = 0;

    // Per cents of full scale, 0 to 100; a value above 100 is ignored.

    void SetNRLevel(std::uint8_t value);
    void SetNRAbove(std::uint8_t value);
    void SetNRBelow(std::uint8_t value);
    /// Gives 0 and copies the level into NRAbove. Kept: other programs that drive the class rely on it.
    std::uint8_t GetNRLevel();
    /// The level as it is, for the rewrite.
    std::uint8_t StoredNRLevel() const { return nrLevel_; }
    std::uint8_t GetNRAbove() const { return nrAbove_; }
    std::uint8_t GetNRBelow() const { return nrBelow_; }

    // Events; each may stay unset.

    Event StartOffset;
    Event EndOffset;
    Event MaxStatus;
    Event MinStatus;
    Event Status;

    // Wave operations (wave/).

    /// Checks the file and finds its silence and, with askPeaks, its peaks. 0, or a code 1 to 7 whose text is
    /// message 1020 + code. Changes nothing on disk.
    std::int32_t ScanWave(const std::string& path, bool askPeaks);

    /// Rewrites the scanned file; the former one stays beside it with ".BAK" behind its name. 0, or a code
    /// 1 to 4 whose text is message 1030 + code.
    std::int32_t ProcessWave(bool normalize);

    /// 0, 1 when the source can't be opened, 2 when the destination can't be created or is the source.
    std::int32_t CopyWave(const std::string& source, const std::string& destination);

    /// Technical data of a WAV file. Never fails: an empty Path marks a file that can't be opened, a Bitrate
    /// of -1 one that is no usable WAV file.
    ID3Tag GetWaveInfo(const std::string& path);

    // Tag operations (tags/). The readers make a fresh record; an empty Path marks a file that can't be
    // opened. Their run-time failures are those of the functions of tags/ that do the work.

    ID3Tag GetMP3FileInfo(const std::string& path);
    ID3Tag GetOGGFileInfo(const std::string& path);
    ID3Tag GetMPEGplusFileInfo(const std::string& path);

    int SetID3(const std::string& path, const ID3v1Values& values);
    void SetID3v1(ID3Tag& tag);
    void SetID3v2(ID3Tag& tag);
    void SetID3v2WithRoom(ID3Tag& tag);
    /// SetID3v1 and then SetID3v2WithRoom.
    void SetMP3Tags(ID3Tag& tag);
    bool RemoveID3v2(const ID3Tag& tag);
    void SetOggComments(const ID3Tag& tag);
    void SetAPE2(ID3Tag& tag);

    // Library operations (library/).

    /// Gives the file `fileName` of the folder a name made from its tags by the rule `mode`, RenameFormat.
    /// 0: the operation ran to its end and `fileName` is the name that the file has now, relative to the
    /// folder, "Artist/Title.MP3" for rule 4. 1: the tag holds nothing to name the file by. 3: no kind of
    /// file that has tags. Asks the person when the system refuses a name. A file whose track can't be read
    /// as a number keeps its name: RuntimeError 13.
    std::int32_t RenameFileByTAGsData(const std::string& path, std::string& fileName, std::int32_t mode);

    // What the scan found.

    std::string FileName = "0";
    std::int32_t DataLength = 0;
    std::int32_t RiffLength = 0;
    /// Position of the data chunk's size field; the audio starts 4 bytes behind it. 0 in raw mode.
    std::int32_t DataSizePos = 0;
    /// First byte to keep and byte behind the last one, counted from the start of the audio.
    std::int32_t TrimStart = 0;
    std::int32_t TrimEnd = 0;
    WaveFormatFields WaveFormat;
    /// Running byte count of the pass under way.
    std::int32_t ScanPos = 0;
    bool ScanPassed = false;
    std::int16_t PeakMinLeft = 0;
    std::int16_t PeakMaxLeft = 0;
    std::int16_t PeakMinRight = 0;
    std::int16_t PeakMaxRight = 0;

  private:
    App& app_;
    /// Whether the last scan came upon audio. Without any a rewrite would put silence in the place of a file
    /// that was only written in an unusual way.
    bool foundData_ = false;
    std::uint8_t nrLevel_ = 0;
    std::uint8_t nrAbove_ = 0;
    std::uint8_t nrBelow_ = 0;
};

}  // namespace zefta
