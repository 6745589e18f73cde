#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/App.h"
#include "platform/AudioDisc.h"

namespace zefta {

/// What is to be read from where to where.
struct GrabJob {
    /// As AudioDisc has it.
    std::string Source;
    /// For "Track01.WAV" and so on. Made when it is not there.
    std::string Folder;
};

enum class GrabEnd {
    /// Every track of audio was read, left alone as the person said, or told of as unreadable.
    Done,
    NoDisc,
    Cancelled,
    /// No more could be written; the person was told why.
    Stopped,
};

/// How far it is: the number of the track, that of the last one, and thousandths of all audio.
using GrabProgress = std::function<void(std::int32_t track, std::int32_t last, std::int32_t done)>;

/// Reads the tracks of audio of a disc into WAV files named by their numbers on the disc. A file that is
/// there is asked about before anything is read. Each file is whole when it gets its name; what is read of a
/// track that fails or is cancelled is gone again.
GrabEnd GrabTracks(App& app, AudioDisc& disc, const GrabJob& job, const GrabProgress& progress);

/// Starts the outside grabber that the settings of the machine name, in the folder, and does not wait for it.
/// False when they name none: a folder with "cddae99.exe" in it, or on today's systems a program. The key is
/// that of the grabber's own settings. RuntimeError 53 when there is no such program, 76 when the folder
/// can't be entered.
bool StartOutsideGrabber(App& app, const std::string& folder);

}  // namespace zefta
