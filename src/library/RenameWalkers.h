#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/App.h"
#include "core/Batch.h"
#include "library/RenameMap.h"

namespace zefta {

/// The value of RenameFormat that puts files into folders of their artists.
inline constexpr int FormatWithFolder = 4;

/// One job or command that gives files names by their tags. The rule, the mask and the subfolder flag are
/// RenameFormat, FileSpec and ProcessSubfolders of the App's record.
struct RenameRun {
    /// `theRoot`: the folder that the run works on; steps of a preview are told relative to it.
    RenameRun(App& theApp, std::string theRoot);

    App& app;
    std::string root;
    /// Of the files that get names. Playlists learn the names that were given also when it is cancelled.
    Batch batch;
    /// There only while playlists are to learn the new names.
    std::optional<RenameMap> map;
    /// The folder that was last told in a preview.
    std::string toldFolder;
    /// Where the files lie that this run has renamed or tried to, as PlaceOf gives it: none gets a second
    /// name when a walk or a list comes to it again.
    std::unordered_set<std::string> places;
    /// How many lines of a playlist are as they are to be, by its path behind all links. A new name that was
    /// written may be the old one of another file, so that it must not be looked up again.
    std::unordered_map<std::string, std::size_t> finishedLines;
};

/// An empty map in the place of the one that is there, if any.
void NewRenameMap(RenameRun& run);
void ClearRenameMap(RenameRun& run);

/// Renames one file and tells under which name, relative to the folder, it lies now: the old one when it
/// could not be named, or its rule made no name. No map entry is made.
std::string RenameOne(RenameRun& run, const std::string& folder, const std::string& name);

/// The same, with an entry in the map if there is one.
std::string RenameAndRemember(RenameRun& run, const std::string& folder, const std::string& name);

// The walkers trap no run-time failure: what was renamed before one keeps its new name. They end when the
// batch of the run is cancelled.

/// Renames the MP3, Ogg Vorbis and MPEGplus files of one folder whose name FileSpec matches, in folder order,
/// but for those that this run has come to before.
void RenameFolderFiles(RenameRun& run, const std::string& folder);

/// RenameFolderFiles for the folder, then the same for each of its subfolders. Folders made on the way are
/// not entered.
void RenameFolderTree(RenameRun& run, const std::string& folder);

/// What ProcessSubfolders says.
void RenameFolder(RenameRun& run, const std::string& folder);

// For all walks that rename.

/// Takes the folder out of FileSpec, if it has one, and gives it as an absolute path; else `folder`. An
/// unknown word that begins with "/" stands in FileSpec for nothing: its "/" is not the root of the machine.
/// The name of a file of `folder` is no path, also when it holds a backslash.
std::string TakeFolderOfFileSpec(App& app, const std::string& folder);

/// The path of the file behind the links of its folders, in the spelling of the disk. A file that is a link
/// keeps its own name.
std::string PlaceOf(const App& app, const std::string& path);

/// The files of the folder that FileSpec means, in folder order, without pipes and devices.
std::vector<std::string> FilesMeant(const App& app, const std::string& folder);

/// Paths of the subfolders. A link to a folder is none: a walk that changes names must not leave its tree,
/// and has to end when the link leads back into it.
std::vector<std::string> Subfolders(const App& app, const std::string& folder);

/// The path below the root of the run; "." for the root itself.
std::string BelowRoot(const RenameRun& run, const std::string& path);

/// The lines of a preview hold bare names: tells which folder they are of when that is another
/// one than before.
void TellFolder(RenameRun& run, const std::string& folder);

}  // namespace zefta
