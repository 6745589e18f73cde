#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/App.h"
#include "library/RenameCommands.h"
#include "library/Selection.h"

namespace zefta {

// Deleting and renaming of what is selected in the file list.

/// Asks, then deletes the selected rows, ".." never; a folder that holds anything is asked about again. What
/// the desktop has a trash for goes there. A link is deleted, not what it leads to. A failure is shown and
/// the next row follows. False, and nothing has happened, when nothing is selected or the answer is not Yes.
bool DeleteSelected(App& app, const Selection& selection);

/// What the person is offered to edit: the name of a folder as it is, that of a file without its extension,
/// which is taken out wherever it stands in the name, in any case ("a.mp3.mp3" gives "a").
std::string EditableName(const SelectedRow& row);

/// Asks for a new name and gives it to the file, whose extension stays, or the folder. Control characters of
/// the answer are left out at its ends and blanks within. The new name; nothing when the answer is empty, is
/// the name that was offered, or can't be given: that is shown.
std::optional<std::string> RenameEntry(App& app, const std::string& folder, const SelectedRow& row);

/// The question of a command that renames by tags.
struct RenameByRule {
    /// The value of RenameFormat.
    std::int16_t format = 1;
    /// How people know the rule.
    std::string shownTemplate;
};

/// Asks, then names the selected files of compressed audio by their tags. False, and nothing has happened,
/// for any answer but Yes.
bool RenameSelected(App& app, const Selection& selection, const RenameByRule& rule,
                    const RenamedFile& renamed);

// The commands that rename more than what is selected. Each asks first and works as RenameCommands.h tells.
// False, and nothing has happened, for any answer but Yes.

bool RenameAllInFolder(App& app, const std::string& folder, std::int16_t format);
bool RenameByAllPlaylists(App& app, const std::string& folder, std::int16_t format);
bool RenameBySelectedPlaylists(App& app, const Selection& selection, std::int16_t format);

}  // namespace zefta
