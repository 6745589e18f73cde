#include "library/RenameJobs.h"

#include "library/RenamePlaylists.h"
#include "library/RenameWalkers.h"

namespace zefta {

void RenameJob(App& app) {
    const std::string folder = TakeFolderOfFileSpec(app, app.files.CurrentFolder());
    RenameRun run(app, folder);
    RenameFolder(run, folder);
}

void RenameWithPlaylistsJob(App& app) {
    const std::string folder = TakeFolderOfFileSpec(app, app.files.CurrentFolder());
    RenameRun run(app, folder);
    NewRenameMap(run);
    RenameAndLearn(run, folder, [&] { RenameFolder(run, folder); });
}

void RenameByPlaylistsJob(App& app) {
    const std::string folder = app.files.CurrentFolder();
    RenameRun run(app, folder);
    NewRenameMap(run);
    RenameAndLearn(run, folder, [&] { RenamePlaylists(run, folder, true); });
}

}  // namespace zefta
