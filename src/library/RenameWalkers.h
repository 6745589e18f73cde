#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/App.h"
#include "library/RenameMap.h"

namespace zefta {

/// The value of RenameFormat that puts files into folders of their artists.
inline constexpr int FormatWithFolder = 4;

/// One job or command that gives files names by their tags. The rule, the mask and the subfolder flag are
/// RenameFormat, FileSpec and ProcessSubfolders of the App's record; the file operation is the one of
/// App::defaultWaveFile, which must be there.
struct RenameRun {
    /// `theRoot`: the folder that the run works on; steps of a preview are told relative to it.
    RenameRun(App& theApp, std::string theRoot);

    App& app;
    std::string root;
    /// There only while playlists are to learn the new names.
    std::optional<RenameMap> map;
    /// The folder that was last told in a preview.
    std::string toldFolder;
};

/// An empty map in the place of the one that is there, if any.
void NewRenameMap(RenameRun& run);
void ClearRenameMap(RenameRun& run);

/// Renames one file and tells under which name, relative to the folder, it lies now: the old one when it
/// could not be named. No map entry is made.
std::string RenameOne(RenameRun& run, const std::string& folder, const std::string& name);

/// The same, with an entry in the map if there is one.
std::string RenameAndRemember(RenameRun& run, const std::string& folder, const std::string& name);

// The walkers trap no run-time failure: what was renamed before one keeps its new name.

/// Renames the MP3, Ogg Vorbis and MPEGplus files of one folder whose name FileSpec matches, in folder order,
/// each of them once.
void RenameFolderFiles(RenameRun& run, const std::string& folder);

/// RenameFolderFiles for the folder, then the same for each of its subfolders. No file is renamed twice, also
/// when its new name lies in a folder that the walk comes to; folders made on the way are not entered.
void RenameFolderTree(RenameRun& run, const std::string& folder);

/// What ProcessSubfolders says.
void RenameFolder(RenameRun& run, const std::string& folder);

// For all walks that rename.

/// Whether the name is among those that FileSpec means.
bool MatchesFileSpec(const App& app, const std::string& name);

/// The files of the folder, in folder order, without pipes and devices.
std::vector<std::string> NamesOfFiles(const App& app, const std::string& folder);

/// Paths of the subfolders. A link to a folder is none: a walk that changes names must not leave its tree,
/// and has to end when the link leads back into it.
std::vector<std::string> Subfolders(const App& app, const std::string& folder);

/// The path below the root of the run; "." for the root itself.
std::string BelowRoot(const RenameRun& run, const std::string& path);

/// The lines "rename: ..." of a preview hold bare names: tells which folder they are of when that is another
/// one than before.
void TellFolder(RenameRun& run, const std::string& folder);

}  // namespace zefta
