#pragma once

#include <string>

#include "core/App.h"

namespace zefta {

/// Writes a CD information file for each playlist that the mask names, under its name with ".zfc" for
/// ".m3u": names and times of the tracks that can be read, artist, title and year of the album, count and
/// length. Values are written over those that the file has; its other keys stay.
///
/// The folder of the mask becomes the current one. `targetPath`, which counts from there, is created if need
/// be; when it is "" or no folder can be made of it, the files go to the folder of the playlists. A
/// compilation has the artist in front of each track's title, and its playlist's name as artist and title.
///
/// Message 1003 for a mask that is not "*.m3u". RuntimeError 76 when the folder can't be entered; a failure
/// with one playlist costs a box, leaves its file as it was, and the walk goes on. One whose file is that of
/// a playlist before it, their names differing in case alone, is left out (RuntimeError 58).
void MakeCDInfo(App& app, const std::string& mask, const std::string& targetPath, bool compilation);

/// The job of /makezfc.
void MakeCDInfoJob(App& app);

}  // namespace zefta
