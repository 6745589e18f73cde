#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/App.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// What the information of one file shows and takes back.
struct FileInformation {
    /// The texts and the genre of its tags; of everything else what was read.
    ID3Tag Tag;
    /// Of ID3v1, as text. "" leaves the number of the file alone.
    std::string TrackNumber;
    /// MP3 alone: the file is to have an ID3v2 tag.
    bool EnableID3v2 = false;
    bool RemoveUnknownFrames = false;
    /// All of its tags was read. Otherwise the values are not to be saved: they would take away the rest.
    bool IsWhole = false;
};

/// The file as it is now, read by the kind that its name tells. Tag.Path is "" when it can't be opened. A
/// run-time failure is shown, and what was read ahead of it stands.
FileInformation LoadFileInformation(App& app, const std::string& path);

enum class SaveOutcome : char {
    /// The tags are written, or a writer can't open the file: it has no message of its own.
    Done,
    /// Nothing is written: the person does not want a read-only file written, or a run-time failure was shown
    /// (which a writer may come upon behind its first tag).
    Open,
    /// Nothing is written: the file's tag holds more than can be carried over, and `mayLose` was not set.
    WouldLose,
    /// Nothing is written: the tags are no longer those that the person was shown, as `shown` tells.
    ChangedMeanwhile,
    /// Nothing is written: the file is no whole, sound and single Ogg Vorbis stream.
    Refused,
};

/// How a file is saved.
struct SaveManner {
    /// What can't be carried over is given up.
    bool mayLose = false;
    /// What the person was shown. Null when it doesn't matter what the file has come to hold since.
    const FileInformation* shown = nullptr;
    /// Called ahead of the writers; may stay unset.
    std::function<void()> writing = {};
};

/// Writes the values into the file, which is read anew for that: what its tags hold besides them stays. Asks
/// about an MP3 or MPEGplus file that is read-only. App::defaultWaveFile must be there.
SaveOutcome SaveFileInformation(App& app, const std::string& path, const FileInformation& information,
                                const SaveManner& manner);

/// The measures of a file, each on a line ended by CR LF: bytes, frames (MP3), seconds, bitrate, sample rate
/// "44100 kHz" (the number is in Hz; kept, people know it so), channels; mono has no line. A measure that the
/// file's reader does not take has none either. "" for a file that can't be opened.
std::string MeasuresText(const ID3Tag& tag);

/// Who made the stream: the encoder, of an MPEGplus stream with its version, and its profile on a second line
/// when it is known.
std::string EncoderText(const ID3Tag& tag);

/// What the choice to remove unknown frames is called: with their size in K when there are any.
std::string UnknownFramesText(App& app, const ID3Tag& tag);

/// Whether a person may enter that as a year: nothing, or a number that is written as numbers are: "1999",
/// not "19x9", "0199" or "-1999".
bool IsYearText(std::string_view text);

/// What the texts of a Lyrics3 block give to an ID3v2 tag; nothing for a field that stays as it is.
struct LyricsCopy {
    std::optional<std::string> title = {};
    std::optional<std::string> mix = {};
    std::optional<std::string> artist = {};
};
LyricsCopy CopyOfLyrics(const std::string& title, const std::string& artist);

/// The two sides of the first "=" of an extended comment. Without one all is name.
struct ExtendedComment {
    std::string name;
    std::string value;
};
ExtendedComment SplitExtendedComment(std::string_view line);

/// The line of a comment, both sides trimmed; "" when it has no name.
std::string JoinExtendedComment(const ExtendedComment& comment);

}  // namespace zefta
