#include "library/RenameCommands.h"

#include <algorithm>
#include <iterator>

#include "core/FileKind.h"
#include "library/RenamePlaylists.h"
#include "library/RenameWalkers.h"
#include "platform/RuntimeError.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

void PassOverFailure(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeError&) {
    }
}

void RenamePlaylistsOf(RenameRun& run, const std::string& fileSpec, bool renameFiles) {
    run.app.state.FileSpec = fileSpec;
    RenamePlaylists(run, run.root, renameFiles);
}

void RenameEach(RenameRun& run, const std::vector<std::string>& names, const RenamedFile& renamed) {
    run.batch.Expect(names.size());
    for (const std::string& name : names) {
        if (!run.batch.Next()) return;
        renamed(name, RenameAndRemember(run, run.root, name));
    }
}

void RenameSelection(RenameRun& run, const ExtendedRename& choice, const RenamedFile& renamed) {
    run.app.state.ProcessSubfolders = false;
    if (!choice.updatePlaylists) return RenameEach(run, choice.selected, renamed);
    NewRenameMap(run);
    RenameAndLearn(run, run.root, [&] { RenameEach(run, choice.selected, renamed); });
    ClearRenameMap(run);
}

void RenameByFilter(RenameRun& run, const ExtendedRename& choice) {
    AppState& state = run.app.state;
    state.FileSpec = choice.filter == ExtendedRename::Filter::FilesByMask ? choice.mask : "*.*";
    state.ProcessSubfolders = choice.processSubfolders && state.RenameFormat != FormatWithFolder;
    if (!choice.updatePlaylists) return RenameFolderFiles(run, run.root);
    NewRenameMap(run);
    RenameAndLearn(run, run.root, [&] { RenameFolder(run, run.root); });
    ClearRenameMap(run);
}

}  // namespace

void RenameSelectedFiles(App& app, const std::string& folder, const std::vector<std::string>& names,
                         const RenamedFile& renamed) {
    std::vector<std::string> compressed;
    std::copy_if(names.begin(), names.end(), std::back_inserter(compressed), IsCompressedFile);
    Batch batch(app, compressed.size());
    for (const std::string& name : compressed) {
        if (!batch.Next()) return;
        PassOverFailure([&] {
            std::string newName = name;
            if (app.defaultWaveFile->RenameFileByTAGsData(folder, newName, app.state.RenameFormat) == 0)
                renamed(name, newName);
        });
    }
}

void RenameAllFiles(App& app, const std::string& folder) {
    app.state.FileSpec = "*.*";
    app.state.ProcessSubfolders = false;
    RenameRun run(app, folder);
    PassOverFailure([&] { RenameFolderFiles(run, folder); });
}

void RenameFilesOfAllPlaylists(App& app, const std::string& folder) {
    app.state.ProcessSubfolders = false;
    RenameRun run(app, folder);
    NewRenameMap(run);
    PassOverFailure([&] { RenamePlaylistsOf(run, AllPlaylists, true); });
    ClearRenameMap(run);
}

void RenameFilesOfPlaylists(App& app, const std::string& folder, const std::vector<std::string>& playlists) {
    app.state.ProcessSubfolders = false;
    RenameRun run(app, folder);
    NewRenameMap(run);
    for (const std::string& playlist : playlists) {
        if (!run.batch.IsCancelled()) PassOverFailure([&] { RenamePlaylistsOf(run, playlist, true); });
    }
    PassOverFailure([&] { RenamePlaylistsOf(run, AllPlaylists, false); });
    ClearRenameMap(run);
}

void RenameExtended(App& app, const ExtendedRename& choice, const RenamedFile& renamed) {
    RenameRun run(app, choice.folder);
    if (choice.filter == ExtendedRename::Filter::SelectedFiles) {
        RenameSelection(run, choice, renamed);
    } else {
        RenameByFilter(run, choice);
    }
}

}  // namespace zefta
