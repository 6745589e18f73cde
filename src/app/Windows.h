#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/App.h"
#include "library/FolderAhead.h"
#include "platform/Desktop.h"

namespace zefta {

/// The windows of the program. Whoever makes them loads the toolkit, which a job without a window never does;
/// it starts with the first use.
class Windows {
  public:
    Windows() = default;
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;
    virtual ~Windows() = default;

    /// Boxes, questions and progress as windows.
    virtual Desktop& WindowDesktop() = 0;

    /// The main window on the folder that the state names, which was begun to be read; returns when it is
    /// closed.
    virtual void RunMainWindow(App& app, FolderAhead& ahead) = 0;

    /// The information of a compressed file, told by its path; returns when its dialog is closed.
    virtual void RunFileInformation(App& app, const std::string& path) = 0;

    /// The compression of an audio CD, from the CD information file that the state names if it names one;
    /// returns when its dialog is closed.
    virtual void RunCompressCD(App& app) = 0;

    /// The options of the program; returns when their dialog is closed.
    virtual void RunOptions(App& app) = 0;

    /// Counts down and powers the machine off, for a job that was asked to; returns when the person has
    /// cancelled or the system was asked.
    virtual void RunPowerOffCountdown(App& app) = 0;
};

/// What came of loading the windows.
struct LoadedWindows {
    /// Null when there are none.
    std::unique_ptr<Windows> windows = nullptr;
    /// There are none since the display of the session can't be opened; otherwise since this build has none.
    bool displayFails = false;
};

/// The same for those who do not own them.
struct OpenedWindows {
    Windows* windows = nullptr;
    bool displayFails = false;
};

/// Loads the windows at its first call.
using WindowOpener = std::function<OpenedWindows()>;

}  // namespace zefta
