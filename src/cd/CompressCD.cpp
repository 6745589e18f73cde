#include "cd/CompressCD.h"

#include <algorithm>
#include <limits>

#include "cd/CDPlaylist.h"
#include "cd/CurrentFolderDuring.h"
#include "cd/TrackName.h"
#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/FileNames.h"
#include "core/GenreTable.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "encoding/Encode.h"
#include "encoding/ModeCatalogue.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "wave/TagWriters.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t JobOfCD = 14;
constexpr std::int32_t DefaultMode = 320;
/// "Artist - Title (Mix)".
constexpr std::int32_t RenameRuleOfCD = 2;
constexpr std::int32_t FolderNotMade = 1004;

/// A genre of the person's own has no number.
std::uint8_t GenreNumber(const std::string& name) {
    const std::uint8_t index = GenreIndexFromName(name);
    return EqualsIgnoringAsciiCase(GenreNameFromIndex(index), Trim(name)) ? index : NoGenre;
}

void MakeFolders(FileSystem& files, const std::string& folder) {
    if (files.FolderExists(folder)) return;
    const std::string above = FolderPart(folder);
    if (above != folder && !above.empty()) MakeFolders(files, above);
    files.CreateFolder(folder);
}

class Compression {
  public:
    Compression(App& app, const CompressCDJob& job, const CompressCDWatch& watch)
        : app_(app),
          job_(job),
          watch_(watch),
          source_(FolderOfCD(app, job.Info.Source)),
          target_(FolderOfCD(app, job.Info.Target)) {}

    bool Run();

  private:
    bool CompressTracks();
    bool CompressTrack(std::size_t number);
    std::string Encode(std::size_t number, const std::string& wavePath);
    ID3Tag TagOf(std::size_t number, const std::string& output) const;
    void TagAndList(std::size_t number, const std::string& output);
    void Tell(std::size_t number) const;
    const CDTrack& Track(std::size_t number) const { return job_.Info.Tracks[number - 1]; }

    App& app_;
    const CompressCDJob& job_;
    const CompressCDWatch& watch_;
    std::string source_;
    std::string target_;
    std::optional<CDPlaylist> playlist_;
};

bool Compression::Run() {
    if (!MakeFolderOfCD(app_, target_)) return false;
    SetModeOfCD(app_.state, job_);
    bool isDone = false;
    CheckRuntimeError(app_, [&] {
        const CurrentFolderDuring current(app_.files, target_);
        const std::string name = MakeFileName(job_.Info.Artist + " - " + job_.Info.Title + ".m3u");
        if (!job_.NoPlaylists) playlist_.emplace(app_.files, JoinPath(target_, name));
        isDone = CompressTracks();
    });
    return isDone;
}

bool Compression::CompressTracks() {
    const auto& tracks = job_.Info.Tracks;
    const auto count = std::count_if(tracks.begin(), tracks.end(), std::mem_fn(&CDTrack::Selected));
    Batch batch(app_, static_cast<std::size_t>(count));
    for (std::size_t number = 1; number <= tracks.size(); ++number) {
        if (!Track(number).Selected) continue;
        Tell(number);
        if (!batch.Next()) return false;
        bool hasResult = false;
        CheckRuntimeError(app_, [&] { hasResult = CompressTrack(number); });
        if (watch_.Done) watch_.Done(number - 1, hasResult);
        app_.desktop.ServeEvents();
    }
    return true;
}

void Compression::Tell(std::size_t number) const {
    if (!watch_.Progress) return;
    watch_.Progress("[" + std::to_string(number) + "/" + std::to_string(job_.Info.Tracks.size()) + "] " +
                    Trim(Track(number).Name));
}

/// False when there is no result.
bool Compression::CompressTrack(std::size_t number) {
    const std::string wavePath = JoinPath(source_, TrackWaveName(number));
    const std::string output = Encode(number, wavePath);
    if (!output.empty()) TagAndList(number, output);
    // Of a track whose encoder the person had ended there is nothing else.
    const bool mayBeUnfinished = output.empty() && app_.desktop.IsCancelled();
    if (job_.DeleteAfterCompress && !mayBeUnfinished && app_.files.FileExists(wavePath))
        app_.files.DeleteFile(wavePath, Force::No);
    return !output.empty();
}

/// Path of the result; "" when there is none.
std::string Compression::Encode(std::size_t number, const std::string& wavePath) {
    if (!app_.files.FileExists(wavePath)) return {};
    return EncodeAnew(app_, {TrackWaveName(number), wavePath, target_});
}

ID3Tag Compression::TagOf(std::size_t number, const std::string& output) const {
    const CDInfo& album = job_.Info;
    const TrackParts parts = SplitTrackName(
        Track(number).Name,
        {.Artist = album.Artist, .IsCompilation = album.Compilation != 0, .NamesAreFree = job_.NamesAreFree});
    ID3Tag tag;
    tag.Path = output;
    tag.Artist = tag.ID3v2Extension.Artist = parts.Artist;
    tag.Title = tag.ID3v2Extension.TrackTitle = parts.Title;
    tag.Comment = tag.ID3v2Extension.Mix = parts.Mix;
    tag.Album = tag.ID3v2Extension.AlbumTitle = album.Title;
    tag.Year = tag.ID3v2Extension.Year = tag.OggVorbisExtension.DateTime = album.Year;
    tag.Genre = GenreNumber(album.Genre);
    tag.ID3v2Extension.Genre = album.Genre;
    constexpr std::size_t HighestNumber = std::numeric_limits<std::uint8_t>::max();
    tag.TrackNumber = static_cast<std::uint8_t>(number <= HighestNumber ? number : 0);
    tag.ID3v2Extension.TrackNumber = std::to_string(number);
    tag.ID3v2Extension.EncodedBy = ApplicationTitle() + " " + VersionText();
    return tag;
}

void Compression::TagAndList(std::size_t number, const std::string& output) {
    ID3Tag tag = TagOf(number, output);
    WriteTags(*app_.defaultWaveFile, TagJob::DetailedEncoding, tag);
    // As the disk has it: players look for names of lists as they stand.
    std::string name = NamePart(app_.files.FollowLinks(output));
    app_.defaultWaveFile->RenameFileByTAGsData(target_, name, RenameRuleOfCD);
    if (playlist_) playlist_->Add(name);
}

}  // namespace

std::string TrackWaveName(std::size_t number) {
    return "Track" + TrackKey(number) + ".WAV";
}

std::string FolderOfCD(const App& app, const std::string& folder) {
    const std::string native = app.files.ToNativePath(folder);
    if (native.empty()) return app.files.CurrentFolder();
    return IsAbsolutePath(native) ? native : JoinPath(app.files.CurrentFolder(), native);
}

bool MakeFolderOfCD(App& app, const std::string& folder) {
    try {
        MakeFolders(app.files, LexicalPath(folder));
        return true;
    } catch (const RuntimeError&) {
        ShowWarning(app, app.messages.GetMessage(FolderNotMade, app.ansi.ToText(folder)));
        return false;
    }
}

void SetModeOfCD(AppState& state, const CompressCDJob& job) {
    state.JobCode = JobOfCD;
    state.UseOggVorbis = state.UseMPEGplus = state.UseVBR = false;
    ApplyModeCode(state, job.ModeCode.value_or(DefaultMode));
    static_cast<RunSwitches&>(state) = job.Wave;
}

bool CompressCD(App& app, const CompressCDJob& job, const CompressCDWatch& watch) {
    return Compression(app, job, watch).Run();
}

}  // namespace zefta
