#include "library/CopyPlaylist.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/FileNames.h"
#include "core/Folders.h"
#include "core/Steps.h"
#include "core/Strings.h"
#include "core/TextLines.h"
#include "core/Version.h"
#include "library/CopyProgress.h"
#include "library/PlaylistLine.h"
#include "library/TextTarget.h"
#include "library/TrackCopy.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/Text.h"

namespace zefta {

namespace {

constexpr std::string_view PlaylistEnding = ".m3u";

struct Track {
    std::string path;
    /// Behind all links.
    std::string real;
    std::int64_t bytes = 0;
};

/// With its dot; "" for one so long that it is none.
std::string_view ExtensionOf(std::string_view name) {
    constexpr std::size_t LongestExtension = 16;
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || name.size() - dot > LongestExtension) return {};
    return name.substr(dot);
}

/// Whether it is a pipe or device. Only what can't be opened pays for the look into its folder.
bool IsSpecial(const FileSystem& files, const std::string& real) {
    const std::string name = NamePart(real);
    const std::vector<FolderEntry> entries = files.List(FolderPart(real));
    return std::any_of(entries.begin(), entries.end(),
                       [&](const FolderEntry& entry) { return entry.isSpecial && entry.name == name; });
}

std::optional<Track> FindTrack(App& app, const std::string& path) {
    if (path.empty() || !app.files.FileExists(path)) return std::nullopt;
    const std::string real = app.files.FollowLinks(path);
    if (!app.files.OpenReadOnly(path) && IsSpecial(app.files, real)) return std::nullopt;
    return Track{path, real, app.files.FileSize(path)};
}

/// The files that the lines name, in their order.
std::vector<Track> FindTracks(App& app, const std::string& folder, const TextLines& text) {
    std::vector<Track> tracks;
    for (const TextLine& line : text.lines) {
        app.desktop.ServeEvents();
        auto track = FindTrack(app, PathOfPlaylistLine(app.files, app.ansi, folder, line.text));
        if (track) {
            tracks.push_back(std::move(*track));
        } else if (!line.text.empty() && !line.text.starts_with('#')) {
            TellStep(app, "refused: " + line.text + ": no such file");
        }
    }
    return tracks;
}

/// A list whose lines carriage returns end is one long line to us: to copy nothing must not look like
/// success.
void TellIfNothingIsNamed(App& app, const std::string& playlist, const TextLines& text,
                          const std::vector<Track>& tracks) {
    if (!tracks.empty() || text.lines.empty()) return;
    TellStep(app, "refused: " + playlist + ": no line names a file");
    if (!IsPreview(app))
        app.desktop.Note(app.ansi.ToText(playlist) + ": no line names a file; nothing is copied.");
}

/// In the spelling of the disk; that of a link as its line has it.
std::string NameOf(const FileSystem& files, const Track& track) {
    const std::string name = NamePart(track.path);
    const std::string realName = NamePart(track.real);
    if (name == realName || !EqualsIgnoringCase(name, realName)) return name;
    const bool isLink = files.FollowLinks(FolderPart(track.path)) != FolderPart(track.real);
    return isLink ? name : realName;
}

std::unordered_set<std::string> RealPathsOf(const std::vector<Track>& tracks) {
    std::unordered_set<std::string> paths;
    for (const Track& track : tracks) paths.insert(track.real);
    return paths;
}

std::int64_t TotalOf(const std::vector<Track>& tracks) {
    std::int64_t total = 0;
    for (const Track& track : tracks) total += track.bytes;
    return total;
}

bool TryToCreateFolder(App& app, const std::string& path) {
    try {
        app.files.CreateFolder(path);
        TellStep(app, "folder: " + path);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

/// The existing folder that is to hold the new one; "" when none is given and none chosen.
std::string TargetFolder(App& app, const std::string& targetPath) {
    const std::string target = app.files.ToNativePath(targetPath);
    if (app.files.FolderExists(target)) return target;
    if (!target.empty() && TryToCreateFolder(app, target)) return target;
    const std::string chosen = app.files.ToNativePath(
        app.desktop.ChooseFolder(app.messages.GetMessage(10001), ApplicationTitle(), target));
    return app.files.FolderExists(chosen) ? chosen : std::string();
}

/// False when it can't be made, or is there and the person does not want to go on.
bool MakeNewFolder(App& app, const std::string& path) {
    // A playlist called ".m3u" or "...m3u" must not be copied over what lies in or around its target.
    const std::string name = NamePart(path);
    const bool isOwnFolder = !name.empty() && name != "." && name != "..";
    if (isOwnFolder && app.files.FolderExists(path))
        return AskYesNo(app, app.messages.GetMessage(10002, app.ansi.ToText(path)));
    if (isOwnFolder && TryToCreateFolder(app, path)) return true;
    ShowWarning(app, app.messages.GetMessage(1004, app.ansi.ToText(path)));
    return false;
}

/// The lines of the new playlist.
std::string CopyTracks(App& app, const std::vector<Track>& tracks, const std::string& folder,
                       CopyProgress& progress, TrackCopier& copier) {
    std::string lines;
    std::int64_t number = 0;
    std::int64_t done = 0;
    Batch batch(app, tracks.size());
    for (const Track& track : tracks) {
        if (!batch.Next()) break;
        done += track.bytes;
        if (app.files.FileExists(track.path)) {
            const std::string name = NumberedName(++number, NameOf(app.files, track));
            progress.ShowFile(track.path);
            app.desktop.ServeEvents();
            copier.Copy(track.path, JoinPath(folder, name));
            lines += name + "\n";
        }
        progress.SetBase(done);
    }
    return lines;
}

std::string CopyInto(App& app, const FolderAndMask& source, const TextLines& text,
                     const std::string& folder) {
    WaveFile wave(app);
    CopyProgress progress(app, wave, app.desktop.OpenProgress());
    progress.ShowPlaylist(source.mask);
    app.desktop.ServeEvents();
    const std::vector<Track> tracks = FindTracks(app, source.folder, text);
    TellIfNothingIsNamed(app, source.mask, text, tracks);
    progress.SetTotal(TotalOf(tracks));
    TrackCopier copier(app, wave, RealPathsOf(tracks));
    copier.Keep(JoinPath(source.folder, source.mask));
    const std::string playlist = JoinPath(folder, source.mask);
    if (copier.IsKept(playlist)) {
        TellStep(app, "refused: " + playlist + ": can't be created");
        ShowWarning(app, app.messages.GetMessage(1007, app.ansi.ToText(playlist)));
        return {};
    }
    TextTarget target(app.files, playlist);
    copier.Keep(playlist);
    const std::string lines = CopyTracks(app, tracks, folder, progress, copier);
    target.Put(lines);
    TellStep(app, "write: " + playlist + ": " + std::to_string(std::count(lines.begin(), lines.end(), '\n')) +
                      " entries");
    return playlist;
}

std::string CopyFrom(App& app, const FolderAndMask& source, const std::string& targetPath) {
    // One that can't be read must leave no empty folder behind.
    const TextLines text = ReadTextLines(app.files, JoinPath(source.folder, source.mask));
    const std::string target = TargetFolder(app, targetPath);
    if (target.empty()) return {};
    const std::string folder =
        JoinPath(target, source.mask.substr(0, source.mask.size() - PlaylistEnding.size()));
    return MakeNewFolder(app, folder) ? CopyInto(app, source, text, folder) : std::string();
}

}  // namespace

std::string NumberedName(std::int64_t number, const std::string& name) {
    constexpr std::size_t FewestDigits = 3;
    const std::string digits = std::to_string(number);
    const std::string missing(FewestDigits - std::min(FewestDigits, digits.size()), '0');
    const std::string prefix = "(" + missing + digits + ") ";
    const std::size_t room = LongestName - prefix.size();
    if (name.size() <= room) return prefix + name;
    const std::string_view extension = ExtensionOf(name);
    return prefix + std::string(CutToBytes(name, room - extension.size())) + std::string(extension);
}

std::string CopyPlaylist(App& app, const std::string& playlistPath, const std::string& targetPath) {
    const std::string path = app.files.ToNativePath(playlistPath);
    if (!MatchesMask(path, "*" + std::string(PlaylistEnding))) {
        ShowWarning(app, app.messages.GetMessage(1003));
        return {};
    }
    if (!app.files.FileExists(path)) {
        ShowWarning(app, app.messages.GetMessage(1009, app.ansi.ToText(path)));
        return {};
    }
    std::string made;
    CheckRuntimeError(app, [&] { made = CopyFrom(app, SplitFileSpec(app.files, path), targetPath); });
    return made;
}

void CopyPlaylistJob(App& app) {
    CopyPlaylist(app, app.state.FileSpec, app.state.TargetPath);
}

}  // namespace zefta
