#include "library/Playlist.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/FolderTree.h"
#include "core/Steps.h"
#include "core/TextInRuns.h"
#include "library/FolderListing.h"
#include "library/PlaylistText.h"
#include "library/SortWithoutCase.h"
#include "library/TextTarget.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "tags/CompressedFile.h"

namespace zefta {

namespace {

struct ListedName {
    /// Relative to the folder of the list.
    std::string name;
};

/// In an entry it would make two lines of one.
bool HasLineFeed(std::string_view name) {
    return name.find('\n') != std::string_view::npos;
}

bool IsAudioName(std::string_view name) {
    const auto kind = ListKindOf(name);
    return kind && *kind != ListKind::Playlist;
}

bool IsListed(const FolderEntry& entry) {
    return !entry.isFolder && !entry.isSpecial && IsAudioName(entry.name);
}

/// A slip of the hand must not cost a song.
void RefuseAudioFile(const FileSystem& files, const std::string& path) {
    if (!files.FileExists(path)) return;
    for (const std::string& name : {NamePart(path), NamePart(files.FollowLinks(path))}) {
        if (IsAudioName(name) || IsCompressedFile(name) || IsWaveFile(name))
            throw RuntimeError(ErrorNumber::FileAlreadyExists, path);
    }
}

void Refuse(App& app, const std::string& name, const RuntimeError& error) {
    TellStep(app, "refused: " + name + ": " + error.Text());
    CheckRuntimeError(app, [&] { throw error; });
}

/// Gathers the files that go into the playlist.
class NameList {
  public:
    /// `theTarget`: the playlist itself, behind all links.
    NameList(App& theApp, std::string theTarget)
        : app_(theApp), target_(std::move(theTarget)), targetName_(NamePart(target_)), tree_(theApp.files) {}

    /// `prefix`: the way to the folder from the one of the list, with its closing separator.
    void AddFolderToList(const std::string& folder, const std::string& prefix) {
        if (!tree_.Enter(folder)) return;
        for (const FolderEntry& entry : EntriesOf(folder, prefix)) {
            if (entry.isFolder && app_.state.ProcessSubfolders)
                AddFolderToList(JoinPath(folder, entry.name), prefix + entry.name + PathSeparator);
            if (IsListed(entry) && !IsTarget(folder, entry.name)) Add(prefix + entry.name);
        }
        tree_.Leave();
    }

    std::vector<ListedName> TakeSorted() {
        SortWithoutCase(names_, [&](const ListedName& listed) { return app_.ansi.ToText(listed.name); });
        return std::move(names_);
    }

  private:
    /// Of a subfolder that can't be listed nothing is in the list.
    std::vector<FolderEntry> EntriesOf(const std::string& folder, const std::string& prefix) {
        if (prefix.empty()) return app_.files.List(folder);
        try {
            return app_.files.List(folder);
        } catch (const RuntimeError& error) {
            Refuse(app_, prefix, error);
            return {};
        }
    }

    bool IsTarget(const std::string& folder, const std::string& name) const {
        return name == targetName_ && app_.files.FollowLinks(JoinPath(folder, name)) == target_;
    }

    void Add(std::string name) {
        if (HasLineFeed(name)) {
            Refuse(app_, name, RuntimeError(ErrorNumber::BadFileName, name));
            return;
        }
        names_.push_back({std::move(name)});
    }

    App& app_;
    std::string target_;
    std::string targetName_;
    FolderTree tree_;
    std::vector<ListedName> names_;
};

/// "" for a file whose tag can't be read. May be called by several threads.
std::string CommentOf(const FileReading& reading, const std::string& path) {
    if (!IsCompressedFile(path)) return {};
    try {
        const ID3Tag tag = ReadCompressedFile(reading, path);
        return tag.Path.empty() ? std::string() : CommentLine(tag, reading.ansi) + "\n";
    } catch (const RuntimeError&) {
        return {};
    }
}

std::string TextOf(App& app, const std::string& folder, std::span<const ListedName> names) {
    const FileReading reading = {app.files, app.ansi, UnknownContent::PassOver};
    const std::string base = WithClosingSeparator(folder);
    std::string text;
    for (const ListedName& listed : names) {
        const std::string path = base + listed.name;
        text += CommentOf(reading, path) + (app.state.UsePaths ? path : listed.name) + "\n";
    }
    return text;
}

/// Nothing when the person ends it.
std::optional<std::string> WholeText(App& app, const std::string& folder, std::span<const ListedName> names) {
    constexpr std::size_t NamesAtATime = 256;
    std::string text = std::string(PlaylistHeader) + "\n";
    Batch batch(app, names.size());
    for (std::size_t done = 0; done < names.size(); done += NamesAtATime) {
        const auto some = names.subspan(done, std::min(NamesAtATime, names.size() - done));
        if (!batch.Next(some.size())) return std::nullopt;
        MakeTextInRuns(
            some.size(),
            [&](IndexRun run) { return TextOf(app, folder, some.subspan(run.first, run.count)); },
            [&](const std::string& lines) { text += lines; });
    }
    return text;
}

std::string TargetOf(const App& app, const std::string& folder) {
    const std::string target = app.files.ToNativePath(app.state.TargetPath);
    if (target.empty()) return JoinPath(folder, UsualPlaylistName);
    return IsAbsolutePath(target) ? target : JoinPath(folder, target);
}

void WritePlaylist(App& app) {
    const std::string folder = app.files.CurrentFolder();
    const std::string path = TargetOf(app, folder);
    if (app.state.UsePaths && HasLineFeed(folder)) throw RuntimeError(ErrorNumber::BadFileName, folder);
    RefuseAudioFile(app.files, path);
    TextTarget target(app.files, path);
    NameList list(app, target.Path());
    list.AddFolderToList(folder, "");
    const std::vector<ListedName> names = list.TakeSorted();
    const auto text = WholeText(app, folder, names);
    if (!text) return;
    target.Put(*text);
    TellStep(app, "write: " + path + ": " + std::to_string(names.size()) + " entries");
}

}  // namespace

void MakePlaylist(App& app) {
    CheckRuntimeError(app, [&] { WritePlaylist(app); });
}

}  // namespace zefta
