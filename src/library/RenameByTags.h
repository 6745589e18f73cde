#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/App.h"
#include "library/RenameTemplate.h"
#include "tags/FileReading.h"

namespace zefta {

// The two halves of WaveFile::RenameFileByTAGsData. The first one reads and changes nothing, so that it may
// run ahead of the second.

/// What a file is to be called.
struct RenamePlan {
    /// Of the whole operation: 0 goes on to the move, 1 and 3 end it.
    std::int32_t result = 0;
    /// Why it ends, for a person; "" when it goes on.
    std::string reason;
    /// What stands behind the new name: the last four characters of the old one, of an MP3 file in upper
    /// case, of another one in lower case.
    std::string extension;
    NewFileName wanted;
};

/// The rule `mode` with the template of the run. Mode 5 turns TranslateNames on, for the rest of the run.
RenameRule RuleOfRun(App& app, std::int32_t mode);

/// Reads the tags of the file `fileName` of the folder `path` and makes its new name. RuntimeError 13, with
/// the path of the file, for a track that is no number; other run-time failures are those of the readers.
RenamePlan ReadForRename(const FileReading& reading, const RenameRule& rule, const std::string& path,
                         const std::string& fileName);

/// What `read` gives. A preview tells of a run-time failure before it goes on.
RenamePlan PlanOrTell(App& app, const std::string& fileName, const std::function<RenamePlan()>& read);

/// What the moving half comes to.
struct RenameOutcome {
    /// Of the whole operation.
    std::int32_t result = 0;
    /// The rule made no name of the tags: the file stays where it is, though the bare extension is told.
    bool hasStayed = false;
};

/// Moves the file as planned; numbers the name when it is taken, asks the person when the system refuses it.
/// When the result is 0 `fileName` is then the name that is told of the file.
RenameOutcome RenameAsPlanned(App& app, const RenamePlan& plan, const std::string& path,
                              std::string& fileName);

/// Both halves, as WaveFile::RenameFileByTAGsData.
RenameOutcome RenameByTags(App& app, const std::string& path, std::string& fileName, std::int32_t mode);

}  // namespace zefta
