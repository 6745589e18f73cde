#include <array>
#include <memory>

#include "core/BlockCopy.h"
#include "core/Boxes.h"
#include "core/Numbers.h"
#include "platform/RuntimeError.h"
#include "wave/BlockPrimitives.h"
#include "wave/Silence.h"
#include "wave/WaveChunks.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

// Codes of ScanWave; the text of a code is message 1020 + code.
constexpr std::int32_t Passed = 0;
constexpr std::int32_t FileMissing = 1;
constexpr std::int32_t CannotOpenToScan = 2;
constexpr std::int32_t NoRiffFile = 3;
constexpr std::int32_t NoWaveFile = 4;
constexpr std::int32_t BadFormatTag = 5;
constexpr std::int32_t Incompatible = 6;
constexpr std::int32_t TooSmall = 7;

WaveFormatFields RawFormat() {
    WaveFormatFields format;
    format.FormatTag = 1;
    format.Channels = 2;
    format.SamplesPerSec = 44100;
    format.BitsPerSample = 16;
    format.BlockAlign = 2 * (16 / 8);
    format.AvgBytesPerSec = format.BlockAlign * format.SamplesPerSec;
    return format;
}

WaveFormatFields ReadFormat(BinaryFile& file) {
    WaveFormatFields format;
    format.FormatTag = ReadShort(file);
    format.Channels = ReadShort(file);
    format.SamplesPerSec = ReadLong(file);
    format.AvgBytesPerSec = ReadLong(file);
    format.BlockAlign = ReadShort(file);
    format.BitsPerSample = ReadShort(file);
    return format;
}

bool IsCompatible(const WaveFormatFields& format) {
    return format.FormatTag == 1 && (format.Channels == 1 || format.Channels == 2) &&
           (format.SamplesPerSec == 44100 || format.SamplesPerSec == 48000) && format.BitsPerSample == 16;
}

/// Counts the blocks of a pass in a signed 16-bit number: at 32767 blocks the next look fails with
/// RuntimeError 6.
class BlockCounter {
  public:
    /// Whether another whole block ends before the end of the data. A block that would reach the end is
    /// never read.
    bool AnotherEndsBefore(std::int32_t dataLength) const {
        return Multiply(ToI16(std::int64_t{count_} + 1), WaveBlockSize) < dataLength;
    }
    void Count() { ++count_; }

  private:
    std::int16_t count_ = 0;
};

}  // namespace

/// One scan: the file on its way through the chunks, with what the steps hand on to each other.
class WaveScan {
  public:
    WaveScan(WaveFile& wave, App& app, BinaryFile& file) : wave_(wave), app_(app), file_(file) {}

    std::int32_t Run(bool askPeaks) {
        if (const std::int32_t code = ReadHeader(); code != Passed) return code;
        while (const auto chunk = Next()) {
            if (const std::int32_t code = ReadChunk(*chunk); code != Passed) return code;
            app_.desktop.ServeEvents();
        }
        if (askPeaks) MeasurePeaks();
        return Passed;
    }

    bool FoundData() const { return foundData_; }

  private:
    std::int32_t ReadHeader() {
        file_.Seek(0, SeekFrom::Start);
        if (file_.ReadBytes(4) != "RIFF") {
            if (!wave_.RAW && !AskTreatAsRaw()) return NoRiffFile;
            file_.Seek(0, SeekFrom::Start);
            wave_.RiffLength = file_.Size();
            isRaw_ = true;
            return Passed;
        }
        wave_.RiffLength = ReadLong(file_);
        return file_.ReadBytes(4) == "WAVE" ? Passed : NoWaveFile;
    }

    bool AskTreatAsRaw() {
        return AskYesNo(app_, app_.messages.GetMessage(1028, app_.ansi.ToText(wave_.FileName)),
                        app_.messages.GetMessage(1010));
    }

    /// A raw file is one chunk of audio, without a header in front of it.
    std::optional<WaveChunk> Next() {
        if (!isRaw_) return NextChunk(file_, wave_.RiffLength);
        if (file_.Position() > wave_.RiffLength) return std::nullopt;
        wave_.WaveFormat = RawFormat();
        return WaveChunk{"data", wave_.RiffLength};
    }

    std::int32_t ReadChunk(const WaveChunk& chunk) {
        if (chunk.identifier == "fmt ") return ReadFormatChunk(chunk);
        if (chunk.identifier == "data") return ReadDataChunk(chunk);
        SkipBody(file_, chunk);
        return Passed;
    }

    std::int32_t ReadFormatChunk(const WaveChunk& chunk) {
        if (chunk.size < ReadOfFormat) return BadFormatTag;
        wave_.WaveFormat = ReadFormat(file_);
        bytesPerSample_ = wave_.WaveFormat.BitsPerSample / 8;
        if (!IsCompatible(wave_.WaveFormat)) return Incompatible;
        SkipBody(file_, chunk, ReadOfFormat);
        return Passed;
    }

    std::int32_t ReadDataChunk(const WaveChunk& chunk) {
        if (isRaw_) bytesPerSample_ = wave_.WaveFormat.BitsPerSample / 8;
        wave_.DataLength = chunk.size;
        wave_.DataSizePos = isRaw_ ? 0 : file_.Position() - 4;
        if (chunk.size < WaveBlockSize) return TooSmall;
        // Audio ahead of its format has samples of no size.
        if (bytesPerSample_ == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
        FindStart(chunk.size);
        FindEnd(chunk.size);
        foundData_ = true;
        return Passed;
    }

    void FindStart(std::int32_t chunkSize) {
        WaveFile::Raise(wave_.MinStatus, 0);
        WaveFile::Raise(wave_.MaxStatus, wave_.DataLength);
        WaveFile::Raise(wave_.Status, 0);
        wave_.ScanPos = 0;
        bool audible = false;
        for (BlockCounter blocks; !audible && blocks.AnotherEndsBefore(wave_.DataLength); blocks.Count()) {
            const std::int32_t index = FirstAudibleByte(ReadBlock(), WaveBlockSize, Bounds());
            audible = index < WaveBlockSize;
            Advance(audible ? index - 1 : WaveBlockSize, wave_.StartOffset);
        }
        WaveFile::Raise(wave_.Status, chunkSize);
        wave_.TrimStart = wave_.ScanPos - wave_.ScanPos % FrameBytes();
    }

    /// Raw audio ends 4 bytes behind the file by this count, so that its first block is 4 bytes short. It is
    /// taken back as if it were whole: all others lie as in any file, counted from the last byte. Kept: where
    /// the end of raw audio is cut hangs on it.
    void FindEnd(std::int32_t chunkSize) {
        const std::int32_t end = Add(Add(wave_.DataSizePos, chunkSize), 4);
        file_.Seek(end, SeekFrom::Start);
        WaveFile::Raise(wave_.Status, 0);
        wave_.ScanPos = 0;
        bool audible = false;
        for (BlockCounter blocks; !audible && blocks.AnotherEndsBefore(wave_.DataLength); blocks.Count()) {
            file_.Seek(-WaveBlockSize, SeekFrom::Current);
            const std::int32_t blockStart = file_.Position();
            const std::int32_t index = LastAudibleByte(ReadBlock(), WaveBlockSize, Bounds());
            audible = index > 0;
            if (!audible) file_.Seek(isRaw_ ? file_.Position() - WaveBlockSize : blockStart, SeekFrom::Start);
            Advance(audible ? WaveBlockSize - index - 1 : WaveBlockSize, wave_.EndOffset);
        }
        wave_.TrimEnd = chunkSize - wave_.ScanPos + wave_.ScanPos % FrameBytes();
        file_.Seek(end, SeekFrom::Start);
    }

    /// The peaks of the whole audio, silence included, but for the last part of a block.
    void MeasurePeaks() {
        file_.Seek(Add(wave_.DataSizePos, 4), SeekFrom::Start);
        wave_.ScanPos = 0;
        bool ended = false;
        for (BlockCounter blocks; !ended && blocks.AnotherEndsBefore(wave_.DataLength); blocks.Count()) {
            const std::int32_t count = zftGetPeaksForBlock(
                file_, WaveBlockSize,
                {wave_.PeakMaxLeft, wave_.PeakMaxRight, wave_.PeakMinLeft, wave_.PeakMinRight});
            ended = count < WaveBlockSize;
            Advance(ended ? count - 1 : WaveBlockSize, wave_.Status);
        }
    }

    std::span<const std::byte> ReadBlock() { return std::span(block_).first(file_.Read(block_)); }

    void Advance(std::int32_t bytes, const WaveFile::Event& event) {
        wave_.ScanPos = Add(wave_.ScanPos, bytes);
        WaveFile::Raise(event, wave_.ScanPos);
        app_.desktop.ServeEvents();
    }

    SilenceBounds Bounds() const { return {wave_.MinSample, wave_.MaxSample}; }

    /// Trim positions are multiples of this, on mono files too.
    std::int32_t FrameBytes() const { return 2 * bytesPerSample_; }

    WaveFile& wave_;
    App& app_;
    BinaryFile& file_;
    bool isRaw_ = false;
    bool foundData_ = false;
    std::int32_t bytesPerSample_ = 0;
    std::array<std::byte, WaveBlockSize> block_;
};

std::int32_t WaveFile::ScanWave(const std::string& path, bool askPeaks) {
    PeakMinLeft = PeakMaxLeft = PeakMinRight = PeakMaxRight = 0;
    FileName = path;
    if (!app_.files.FileExists(path)) return FileMissing;
    const auto file = app_.files.OpenRead(path);
    if (!file) return CannotOpenToScan;
    WaveScan scan(*this, app_, *file);
    const std::int32_t code = scan.Run(askPeaks);
    if (code != Passed) return code;
    ScanPassed = true;
    foundData_ = scan.FoundData();
    return Passed;
}

}  // namespace zefta
