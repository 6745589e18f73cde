#pragma once

#include <functional>
#include <string>

#include "library/RenameWalkers.h"

namespace zefta {

/// The mask of the lists that are to learn new names.
inline constexpr const char* AllPlaylists = "*.m3u";

/// Goes through the playlists of the folder that FileSpec means and writes the new names of files into them;
/// with `renameFiles` the files that they list are renamed first, by their tags. A folder without such a
/// playlist has its files renamed by RenameFolderFiles. With ProcessSubfolders the subfolders follow.
///
/// Makes the rename map if there is none. A folder in FileSpec is taken in the place of `folder` and goes
/// from FileSpec; a folder that does not exist gives way to the current one. ProcessSubfolders is cleared
/// when RenameFormat is 4: the folders of the artists must not be walked.
///
/// Lines are bytes. Those that stay keep every byte; a new name takes the separators of the line that it
/// stands for. A list whose bytes stay is not written; else the new one is built beside and takes its place
/// in one step. A run-time failure ends the walk; the list at hand still learns the names that were given
/// before. With `renameFiles` a list is done with for the run: its new names are not taken for old ones.
void RenamePlaylists(RenameRun& run, const std::string& folder, bool renameFiles);

/// Runs `rename`; then all playlists of the folder learn the new names, also those that were given before
/// `rename` failed. FileSpec is AllPlaylists then.
void RenameAndLearn(RenameRun& run, const std::string& folder, const std::function<void()>& rename);

}  // namespace zefta
