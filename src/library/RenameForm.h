#pragma once

#include <cstdint>
#include <string>

#include "core/App.h"
#include "library/RenameCommands.h"

namespace zefta {

/// What the dialog of the extended rename holds.
struct RenameForm {
    /// RenameFormat, 1 to 6.
    std::int16_t format = 2;
    /// For rule 6.
    std::string customTemplate;
    ExtendedRename choice;
};

/// What it begins with: the saved choice, on no folder and no files. What no dialog can have saved gives the
/// choice of a first start.
RenameForm LoadRenameForm(const App& app);

/// Puts rule and template into force, as the extended rename and its preview begin.
void ApplyRenameRule(AppState& state, const RenameForm& form);

/// What the button of the dialog does: a new template goes to the history, the files get their names, the
/// choice is saved. A run-time failure of the renaming is thrown behind that, or the one for which the choice
/// could not be stored: the files have their names all the same.
void RunRenameForm(App& app, const RenameForm& form, const RenamedFile& renamed);

}  // namespace zefta
