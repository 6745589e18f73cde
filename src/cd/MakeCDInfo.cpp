#include "cd/MakeCDInfo.h"

#include <unordered_set>
#include <utility>

#include "cd/CDInfoFile.h"
#include "cd/ProfileFile.h"
#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/Folders.h"
#include "core/Numbers.h"
#include "core/Steps.h"
#include "core/Strings.h"
#include "core/TextLines.h"
#include "library/PlaylistLine.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "tags/CompressedFile.h"
#include "tags/TagText.h"

namespace zefta {

namespace {

constexpr std::int32_t CannotOpen = 1003;
constexpr std::string_view PlaylistMask = "*.m3u";
constexpr std::string_view PlaylistExtension = ".m3u";
constexpr std::string_view Separator = " / ";

/// The album of one playlist, track by track.
class Album {
  public:
    /// The name is the album's when it is a compilation.
    Album(ProfileFile& file, std::string name, bool compilation)
        : file_(file), name_(std::move(name)), compilation_(compilation) {}

    void Add(const ID3Tag& tag) {
        ++tracks_;
        length_ = zefta::Add(length_, tag.Seconds);
        if (year_.empty()) year_ = ShownText(tag.Year);
        const std::string key = TrackKey(tracks_);
        file_.WriteProfileValue(NamesSection, key, NameOf(tag));
        file_.WriteProfileValue(TimesSection, key, std::to_string(tag.Seconds));
    }

    void WriteOptions() {
        const std::pair<std::string_view, std::string> values[] = {
            {"Artist", artist_},
            {"Title", title_},
            {"Year", year_},
            {"Tracks", std::to_string(tracks_)},
            {"Length", std::to_string(length_)},
            {"Compilation", compilation_ ? "1" : "0"},
        };
        for (const auto& [key, value] : values) file_.WriteProfileValue(OptionsSection, key, value);
    }

    std::size_t Tracks() const { return tracks_; }

  private:
    /// Name of the track; the album takes from the tag what it lacks.
    std::string NameOf(const ID3Tag& tag) {
        const ID3v2Extension& v2 = tag.ID3v2Extension;
        const std::string artist = FirstShown(v2.Artist, tag.Artist);
        if (artist_.empty()) artist_ = compilation_ ? name_ : artist;
        if (title_.empty()) title_ = compilation_ ? name_ : FirstShown(v2.AlbumTitle, tag.Album);
        std::string name = compilation_ ? artist + std::string(Separator) : "";
        name.append(FirstShown(v2.TrackTitle, tag.Title)).append(Separator);
        return name.append(FirstShown(v2.Mix, tag.Comment));
    }

    ProfileFile& file_;
    std::string name_;
    bool compilation_;
    std::string artist_;
    std::string title_;
    std::string year_;
    std::size_t tracks_ = 0;
    std::int32_t length_ = 0;
};

/// The walk over the playlists of one folder.
class CDInfoMaker {
  public:
    CDInfoMaker(App& app, std::string folder, bool compilation)
        : app_(app), folder_(std::move(folder)), target_(folder_), compilation_(compilation) {}

    void UseTarget(const std::string& path) {
        if (path.empty()) return;
        const std::string target = app_.files.ToNativePath(path);
        if (!app_.files.FolderExists(target)) CreateTarget(target);
        if (app_.files.FolderExists(target)) target_ = target;
    }

    void Make(const std::string& playlist) {
        const std::string path =
            JoinPath(target_, ReplaceAllIgnoringCase(playlist, PlaylistExtension, ".zfc"));
        RefuseSecondAlbum(path);
        ProfileFile file = ReadProfileFile(app_.files, app_.ansi, path);
        Album album(file, app_.ansi.ToText(ReplaceAllIgnoringCase(playlist, PlaylistExtension, "")),
                    compilation_);
        for (const TextLine& line : ReadTextLines(app_.files, JoinPath(folder_, playlist)).lines) {
            if (line.text.starts_with('#') || !IsCompressedFile(line.text)) continue;
            AddEntry(album, line.text);
            app_.desktop.ServeEvents();
        }
        album.WriteOptions();
        WriteProfileFile(app_.files, path, file);
        written_.insert(app_.files.FollowLinks(path));
        const std::string shown = target_ == folder_ ? NamePart(path) : path;
        TellStep(app_, "write: " + shown + ": " + std::to_string(album.Tracks()) + " tracks");
    }

  private:
    /// Of two playlists whose names differ in case alone: their tracks would mix in one file.
    void RefuseSecondAlbum(const std::string& path) const {
        if (app_.files.FileExists(path) && written_.contains(app_.files.FollowLinks(path)))
            throw RuntimeError(ErrorNumber::FileAlreadyExists, path);
    }

    void CreateTarget(const std::string& target) {
        try {
            app_.files.CreateFolder(target);
            TellStep(app_, "folder: " + target);
        } catch (const RuntimeError&) {
            // The files go beside the playlists then.
        }
    }

    /// An entry that can't be read is left out.
    void AddEntry(Album& album, const std::string& line) {
        const std::string path = PathOfPlaylistLine(app_.files, app_.ansi, folder_, line);
        ID3Tag tag;
        try {
            tag = ReadCompressedFile({app_.files, app_.ansi, UnknownContent::PassOver}, path);
        } catch (const RuntimeError& error) {
            return TellStep(app_, "refused: " + line + ": " + error.Text());
        }
        if (!tag.Path.empty()) return album.Add(tag);
        const bool isThere = app_.files.FileExists(path);
        TellStep(app_, "refused: " + line + (isThere ? ": can't be opened" : ": not found"));
    }

    App& app_;
    std::string folder_;
    std::string target_;
    bool compilation_;
    /// Behind all links.
    std::unordered_set<std::string> written_;
};

void MakeOrTell(App& app, CDInfoMaker& maker, const std::string& playlist) {
    try {
        maker.Make(playlist);
    } catch (const RuntimeError& error) {
        TellStep(app, "refused: " + playlist + ": " + error.Text());
        throw;
    }
}

}  // namespace

void MakeCDInfo(App& app, const std::string& mask, const std::string& targetPath, bool compilation) {
    if (!MatchesMask(mask, PlaylistMask)) return ShowWarning(app, app.messages.GetMessage(CannotOpen));
    const FolderAndMask work = SplitFileSpec(app.files, mask);
    app.files.SetCurrentFolder(work.folder);
    CDInfoMaker maker(app, work.folder, compilation);
    maker.UseTarget(targetPath);
    for (const std::string& name : FilesOf(app.files, work)) {
        if (MatchesMask(name, PlaylistMask)) CheckRuntimeError(app, [&] { MakeOrTell(app, maker, name); });
    }
}

void MakeCDInfoJob(App& app) {
    MakeCDInfo(app, app.state.FileSpec, app.state.TargetPath, app.state.IsCompilation);
}

}  // namespace zefta
