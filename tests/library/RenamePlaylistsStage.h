#pragma once

#include <string>

#include "library/RenamePlaylists.h"
#include "library/RenameStage.h"

namespace zefta::test {

/// Lists of songs that are renamed.
class RenamePlaylistsStage : public RenameStage {
  protected:
    RenamePlaylistsStage() { app.state.FileSpec = AllPlaylists; }

    /// The bytes that the list has after the files of all lists were renamed.
    std::string Renamed(const std::string& list) { return After(list, true); }

    /// The bytes that the list has after the lists learned what the map holds.
    std::string Learned(const std::string& list) { return After(list, false); }

    std::string After(const std::string& list, bool renameFiles) {
        app.folder.Write("list.m3u", list);
        // It is another list of that name.
        run.finishedLines.clear();
        RenamePlaylists(run, Root(), renameFiles);
        return app.folder.Read("list.m3u");
    }

    void Remember(const std::string& oldName, const std::string& newName) {
        if (!run.map) NewRenameMap(run);
        run.map->Add(Root() + "/" + oldName, newName);
    }

    void MakeReadOnly(const std::string& name) { files().SetReadOnly(app.folder / name, true); }

    FileSystem& files() { return app.files; }
};

}  // namespace zefta::test
