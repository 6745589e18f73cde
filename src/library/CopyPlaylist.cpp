#include "library/CopyPlaylist.h"

#include <algorithm>
#include <vector>

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

namespace zefta {

namespace {

constexpr std::string_view PlaylistEnding = ".m3u";

struct Track {
    std::string path;
    std::int64_t bytes = 0;
};

/// With its dot; "" for one so long that it is none.
std::string_view ExtensionOf(std::string_view name) {
    constexpr std::size_t LongestExtension = 16;
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || name.size() - dot > LongestExtension) return {};
    return name.substr(dot);
}

/// The files that the lines name, in their order.
std::vector<Track> FindTracks(App& app, const std::string& folder, const TextLines& text) {
    std::vector<Track> tracks;
    for (const TextLine& line : text.lines) {
        const std::string path = PathOfPlaylistLine(app.files, app.ansi, folder, line.text);
        if (!path.empty() && app.files.FileExists(path)) {
            tracks.push_back({path, app.files.FileSize(path)});
        } else if (!line.text.empty() && !line.text.starts_with('#')) {
            TellStep(app, "refused: " + line.text + ": no such file");
        }
    }
    return tracks;
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
    // A playlist called "...m3u" must not be copied over what lies around its target.
    const std::string name = NamePart(path);
    const bool isOwnFolder = name != "." && name != "..";
    if (isOwnFolder && app.files.FolderExists(path))
        return AskYesNo(app, app.messages.GetMessage(10002, app.ansi.ToText(path)));
    if (isOwnFolder && TryToCreateFolder(app, path)) return true;
    ShowWarning(app, app.messages.GetMessage(1004, app.ansi.ToText(path)));
    return false;
}

/// The lines of the new playlist.
std::string CopyTracks(App& app, const std::vector<Track>& tracks, const std::string& folder,
                       CopyProgress& progress, WaveFile& wave) {
    std::string lines;
    std::int64_t number = 0;
    std::int64_t done = 0;
    for (const Track& track : tracks) {
        done += track.bytes;
        if (app.files.FileExists(track.path)) {
            const std::string name = NumberedName(++number, NamePart(track.path));
            progress.ShowFile(track.path);
            app.desktop.ServeEvents();
            TellStep(app, "copy: " + track.path + " -> " + JoinPath(folder, name));
            CopyTrack(app, wave, track.path, JoinPath(folder, name));
            lines += name + "\n";
        }
        progress.SetBase(done);
        app.desktop.ServeEvents();
    }
    return lines;
}

std::string CopyInto(App& app, const FolderAndMask& source, const TextLines& text,
                     const std::string& folder) {
    const std::string playlist = JoinPath(folder, source.mask);
    if (app.files.FollowLinks(playlist) == app.files.FollowLinks(JoinPath(source.folder, source.mask))) {
        ShowWarning(app, app.messages.GetMessage(1007, app.ansi.ToText(playlist)));
        return {};
    }
    WaveFile wave(app);
    CopyProgress progress(app, wave, app.desktop.OpenProgress());
    progress.ShowPlaylist(source.mask);
    app.desktop.ServeEvents();
    const std::vector<Track> tracks = FindTracks(app, source.folder, text);
    progress.SetTotal(TotalOf(tracks));
    TextTarget target(app.files, playlist);
    const std::string lines = CopyTracks(app, tracks, folder, progress, wave);
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
