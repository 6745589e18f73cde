#pragma once

#include <functional>
#include <string>
#include <vector>

#include "core/App.h"

namespace zefta {

// What the commands of the main window and the dialog of the extended rename do once they are confirmed. The
// rule is RenameFormat. FileSpec and ProcessSubfolders stay as the command sets them.

/// Told for each file of a selection that went through: its old name, and the new one relative to the folder.
using RenamedFile = std::function<void(const std::string& oldName, const std::string& newName)>;

// The commands of the main window go on with the next step when one fails, and show nothing.

/// Of the selected names those of MP3, Ogg Vorbis and MPEGplus files. One that could not be named is not
/// told.
void RenameSelectedFiles(App& app, const std::string& folder, const std::vector<std::string>& names,
                         const RenamedFile& renamed);

/// All files of the folder.
void RenameAllFiles(App& app, const std::string& folder);

/// The files of all playlists of the folder.
void RenameFilesOfAllPlaylists(App& app, const std::string& folder);

/// The files of the selected playlists; the other playlists of the folder learn the new names.
void RenameFilesOfPlaylists(App& app, const std::string& folder, const std::vector<std::string>& playlists);

/// What the dialog holds when its button is pressed, except for the rule. The numbers are those of
/// RenameAndTagging_FilterType.
struct ExtendedRename {
    enum class Filter { AllFiles = 0, SelectedFiles = 1, FilesByMask = 2 };

    std::string folder;
    Filter filter = Filter::AllFiles;
    /// For FilesByMask.
    std::string mask;
    /// For SelectedFiles.
    std::vector<std::string> selected = {};
    /// Never with rule 4, whose folders must not be walked; and without `updatePlaylists` it does nothing
    /// (kept: people know that the subfolders come with the playlists).
    bool processSubfolders = false;
    bool updatePlaylists = false;
};

/// A run-time failure ends it; playlists that are to learn the names learn those given before.
void RenameExtended(App& app, const ExtendedRename& choice, const RenamedFile& renamed);

}  // namespace zefta
