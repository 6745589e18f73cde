#include "encoding/ReEncode.h"

#include <optional>

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/GenreTable.h"
#include "encoding/CommandLines.h"
#include "encoding/Decode.h"
#include "encoding/Encode.h"
#include "encoding/EncodedOutput.h"
#include "encoding/ReEncodedName.h"
#include "encoding/SetAside.h"
#include "encoding/StreamExtent.h"
#include "encoding/TagTransfer.h"
#include "encoding/ValueText.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "tags/CompressedFile.h"
#include "tags/TrackNumber.h"
#include "wave/TagWriters.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr auto FileNotFound = "File not found!";

/// The person had the encoder ended.
struct EncoderWasEnded {};

/// One file on its way.
struct Work {
    std::string path;
    bool toOggVorbis;
    bool toMPEGplus;
    TargetKind target;
    ReEncodeNames names;
    ID3Tag source;
    /// A file had the new name before.
    bool hasFormer = false;
};

// Before anything is spent.

/// Refuses a name under which nothing could be made: too long, the name of a folder, or one by which two
/// files are meant that differ in case alone.
void CheckName(const std::vector<FolderEntry>& entries, const std::string& path) {
    const std::string name = NamePart(path);
    if (name.size() > LongestName) throw RuntimeError(ErrorNumber::BadFileName, name);
    int others = 0;
    for (const FolderEntry& entry : entries) {
        if (!EqualsIgnoringCase(entry.name, name)) continue;
        if (entry.isFolder) throw RuntimeError(ErrorNumber::PathFileAccess, path);
        if (++others > 1) throw RuntimeError(ErrorNumber::FileAlreadyExists, path);
    }
}

void CheckNames(const App& app, const ReEncodeNames& names) {
    const auto entries = app.files.List(names.folder);
    for (const std::string& path : {names.decoded, names.temporaryWave, names.temporaryOutput, names.final})
        CheckName(entries, path);
}

/// The record of which values go into another file.
ID3Tag ReadSource(const App& app, const std::string& path) {
    return ReadCompressedFile({app.files, app.ansi, UnknownContent::HandOver}, path);
}

Work Prepare(App& app, const std::string& path, bool toOggVorbis, bool toMPEGplus) {
    Work work{path, toOggVorbis, toMPEGplus, KindOfTarget(toOggVorbis, toMPEGplus), {}, {}};
    work.names = NamesForReEncoding(app.state, path, work.target);
    if (work.target == TargetKind::MP3 && LameEncodeCommand(app.state, {}).empty())
        throw RuntimeError(ErrorNumber::InvalidProcedureCall, work.names.final);
    CheckNames(app, work.names);
    work.source = ReadSource(app, path);
    work.hasFormer = app.files.FileExists(work.names.final);
    return work;
}

// Decoding.

/// The decoded file is always trimmed, whatever the settings say; the encoder does not trim again, and
/// nothing else in this run does. False when the person had the decoder ended.
bool DecodeTrimmed(App& app, const std::string& path) {
    struct Switch {
        bool& trimSilence;
        ~Switch() { trimSilence = false; }
    } guard{app.state.TrimSilence};
    app.state.TrimSilence = true;
    return DecodeFile(app, path);
}

/// A decoder that fails may leave an empty file.
bool IsDecoded(const FileSystem& files, const std::string& decoded) {
    return files.FileExists(decoded) && files.FileSize(decoded) > 0;
}

std::string Shown(const App& app, const std::string& path) {
    return app.ansi.ToText(NamePart(path));
}

void TellNothingWasDecoded(App& app, const Work& work) {
    ShowPlainBox(app, FileNotFound);
    // The decoder keeps its own name for the output of "a.OGG".
    const bool isOgg = IsOggFile(work.path) && work.path.size() > 4;
    if (!isOgg || work.path.ends_with(".ogg") || !app.files.FileExists(OggDecoderOutput(work.path))) return;
    app.desktop.Note(Shown(app, work.path) + ": the decoder's output is " +
                     Shown(app, OggDecoderOutput(work.path)));
}

// Encoding.

std::string FirstOf(const std::string& first, const std::string& second) {
    const std::string text = ValueText(first);
    return text.empty() ? ValueText(second) : text;
}

/// The values that an Ogg Vorbis file is encoded with.
void FillTagValues(AppState& state, const ID3Tag& source) {
    const ID3v2Extension& extension = source.ID3v2Extension;
    state.OptArtist = FirstOf(extension.Artist, source.Artist);
    state.OptTitle = FirstOf(extension.TrackTitle, source.Title);
    state.OptMix = FirstOf(extension.Mix, source.Comment);
    state.OptAlbum = FirstOf(extension.AlbumTitle, source.Album);
    state.OptYear = FirstOf(extension.Year, source.Year);
    state.OptTrack = FirstOf(extension.TrackNumber, TrackTextOf(source));
    state.OptGenre = FirstOf(extension.Genre, GenreNameFromIndex(source.Genre));
}

/// An encoder that is told no folder writes to the current one.
class FolderOfRun {
  public:
    FolderOfRun(FileSystem& files, const std::string& folder)
        : files_(files), former_(files.CurrentFolder()) {
        files_.SetCurrentFolder(folder);
    }
    ~FolderOfRun() {
        try {
            files_.SetCurrentFolder(former_);
        } catch (const RuntimeError&) {
            // It is gone; there is none to go back to.
        }
    }
    FolderOfRun(const FolderOfRun&) = delete;
    FolderOfRun& operator=(const FolderOfRun&) = delete;

  private:
    FileSystem& files_;
    std::string former_;
};

/// What the encoder left, as far as it can be measured. Nothing under the temporary name, or an empty file,
/// is a failed run, and so is a stream that breaks off.
std::optional<StreamExtent> CheckOutput(App& app, const std::string& output) {
    if (!HasEncodedOutput(app, output)) {
        DropIfThere(app.files, output);
        throw RuntimeError(ErrorNumber::FileNotFound, output);
    }
    const auto extent = MeasureStream(app.files, output);
    if (extent && !extent->isWhole) {
        DropIfThere(app.files, output);
        throw RuntimeError(ErrorNumber::InputPastEnd, output);
    }
    return extent;
}

std::optional<StreamExtent> Encode(App& app, const Work& work) {
    app.state.UseOggVorbis = work.toOggVorbis;
    app.state.UseMPEGplus = work.toMPEGplus;
    if (work.target == TargetKind::OggVorbis) FillTagValues(app.state, work.source);
    const FolderOfRun current(app.files, work.names.folder);
    if (!EncodeFile(app, {TemporaryWaveName, work.names.temporaryWave, work.names.folder})) {
        DropIfThere(app.files, work.names.temporaryOutput);
        throw EncoderWasEnded();
    }
    return CheckOutput(app, work.names.temporaryOutput);
}

/// Not in one step: a link of that name goes and what it leads to stays, and permissions are not taken over.
/// Whenever this is interrupted, the new file is whole under one of the names. A file that has come to have
/// the name meanwhile is not ours to delete.
void TakeFinalName(FileSystem& files, const Work& work) {
    if (work.hasFormer) DropIfThere(files, work.names.final);
    files.MoveFile(work.names.temporaryOutput, work.names.final);
}

// Afterwards.

TransferredTag WriteTag(App& app, const Work& work) {
    TransferredTag transferred = TransferTag(work.source, work.target, app.ansi);
    transferred.tag.Path = work.names.final;
    WriteTags(*app.defaultWaveFile, TagJob::ReEncoding, transferred.tag);
    return transferred;
}

/// Whether the new file can stand for the source. The audio may be shorter by what was trimmed from its ends,
/// and every encoder rounds to its frames; a decoder that broke off leaves less. The name of the encoder,
/// which every tag holds, tells that the tag was written.
bool CanStandForSource(App& app, const Work& work, const std::optional<StreamExtent>& output) {
    constexpr double LeastPart = 0.9;
    constexpr double TrimmedSeconds = 10;
    constexpr double FrameSeconds = 1;
    const auto source = MeasureStream(app.files, work.path);
    const ID3Tag decoded = app.defaultWaveFile->GetWaveInfo(work.names.temporaryWave);
    if (!source || !output || decoded.Path.empty() || decoded.Bitrate < 0 || decoded.Seconds <= 0)
        return false;
    const bool decodedAll = decoded.Seconds >= source->seconds * LeastPart - TrimmedSeconds;
    const bool encodedAll = output->seconds >= decoded.Seconds - FrameSeconds;
    return decodedAll && encodedAll && !ReadSource(app, work.names.final).ID3v2Extension.EncodedBy.empty();
}

void TellTransfer(App& app, const Work& work, const TransferredTag& transferred) {
    const bool isWritten = !transferred.tag.Path.empty();
    app.desktop.Note(Shown(app, work.path) + " -> " + Shown(app, work.names.final) + ": " +
                     (isWritten ? DescribeTransfer(transferred) : "the tags could not be written"));
}

/// Why the source has to stay; "" when it need not. A tag that was not read whole lives on in the source
/// alone.
std::string ReasonToKeep(App& app, const Work& work, const std::optional<StreamExtent>& output) {
    if (work.source.ReadInPart) return "its tag holds more than could be read";
    if (CanStandForSource(app, work, output)) return {};
    return Shown(app, work.names.final) + " is not known to hold all of it";
}

void DeleteSource(App& app, const Work& work, const std::string& reasonToKeep) {
    if (reasonToKeep.empty()) {
        app.files.DeleteFile(work.path, Force::No);
    } else {
        app.desktop.Note(Shown(app, work.path) + " is kept: " + reasonToKeep);
    }
}

/// A file of the person's that is set aside wants its name back from ours.
void MakeWay(FileSystem& files, const SetAside& former, const std::string& ours) {
    if (former.IsAway()) DropIfThere(files, ours);
}

/// From the decoded file, under its temporary name, to the tagged one.
void EncodeAndTransfer(App& app, const Work& work, SetAside& formerOutput) {
    const auto output = Encode(app, work);
    TakeFinalName(app.files, work);
    formerOutput.PutBack();
    const TransferredTag transferred = WriteTag(app, work);
    const bool isToGo = app.state.DeleteAfterReCompress;
    const std::string reasonToKeep = isToGo ? ReasonToKeep(app, work, output) : std::string();
    app.files.DeleteFile(work.names.temporaryWave, Force::No);
    TellTransfer(app, work, transferred);
    if (isToGo) DeleteSource(app, work, reasonToKeep);
}

void EncodeDecoded(App& app, const Work& work, SetAside& formerDecoded) {
    FileSystem& files = app.files;
    SetAside formerWave(files);
    SetAside formerOutput(files);
    formerWave.Take(work.names.temporaryWave);
    // This may be the source itself: it was decoded.
    formerOutput.Take(work.names.temporaryOutput);
    files.MoveFile(work.names.decoded, work.names.temporaryWave);
    formerDecoded.PutBack();
    try {
        EncodeAndTransfer(app, work, formerOutput);
    } catch (const EncoderWasEnded&) {
        DropIfThere(files, work.names.temporaryWave);
    } catch (const RuntimeError&) {
        MakeWay(files, formerWave, work.names.temporaryWave);
        MakeWay(files, formerOutput, work.names.temporaryOutput);
        throw;
    }
    formerWave.PutBack();
}

}  // namespace

void ReEncodeFile(App& app, const std::string& path, bool toOggVorbis, bool toMPEGplus) {
    const Work work = Prepare(app, path, toOggVorbis, toMPEGplus);
    SetAside formerDecoded(app.files);
    formerDecoded.Take(work.names.decoded);
    const bool isWhole = DecodeTrimmed(app, path);
    if (isWhole && IsDecoded(app.files, work.names.decoded)) {
        EncodeDecoded(app, work, formerDecoded);
        return;
    }
    DropIfThere(app.files, work.names.decoded);
    formerDecoded.PutBack();
    if (isWhole) TellNothingWasDecoded(app, work);
}

}  // namespace zefta
