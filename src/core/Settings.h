#pragma once

#include "core/App.h"

namespace zefta {

/// Fills the state from the user's store: the defaults of the job, then every setting. A value that is absent
/// or can't be read gives the default. Writes nothing.
void LoadSettings(App& app);

/// Reads the priority of outside tools ("Idle", "Normal", "High" in any case; anything else is normal).
void LoadPriorityClass(App& app);

// Each writes its group of settings to the user's store in one step. No batch job calls one.

/// Encoder choice and current folder; when the main window closes and when a dialog starts encoding.
void SaveMainSettings(App& app);

/// What the options dialog edits, in its saved form (not what the command line made of it), and the texts
/// of the agent.
void SaveSettings(App& app);

void SaveCompressCDSettings(App& app);
void SaveRenameSettings(App& app);
void SaveChangeTagsSettings(App& app);

}  // namespace zefta
