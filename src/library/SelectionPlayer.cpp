#include "library/SelectionPlayer.h"

#include <memory>
#include <random>

#include "core/Boxes.h"
#include "library/Playlist.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::int32_t PlayingText = 32014;
constexpr auto FolderListName = "Playlist.m3u";

struct NewFile {
    std::string path;
    /// Null when none could be made.
    std::unique_ptr<BinaryFile> file;
};

/// Under a name that nobody can guess: the temporary folder may be one that all people write to.
NewFile MakeTemporaryList(App& app) {
    constexpr int Attempts = 16;
    std::random_device numbers;
    NewFile made;
    for (int i = 0; i < Attempts && !made.file; ++i) {
        const std::string name = "zefta-" + std::to_string(numbers()) + ".m3u";
        made.path = JoinPath(app.machine.temporaryFolder, name);
        made.file = app.files.OpenNew(made.path);
    }
    return made;
}

void WriteLine(BinaryFile* file, const std::string& line) {
    try {
        if (file != nullptr) file->Write(line);
    } catch (const RuntimeError&) {
        // What the list holds by then is played.
    }
}

/// False, and the failure has been shown, when the folder can't be entered.
bool MakeListOf(App& app, const std::string& folder, const std::string& target, bool usePaths) {
    app.state.TargetPath = target;
    app.state.UsePaths = usePaths;
    if (CheckRuntimeError(app, [&] { app.files.SetCurrentFolder(folder); })) return false;
    MakePlaylist(app);
    return true;
}

}  // namespace

SelectionPlayer::~SelectionPlayer() {
    for (const std::string& list : lists_) {
        try {
            app_.files.DeleteFile(list, Force::Yes);
        } catch (const RuntimeError&) {
            // Somebody cleared the temporary folder.
        }
    }
}

bool SelectionPlayer::PlaySelected(const Selection& selection, bool append, const SelectionWatch& watch) {
    NewFile list = MakeTemporaryList(app_);
    if (list.file) lists_.push_back(list.path);
    const std::string base = WithClosingSeparator(selection.folder);
    for (const std::string& name : NamesOf(selection, {RowIcon::Compressed, RowIcon::Wave})) {
        watch.status(app_.messages.GetMessage(PlayingText, app_.ansi.ToText(name)));
        if (name.find('\n') == std::string::npos) WriteLine(list.file.get(), base + name + "\n");
    }
    if (!list.file) return false;
    list.file.reset();
    return app_.desktop.PlayPlaylist(list.path, append);
}

bool SelectionPlayer::PlayFolder(const std::string& folder, bool append) {
    const std::string target = JoinPath(app_.machine.temporaryFolder, FolderListName);
    const std::string former = app_.files.ContentStamp(target);
    const bool isEntered = MakeListOf(app_, folder, target, true);
    app_.state.UsePaths = false;
    // An older list of that name is not what the person wants to hear.
    if (!isEntered || app_.files.ContentStamp(target) == former) return true;
    return app_.desktop.PlayPlaylist(target, append);
}

void MakePlaylistOfFolder(App& app, const std::string& folder) {
    MakeListOf(app, folder, "", false);
}

}  // namespace zefta
