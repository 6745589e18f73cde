#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/App.h"
#include "core/GenreTable.h"
#include "library/ChangeTags.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// The columns of the grid of the advanced tags update.
enum TagColumn : std::uint8_t {
    FileColumn,
    TrackColumn,
    ArtistColumn,
    TitleColumn,
    MixColumn,
    AlbumColumn,
    YearColumn,
    TagColumnCount,
};

/// A row: one cell a column. The first holds the name of the row's file in the folder, as bytes; the others
/// hold text.
struct TagRow {
    std::array<std::string, TagColumnCount> Cells;
    /// Whether the cells began as what the file holds. Empty ones of a file that could not be read are no
    /// wish to clear it.
    bool IsRead = true;
    /// As the file had them when the row was made: a cell that still holds that is no wish to change what is
    /// in the file by now. Nothing where all cells are meant.
    std::optional<std::array<std::string, TagColumnCount>> Loaded = {};
};

/// The heading of a column in the language of the run.
std::string HeadingOf(App& app, TagColumn column);

/// The row of a file that was read: of each field the extended value if there is one, else the record's own.
/// The cell of the track is empty for none.
TagRow RowOfRecord(const std::string& name, const ID3Tag& tag);

/// The rows of the compressed ones among the files, in their order; one that can't be read has its name
/// alone. Nothing when the person has ended the reading.
std::optional<std::vector<TagRow>> LoadTagRows(App& app, const std::string& folder,
                                               std::span<const std::string> names);

/// First character upper case, all others lower case: "mIxEd cASE" gives "Mixed case".
std::string CapitalizeFirst(std::string_view text);

/// First letter of each word upper case, all others lower case: "dON'T stop (the MIX)" gives "Don't Stop (The
/// Mix)". A word is a run of letters, digits and apostrophes, of all scripts.
std::string CapitalizeWords(std::string_view text);

/// Changes the case of one column of every row, or of all from the track to the album without one.
void ChangeCase(std::span<TagRow> rows, std::string (*change)(std::string_view text),
                std::optional<TagColumn> column);

/// Fills the cells from the name of the row's file by a template (its place in ReverseTemplates); `folder` is
/// the file's, as bytes. A cell whose field the name does not hold keeps its text; without a title the whole
/// row does.
void RetrieveTags(const App& app, const std::string& folder, int templateIndex, TagRow& row);

/// What takes the place of the cells of every row where it is not empty.
struct TagDefaults {
    std::string Artist = {};
    std::string Album = {};
    std::string Year = {};
    /// Place in GenreTable; nothing when none is chosen.
    std::optional<std::uint8_t> Genre = {};
};

/// How an update of many files is followed. Each may be unset.
struct UpdateEvents {
    /// Ahead of each file: its number from 1 on, how many there are, its name.
    std::function<void(std::size_t number, std::size_t count, const std::string& name)> Progress = {};
    /// Behind each file, changed or not: its row of a list may be another one now.
    std::function<void(const std::string& name)> Done = {};
    /// Whether the person wants it to end, beside what the desktop hears of them. No file is begun then.
    std::function<bool()> IsCancelled = {};
    /// Ahead of Done: the file was not there to be written, or could not be; not what the person or the tag
    /// itself kept from being written. Of WriteTagRows alone.
    std::function<void(const std::string& name)> NotWritten = {};
};

/// "[3/12] name", the progress of the advanced update.
std::string ProgressText(std::size_t number, std::size_t count, const std::string& name);

/// Writes the rows into the files of the folder; an empty cell clears its field. A file that can't be read,
/// now or when its row was made, or is read-only and to stay so is passed over; a writer's failure is shown
/// and the next file follows. False when the person has ended it ahead of the last row. RuntimeError 6, with
/// the rows ahead of it written, for a track that does not fit into a byte. App::defaultWaveFile must be
/// there.
bool WriteTagRows(App& app, const std::string& folder, std::span<const TagRow> rows,
                  const TagDefaults& defaults, const UpdateEvents& events);

/// The massive tags update: writes the same values into the compressed ones among the files of the folder.
/// Failures and end as of WriteTagRows. Does nothing when no value is given.
bool UpdateTags(App& app, const std::string& folder, std::span<const std::string> names,
                const TagValues& values, const UpdateEvents& events);

/// The files that the massive update means: the selected ones, or all of them when none is selected and the
/// person says so.
std::vector<std::string> FilesToUpdate(App& app, std::span<const std::string> selected,
                                       std::span<const std::string> all);

}  // namespace zefta
