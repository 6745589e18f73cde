#pragma once

#include <cstdint>
#include <string>

#include "core/App.h"

namespace zefta {

/// The name of a copied track: "(007) Song.mp3". At most LongestName bytes: a longer one is cut between two
/// characters and keeps its extension.
std::string NumberedName(std::int64_t number, const std::string& name);

/// Copies the files of a playlist, numbered in its order, and a list of them without paths into a new folder
/// that has the playlist's name and lies in `targetPath`, which is made, or asked for when it can't be. Lines
/// that name no file are dropped, pipes and devices with them; when none is left, a note tells it. Names are
/// in the spelling of the disk. Gives the path of the new playlist, "" when none was written.
///
/// Nothing that is copied is ever written to, be it under the name of another track's copy: that track is
/// told as one that can't be copied. A playlist whose copy would take its own place or that of a track is
/// refused (message 1007), and so is one without a name (message 1004). A track that can't be copied is told
/// by a box and keeps its number and its line; of its copy nothing is left, and a file that has the name
/// already stays. Other run-time failures are shown too and end the operation. The person may end it behind a
/// track: the new playlist holds the tracks up to there.
std::string CopyPlaylist(App& app, const std::string& playlistPath, const std::string& targetPath);

/// The job: FileSpec and TargetPath of the App's record.
void CopyPlaylistJob(App& app);

}  // namespace zefta
