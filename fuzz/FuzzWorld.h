#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/App.h"
#include "fuzz/MemoryFileSystem.h"
#include "platform/RuntimeError.h"
#include "support/Fakes.h"

namespace zefta::fuzz {

/// Services without a disk, a person or a tool behind them.
struct FuzzServices {
    Machine machine;
    MemoryFileSystem files;
    test::ScriptedDesktop desktop;
    test::RecordingProcesses processes;
    test::MemorySettingsStore settings;
};

struct FuzzWorld : FuzzServices, App {
    FuzzWorld()
        : App(FuzzServices::machine, FuzzServices::files, FuzzServices::desktop, FuzzServices::processes,
              FuzzServices::settings, FuzzServices::settings) {}

    using FuzzServices::desktop;
    using FuzzServices::files;
};

/// The one world, empty again: making it takes longer than most inputs do.
FuzzWorld& FreshWorld();

/// Runs the step; whether it came to its end and not to a run-time failure.
template <typename Step>
bool Ends(Step step) {
    try {
        step();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

/// The input of a writer.
struct WriterInput {
    /// Text of the fields; "" for one that is not given.
    std::vector<std::string> fields;
    std::string_view file;

    const std::string& Field(std::size_t index) const {
        static const std::string none;
        return index < fields.size() ? fields[index] : none;
    }
};

/// Takes the input apart. Any byte becomes text through the code page.
WriterInput SplitInput(std::string_view input, const CodePage& ansi);

}  // namespace zefta::fuzz
