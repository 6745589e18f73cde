#pragma once

#include <cstdint>

#include "app/Windows.h"
#include "core/App.h"

namespace zefta {

/// A row of the job table: what the entry routine does for a JobCode.
struct Job {
    std::int32_t code;
    /// The option of the job, for people.
    const char* name;
    /// Needs a window: without a display the process ends with exit status 2.
    bool needsDisplay;
    /// Tells its steps and changes nothing with "/preview" beside it.
    bool canPreview;
    /// Null for a job that is a window.
    void (*run)(App& app);
    /// The window of a job that is one.
    void (Windows::*show)(App& app) = nullptr;
};

/// The row of the code; null for a code that opens the main window.
const Job* FindJob(std::int32_t code);

}  // namespace zefta
