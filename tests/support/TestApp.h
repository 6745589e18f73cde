#pragma once

#include "core/App.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/Fakes.h"
#include "support/TempFolder.h"

namespace zefta::test {

/// An App on the real file system, in an empty folder of its own that is the current one while it lives, with
/// a scripted desktop, recorded processes and settings in memory.
struct TestWorld {
    TempFolder folder;
    Machine machine;
    PosixFileSystem files;
    ScriptedDesktop desktop;
    RecordingProcesses processes;
    MemorySettingsStore userSettings;
    MemorySettingsStore machineSettings;
    std::string formerFolder = files.CurrentFolder();

    TestWorld() { files.SetCurrentFolder(folder.Path()); }
    ~TestWorld() { files.SetCurrentFolder(formerFolder); }
};

struct TestApp : TestWorld, App {
    TestApp() : TestApp(nullptr) {}

    /// With another file system in front of the real one, such as one that fails.
    explicit TestApp(FileSystem* fileSystem)
        : App(TestWorld::machine, fileSystem ? *fileSystem : TestWorld::files, TestWorld::desktop,
              TestWorld::processes, TestWorld::userSettings, TestWorld::machineSettings) {}

    using App::files;
    using App::machine;
    using TestWorld::desktop;
    using TestWorld::machineSettings;
    using TestWorld::processes;
    using TestWorld::userSettings;
};

}  // namespace zefta::test
