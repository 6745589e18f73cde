#include "library/RenameJobs.h"

#include "core/Folders.h"
#include "core/OptionTable.h"
#include "library/RenamePlaylists.h"
#include "library/RenameWalkers.h"

namespace zefta {

namespace {

/// The folder of the walk; FileSpec keeps the mask. An unknown word that begins with "/" stands in FileSpec
/// for nothing: its "/" is not the root of the machine.
std::string TakeFolder(App& app) {
    if (BeginsWithSlash(app.files, app.state.FileSpec)) return app.files.CurrentFolder();
    const FolderAndMask work = SplitFileSpec(app.files, app.state.FileSpec);
    app.state.FileSpec = work.mask;
    return work.folder;
}

}  // namespace

void RenameJob(App& app) {
    const std::string folder = TakeFolder(app);
    RenameRun run(app, folder);
    RenameFolder(run, folder);
}

void RenameWithPlaylistsJob(App& app) {
    const std::string folder = TakeFolder(app);
    RenameRun run(app, folder);
    NewRenameMap(run);
    RenameFolder(run, folder);
    app.state.FileSpec = AllPlaylists;
    RenamePlaylists(run, folder, false);
}

void RenameByPlaylistsJob(App& app) {
    const std::string folder = app.files.CurrentFolder();
    RenameRun run(app, folder);
    NewRenameMap(run);
    RenamePlaylists(run, folder, true);
    app.state.FileSpec = AllPlaylists;
    RenamePlaylists(run, folder, false);
}

}  // namespace zefta
