#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <optional>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "wave/Backup.h"
#include "wave/BlockPrimitives.h"
#include "wave/NormalizeGains.h"
#include "wave/SilenceLayout.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

// Codes of ProcessWave; the text of a code is message 1030 + code.
constexpr std::int32_t Done = 0;
constexpr std::int32_t CannotOpen = 1;
constexpr std::int32_t CannotCreate = 2;
constexpr std::int32_t NotScanned = 4;

std::string Header(const WaveFormatFields& format, std::int32_t dataLength) {
    using namespace ByteCodec;
    return "RIFF" + FromLong(Add(36, dataLength)) + "WAVEfmt " + FromLong(16) + FromShort(format.FormatTag) +
           FromShort(format.Channels) + FromLong(format.SamplesPerSec) + FromLong(format.AvgBytesPerSec) +
           FromShort(format.BlockAlign) + FromShort(format.BitsPerSample) + "data" + FromLong(dataLength);
}

/// So does the stump of a rewrite that was killed.
bool EndsBeforeItsAudio(const WaveFile& wave, std::int64_t fileSize) {
    return std::int64_t{wave.DataSizePos} + 4 + wave.DataLength > fileSize && wave.DataSizePos > 0;
}

/// In pieces: the silence that somebody asks for may be longer than memory.
void WriteSilence(BinaryFile& file, std::int32_t count) {
    static constexpr std::array<std::byte, WaveBlockSize> Zeros{};
    for (; count > 0; count -= WaveBlockSize)
        file.Write(std::span(Zeros).first(static_cast<std::size_t>(std::min(count, WaveBlockSize))));
}

}  // namespace

/// One rewrite: from the backup into the new file. All that it decides is decided when it is made, before
/// anything on disk is touched; what can't be decided (a length beyond 32 bits, a level of 0) is a
/// RuntimeError.
class WaveRewrite {
  public:
    WaveRewrite(WaveFile& wave, App& app, bool normalize)
        : wave_(wave),
          app_(app),
          layout_(LayoutOf(wave)),
          kept_(Subtract(wave.TrimEnd, wave.TrimStart)),
          length_(Add(Add(layout_.before, kept_), layout_.after)),
          header_(Header(wave.WaveFormat, length_)) {
        if (normalize && !WouldChangeNothing()) gains_ = NormalizeGains(PeaksOf(wave), Decision());
    }

    /// Within 16 bytes at both ends the file is as it is to be, whatever its level.
    bool WouldChangeNothing() const {
        constexpr std::int32_t Tolerance = 16;
        const std::int32_t atEnd = Subtract(Subtract(wave_.DataLength, wave_.TrimEnd), layout_.after);
        const std::int32_t atStart = Subtract(wave_.TrimStart, layout_.before);
        return std::abs(std::int64_t{atEnd}) <= Tolerance && std::abs(std::int64_t{atStart}) <= Tolerance;
    }

    void Write(BinaryFile& backup, BinaryFile& file) {
        WaveFile::Raise(wave_.MinStatus, 0);
        WaveFile::Raise(wave_.Status, 0);
        WaveFile::Raise(wave_.MaxStatus, length_);
        file.Write(header_);
        backup.Seek(Add(Add(wave_.DataSizePos, wave_.TrimStart), 4), SeekFrom::Start);
        WriteSilence(file, layout_.before);
        if (layout_.before > 0) WaveFile::Raise(wave_.Status, layout_.before);
        CopyAudio(backup, file);
        WriteSilence(file, layout_.after);
        WaveFile::Raise(wave_.Status, length_);
    }

  private:
    static Peaks PeaksOf(const WaveFile& wave) {
        return {wave.PeakMaxLeft, wave.PeakMaxRight, wave.PeakMinLeft, wave.PeakMinRight};
    }

    NormalizeDecision Decision() const {
        return {wave_.StoredNRLevel(), wave_.GetNRAbove(), wave_.GetNRBelow(),
                app_.state.NormalizeSeparately};
    }

    void CopyAudio(BinaryFile& backup, BinaryFile& file) {
        const Gains* const gains = gains_ ? &*gains_ : nullptr;
        const std::int32_t blocks = kept_ / WaveBlockSize;
        for (std::int32_t i = 1; i <= blocks; ++i) {
            zftCopyBlock(backup, file, WaveBlockSize, gains);
            WaveFile::Raise(wave_.Status, Add(Multiply(i, WaveBlockSize), layout_.before));
            app_.desktop.ServeEvents();
        }
        zftCopyBlock(backup, file, kept_ % WaveBlockSize, gains);
        WaveFile::Raise(wave_.Status, Add(kept_, layout_.before));
    }

    WaveFile& wave_;
    App& app_;
    SilenceLayout layout_;
    /// Bytes of audio to keep. Negative for a file of silence alone: nothing is copied then, and the header
    /// states a length that is as wrong. Kept: nothing is lost but silence.
    std::int32_t kept_;
    /// Bytes of audio in the new file.
    std::int32_t length_;
    std::string header_;
    std::optional<Gains> gains_;
};

std::int32_t WaveFile::ProcessWave(bool normalize) {
    if (!ScanPassed || !foundData_) return NotScanned;
    Raise(Status, 0);
    WaveRewrite rewrite(*this, app_, normalize);
    const std::string path = app_.files.FollowLinks(FileName);
    if (EndsBeforeItsAudio(*this, app_.files.FileSize(path))) KeepBackupOf(app_.files, path);
    RefuseTwins(app_.files, path);
    RefuseTwins(app_.files, BackupPath(app_.files, path));
    const std::string backupPath = MoveToBackup(app_.files, path);
    auto backup = app_.files.OpenRead(backupPath);
    if (!backup) return CannotOpen;
    auto file = app_.files.OpenCreate(path);
    if (!file) return CannotCreate;

    if (!rewrite.WouldChangeNothing()) {
        try {
            rewrite.Write(*backup, *file);
        } catch (...) {
            backup.reset();
            file.reset();
            TakeBackupBack(app_.files, path);
            throw;
        }
        app_.files.CopyAttributes(backupPath, path);
        return Done;
    }
    backup.reset();
    file.reset();
    app_.files.DeleteFile(path, Force::Yes);
    app_.files.MoveFile(backupPath, path);
    return Done;
}

}  // namespace zefta
