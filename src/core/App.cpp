#include "core/App.h"

namespace zefta {

App::App(const Machine& theMachine, FileSystem& fileSystem, Desktop& theDesktop, Processes& theProcesses,
         SettingsStore& user, SettingsStore& machineStore)
    : machine(theMachine),
      files(fileSystem),
      desktop(theDesktop),
      processes(theProcesses),
      userSettings(user),
      machineSettings(machineStore),
      ansi(LoadCodePage(CodePageOfLanguage(theMachine.language))),
      messages(LanguageOfTag(theMachine.language), state, fileSystem, ansi) {}

void ReleaseGlobals(App& app) {
    app.messages.LanguageStrings.clear();
    app.defaultWaveFile = nullptr;
}

}  // namespace zefta
