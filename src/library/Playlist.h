#pragma once

#include <string_view>

#include "core/App.h"

namespace zefta {

/// The playlist of a folder that nobody gave another name.
inline constexpr std::string_view UsualPlaylistName = "!Playlist.m3u";

/// Writes the playlist of the current folder to TargetPath of the App's record, to "!Playlist.m3u" in the
/// folder when that is empty; with UsePaths its entries are full paths, with ProcessSubfolders it holds the
/// subfolders too, links to folders followed. The entries are the names as the file system has them, sorted
/// by the bytes of their lower-case UTF-8 text, the folders in front included; the playlist itself is none.
///
/// A target that is an audio file by its name, links followed, is not replaced: RuntimeError 58. One behind a
/// link that leads nowhere is made there. A run-time failure is shown and leaves the playlist that was there,
/// if any; one that concerns a single subfolder or file is shown, and the others are written: a subfolder
/// that can't be listed, and a name with a line feed, which would be two lines (RuntimeError 52). When the
/// person ends it nothing is written.
void MakePlaylist(App& app);

}  // namespace zefta
