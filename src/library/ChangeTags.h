#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "core/App.h"
#include "core/GenreTable.h"
#include "platform/BufferedFile.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// New values for the tags of files. "" leaves a field alone; a value that is given ends in a blank, so that
/// a lone blank clears the field.
struct TagValues {
    std::string Artist = {};
    std::string Title = {};
    std::string Mix = {};
    std::string Album = {};
    std::string Year = {};
    /// A number of 0 to 255 as text.
    std::string Track = {};
    std::string Genre = {};
    /// Counts only when Genre is given.
    std::uint8_t GenreIndex = NoGenre;
};

/// Whether any field is to change.
bool HasValue(const TagValues& values);

/// What the command line gave.
TagValues ValuesOfOptions(const AppState& state);

/// A file whose tags are to change.
struct ChangedFile {
    std::string path;
    /// By which the steps of a preview call it: relative to the folder of the walk.
    std::string shownName;
};

/// A file that was read for a change.
struct ReadFile {
    ID3Tag tag;
    /// MP3 alone: open for reading and writing, so that it is opened once.
    std::unique_ptr<BufferedFile> opened;
};

/// The record of the file with all that it has to give back. Nothing when the file is to be passed over: it
/// can't be read; it is read-only and the person does not go on (with Yes it no longer is read-only); or its
/// tag holds more than can be carried over, which a warning tells.
std::optional<ReadFile> ReadForChange(App& app, const ChangedFile& file);

/// Puts the values that are given into the record and its extension; for Ogg Vorbis the year is the date too.
void PutValues(ID3Tag& tag, const TagValues& values);

/// Fills extended fields that are still empty from the record, and writes the tags of the file's kind. Writes
/// nothing where no byte would change. `before`: the record as it was read, for the preview.
/// App::defaultWaveFile must be there. A writer's run-time failure goes up with the file's path in its text.
void WriteChanged(App& app, const ChangedFile& file, const ID3Tag& before, ReadFile& changed);

/// All of it for one file.
void ChangeTagsOfFile(App& app, const ChangedFile& file, const TagValues& values);

}  // namespace zefta
