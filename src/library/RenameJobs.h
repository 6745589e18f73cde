#pragma once

#include "core/App.h"

namespace zefta {

// The jobs that give files names by their tags, in the current folder or the one that FileSpec names; with
// ProcessSubfolders in its tree. A run-time failure ends the job; playlists learn the names given before it.

/// /rename: the files that FileSpec means.
void RenameJob(App& app);

/// /rename2: the same, then the playlists there learn the new names.
void RenameWithPlaylistsJob(App& app);

/// /autorename: the files of the playlists that FileSpec means; then the other playlists of the current
/// folder learn the new names.
void RenameByPlaylistsJob(App& app);

}  // namespace zefta
