#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/App.h"
#include "library/TagGrid.h"

namespace zefta {

// Encoding of WAV files, each with tags of its own: a row of the grid of tags for each file.

/// The rows of the files in their order, numbered from 1 on; their other cells are empty.
std::vector<TagRow> RowsToEncode(std::span<const std::string> names);

/// Fills the cells from the name of the row's file by a template, as RetrieveTags; but a cell whose field was
/// looked for and found empty is empty then, so that a default can take its place.
void RetrieveTagsToEncode(const App& app, const std::string& folder, int templateIndex, TagRow& row);

/// What the person has chosen for all files.
struct EncodingChoice {
    /// Mode code (ModeCatalogue.h); nothing when none is selected.
    std::optional<std::int32_t> Mode = {};
    /// The boxes as they are checked, whether or not they could be changed.
    RunSwitches Checked = {};
    bool DeleteSources = false;
    /// Of the cells that are empty; a blank in a cell stands for no value at all.
    TagDefaults Defaults = {};
    /// Paths of outputs that former runs have left, whose sources may be gone: none is made anew.
    std::set<std::string> Made = {};
};

/// Which of the boxes can be changed.
struct EncodingBoxes {
    bool Normalize = false;
    bool NormalizeSeparately = false;
    bool ReduceLevel = false;
};

/// `modeLabel`: of the chosen mode, "" for none.
EncodingBoxes EnabledBoxes(const RunSwitches& checked, std::string_view modeLabel);

/// Names, as bytes, of the files that encoding these rows would write over: their tags may be somebody's
/// work. Without those of former runs, which are refused anyway.
std::vector<std::string> FilesToReplace(const App& app, const std::string& folder,
                                        std::span<const TagRow> rows, const EncodingChoice& choice);

/// How an encoding of many files is followed. Each may be unset.
struct EncodingEvents {
    /// Ahead of each file: its place and name, for the status line.
    std::function<void(const std::string& text)> Status = {};
    /// Behind each file that was encoded and tagged.
    std::function<void(const std::string& name)> Done = {};
    /// Whether the person wants it to end, beside what the desktop hears of them.
    std::function<bool()> IsCancelled = {};
};

/// Stores the mode and the choice of encoder in the settings, sets the fields of the job, encodes the rows'
/// files into their folder, which becomes the current one, and tags what came out. A file without an output
/// is passed over; a run-time failure of one file is shown and the next file follows. A source is deleted
/// only when its output is there and tagged, and not known to hold less than the source.
/// False when the person has ended it ahead of the last row, or when the folder is gone. App::defaultWaveFile
/// must be there.
bool EncodeRows(App& app, const std::string& folder, std::span<const TagRow> rows,
                const EncodingChoice& choice, const EncodingEvents& events);

}  // namespace zefta
