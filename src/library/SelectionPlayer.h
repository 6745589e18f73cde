#pragma once

#include <string>
#include <vector>

#include "core/App.h"
#include "library/Selection.h"

namespace zefta {

/// Hands what is selected, or all of a folder, to the person's player by way of playlists in the temporary
/// folder. A player may begin to read long after it was started: the lists of selections are kept as long as
/// this lives, and go with it.
class SelectionPlayer {
  public:
    explicit SelectionPlayer(App& app) : app_(app) {}
    ~SelectionPlayer();
    SelectionPlayer(const SelectionPlayer&) = delete;
    SelectionPlayer& operator=(const SelectionPlayer&) = delete;

    /// The full paths of the selected files, in list order, and nothing else: playlists are none of them, and
    /// a selection without any other file is an empty list. A name with a line feed is left out, since it
    /// would be two lines. Failures on the way are ignored. False when no player could be started.
    bool PlaySelected(const Selection& selection, bool append, const SelectionWatch& watch);

    /// All audio files of the folder, by a playlist "Playlist.m3u". TargetPath stays the path of that list.
    /// A failure to write it is shown, and nothing is played then. False when no player could be started.
    bool PlayFolder(const std::string& folder, bool append);

  private:
    App& app_;
    std::vector<std::string> lists_;
};

/// Writes the playlist of all audio files of the folder into it, as UsualPlaylistName. A failure is shown.
void MakePlaylistOfFolder(App& app, const std::string& folder);

}  // namespace zefta
