#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Processes.h"

namespace zefta {

/// Where the standard streams of a child lead.
enum class ChildStreams {
    /// All three as ours.
    Ours,
    /// No input; output and errors where ours go.
    OurOutput,
    /// No input; output and errors to the watch.
    Watched,
    /// Nowhere.
    None,
};

struct ChildSetup {
    /// Full path.
    std::string program;
    std::vector<std::string> arguments;
    ChildStreams streams = ChildStreams::None;
    /// As ours when there is none, or when it asks for more than the system gives the person.
    std::optional<int> nice = std::nullopt;
};

/// Runs the program and returns when it has ended, with how it ended. `watch`, if there is one, is told
/// meanwhile, and may have any program ended but one with streams of ours; streams to it need one. A process
/// that the program leaves behind is not waited for.
ToolEnd RunChild(ChildSetup& setup, ToolWatch* watch);

/// Starts the program in a session of its own and does not wait. False when the system makes no process.
bool StartDetached(ChildSetup& setup);

}  // namespace zefta
