// Composition root: makes the services of the platform and hands them to the entry routine.

#include <iostream>
#include <string>
#include <vector>

#include "app/Entry.h"
#include "app/ProgramDesktop.h"
#include "app/WindowLoading.h"
#include "core/Version.h"
#include "platform/FileSizeLimit.h"
#include "platform/StandardStreams.h"
#include "platform/console/ConsoleDesktop.h"
#include "platform/posix/AgentSocket.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"
#include "platform/posix/SettingsPaths.h"

int main(int argc, char** argv) {
    using namespace zefta;
    FillStandardStreams();
    FailWritesBeyondTheSizeLimit();
    const Machine machine = ReadMachine();
    PosixFileSystem files;
    PosixProcesses processes;
    ConsoleDesktop console(std::cin, std::cerr, machine.errorIsTerminal);
    ProgramDesktop desktop(console, machine.errorIsTerminal || !machine.hasDisplay, LoadWindows);
    const SettingsProduct product = {std::string(ProgramVersion().CompanyName), ApplicationTitle(), "2.0"};
    IniSettingsStore userSettings(UserSettingsPath(product));
    IniSettingsStore machineSettings(MachineSettingsPath(product));
    AgentSocket agent;

    App app(machine, files, desktop, processes, userSettings, machineSettings);
    app.agent = &agent;
    return RunZefta(app, std::vector<std::string>(argv + 1, argv + argc), std::cout,
                    [&] { return desktop.OpenWindows(); });
}
