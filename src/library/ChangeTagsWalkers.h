#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

// The mask of the walks is FileSpec of the App's record, the new values are those of the command line.
// App::defaultWaveFile must be there. A file whose writing fails is told in a warning box, and the walk goes
// on; a folder that can't be listed ends it with a run-time failure.

/// Writes the values into the MP3, Ogg Vorbis and MPEGplus files of the folder whose names match the mask in
/// any case, in folder order.
void ChangeFolderTags(App& app, const std::string& folder);

/// ChangeFolderTags for the folder, then the same for each of its subfolders. Links are followed, but into no
/// folder twice.
void ChangeFolderTreeTags(App& app, const std::string& folder);

/// The job: works in the current folder, or in the one that FileSpec names, with its subfolders when
/// ProcessSubfolders says so.
void ChangeTagsJob(App& app);

}  // namespace zefta
