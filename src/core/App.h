#pragma once

#include <iosfwd>
#include <map>
#include <string>

#include "core/AppState.h"
#include "core/Messages.h"
#include "platform/CodePage.h"
#include "platform/Desktop.h"
#include "platform/FileSystem.h"
#include "platform/Machine.h"
#include "platform/Processes.h"
#include "platform/SettingsStore.h"

namespace zefta {

class AgentEndpoint;
class WaveFile;

/// The one object that is passed around: the record of the run, the services of the platform, the messages
/// and the settings. Made in main, handed down by reference; it owns none of the services.
struct App {
    App(const Machine& theMachine, FileSystem& fileSystem, Desktop& theDesktop, Processes& theProcesses,
        SettingsStore& user, SettingsStore& machineStore);

    const Machine& machine;
    FileSystem& files;
    Desktop& desktop;
    Processes& processes;
    SettingsStore& userSettings;
    SettingsStore& machineSettings;

    AppState state;
    /// The 8-bit code page of the tags that hold text in one.
    CodePage ansi;
    Messages messages;

    /// The instance that serves tag reading and writing for everyone. Made by whoever makes the App in a
    /// layer that knows WaveFile; null before that and after ReleaseGlobals.
    WaveFile* defaultWaveFile = nullptr;

    /// The way to the agent; null where it is out of reach, as in a preview: none runs there.
    AgentEndpoint* agent = nullptr;

    /// Where a previewed job tells its steps; null in a run that does what it is asked (Steps.h).
    std::ostream* steps = nullptr;
};

/// Ends the life of what the run has gathered: the language strings and the shared WaveFile's use.
void ReleaseGlobals(App& app);

}  // namespace zefta
