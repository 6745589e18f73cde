#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "cd/CDInfoFile.h"
#include "core/App.h"

namespace zefta {

/// What is to be made of the ripped tracks of a CD.
struct CompressCDJob {
    /// Its folders may be relative; the tracks that are selected are compressed. "Track01.WAV" of the source
    /// is the first one.
    CDInfo Info;
    /// Of the catalogue; nothing means 320.
    std::optional<std::int32_t> ModeCode;
    /// What is done to a WAV file ahead of its encoder.
    RunSwitches Wave;
    bool DeleteAfterCompress = false;
    bool NoPlaylists = false;
    /// As TrackAlbum has it.
    bool NamesAreFree = false;
};

/// How the job is followed. Each may be unset.
struct CompressCDWatch {
    /// Ahead of each track: "[3/12] Name".
    std::function<void(const std::string& text)> Progress = {};
    /// Behind each track; counts from 0. Without a result its encoder made nothing, its WAV file was not
    /// there, or the person was told what went wrong.
    std::function<void(std::size_t track, bool hasResult)> Done = {};
};

/// "Track01.WAV"; numbers count from 1.
std::string TrackWaveName(std::size_t number);

/// The folder as a full path in native form. A relative one counts from the current folder, which is meant by
/// "", too.
std::string FolderOfCD(const App& app, const std::string& folder);

/// Makes the folder and those above it. False, and the person is told, when it can't be made.
bool MakeFolderOfCD(App& app, const std::string& folder);

/// Sets the encoder, the wave switches and the code of the job in the state.
void SetModeOfCD(AppState& state, const CompressCDJob& job);

/// Encodes the selected tracks into the target folder, gives each result its tags and a name of them, and
/// lists the names in a playlist. False when the job could not begin, which the person was told, or was
/// cancelled. What a run-time failure of one track left undone stays undone, and its WAV file stays; the next
/// track follows. A playlist of that name that is there keeps its content until the first result is listed.
///
/// With DeleteAfterCompress a WAV file goes even when its encoder made nothing of it. Kept: who ticks the box
/// has always had the source folder empty afterwards.
///
/// The target folder is the current one meanwhile, for tools that are told no folder.
bool CompressCD(App& app, const CompressCDJob& job, const CompressCDWatch& watch);

}  // namespace zefta
