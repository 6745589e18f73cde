// Composition root of the agent: makes the services of the platform and serves until it is asked to end.

#include <QApplication>
#include <clocale>
#include <iostream>
#include <string>

#include "agent/Agent.h"
#include "agent/AgentDesktop.h"
#include "core/Agent.h"
#include "core/Version.h"
#include "platform/DisplayServer.h"
#include "platform/StandardStreams.h"
#include "platform/Termination.h"
#include "platform/posix/AgentSocket.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"
#include "platform/posix/SettingsPaths.h"
#include "ui/DisplayTrial.h"

namespace {

using namespace zefta;

/// "/r" selects Russian, whatever the language of the session.
Machine MachineFor(int argc, char** argv) {
    Machine machine = ReadMachine();
    if (argc > 1 && std::string(argv[1]) == "/r") machine.language = "ru";
    return machine;
}

/// A display that is there by its name alone is none, which is told.
bool FindDisplay(const Machine& machine) {
    if (!machine.hasDisplay || CanOpenDisplay(AskX11Server())) return machine.hasDisplay;
    std::cerr << AgentTitle()
              << ": the display of this session can't be opened. The agent runs without its icon.\n";
    return false;
}

/// Without a display the agent is there to be found, started and closed, and shows nothing.
std::unique_ptr<QCoreApplication> MakeApplication(bool hasDisplay) {
    static int count = 1;
    static char name[] = "zeftaa";
    static char* arguments[] = {name, nullptr};
    if (!hasDisplay) return std::make_unique<QCoreApplication>(count, arguments);
    auto application = std::make_unique<QApplication>(count, arguments);
    // The toolkit takes over the locale; numbers of our formats have a point in every language.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationDisplayName(QString::fromStdString(AgentTitle()));
    QApplication::setQuitOnLastWindowClosed(false);
    return application;
}

int Serve(AgentServer& server, const Machine& machine) {
    const bool hasDisplay = FindDisplay(machine);
    const auto application = MakeApplication(hasDisplay);
    PosixFileSystem files;
    PosixProcesses processes;
    AgentDesktop desktop(LanguageOfTag(machine.language), std::cin, std::cerr);
    const SettingsProduct product = {std::string(ProgramVersion().CompanyName), ApplicationTitle(), "2.0"};
    IniSettingsStore userSettings(UserSettingsPath(product));
    IniSettingsStore machineSettings(MachineSettingsPath(product));
    App app(machine, files, desktop, processes, userSettings, machineSettings);
    const AgentRequests requests(server);
    QObject::connect(&requests, &AgentRequests::EndAsked, application.get(), &QCoreApplication::quit);
    std::unique_ptr<AgentTray> tray;
    if (hasDisplay) {
        tray = std::make_unique<AgentTray>(app, [&] { userSettings.ReadAgain(); });
        QObject::connect(tray.get(), &AgentTray::ExitChosen, application.get(), &QCoreApplication::quit);
    }
    return QCoreApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    FillStandardStreams();
    // From here on the socket is removed however the agent is asked to end.
    TerminationDescriptor();
    // An agent that was asked to close a moment ago may still be on its way out.
    constexpr int MillisecondsToLeave = 2000;
    const auto server = ServeAgent(AgentTitle(), MillisecondsToLeave);
    if (server) return Serve(*server, MachineFor(argc, argv));
    if (AgentSocket().IsServed(AgentTitle())) return 0;
    std::cerr << AgentTitle() << ": no place was found for its socket.\n";
    return 1;
}
