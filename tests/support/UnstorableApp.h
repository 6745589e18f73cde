#pragma once

#include "platform/StoreOutcome.h"
#include "support/TestApp.h"

namespace zefta::test {

/// A store on a disk that fills up: the run has what it is told, and the disk what it had room for.
class FillingStore : public MemorySettingsStore, public StoreOutcome {
  public:
    /// How many more changes the disk takes.
    int room = 0;
    std::map<std::pair<std::string, std::string>, std::string> onDisk;

    void Apply(const std::vector<SettingChange>& changes) override {
        MemorySettingsStore::Apply(changes);
        isFull_ = room == 0;
        if (isFull_) return;
        --room;
        onDisk = values;
    }

    std::optional<RuntimeError> Failure() const override {
        return isFull_ ? std::optional(RuntimeError(ErrorNumber::DiskFull, "/home/ann/settings.ini"))
                       : std::nullopt;
    }

    /// As a program that starts finds it.
    void ReadAgain() { values = onDisk; }

  private:
    bool isFull_ = false;
};

struct UnstorableWorld : TestWorld {
    FillingStore store;
};

/// A TestApp whose person can store nothing.
struct UnstorableApp : UnstorableWorld, App {
    UnstorableApp()
        : App(TestWorld::machine, TestWorld::files, TestWorld::desktop, TestWorld::processes, store,
              TestWorld::machineSettings) {}

    using App::files;
    using App::machine;
    using App::userSettings;
    using TestWorld::desktop;
    using TestWorld::machineSettings;
    using TestWorld::processes;
};

}  // namespace zefta::test
