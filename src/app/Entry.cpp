#include "app/Entry.h"

#include <new>
#include <ostream>

#include "app/JobTable.h"
#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/Options.h"
#include "core/Settings.h"
#include "core/Version.h"
#include "platform/RuntimeError.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t FileJob = 11;

int Status(const App& app) {
    return app.desktop.HasComplained() ? ExitComplaint : ExitDone;
}

int SayNotInThisVersion(App& app, const std::string& what) {
    ShowWarning(app, what + " is not part of this version.");
    return Status(app);
}

int OpenMainWindow(App& app) {
    if (app.state.EmbeddingStart) return ExitDone;
    return SayNotInThisVersion(app, "The main window");
}

/// A file named on the command line opens its information; a file that has none does nothing.
int ShowFileInformation(App& app) {
    if (!IsCompressedFile(app.state.FileSpec)) return Status(app);
    return SayNotInThisVersion(app, "The file information");
}

int RunJob(App& app, const Job& job) {
    if (job.needsDisplay && !app.machine.hasDisplay) {
        app.desktop.ShowBox(BoxKind::Critical, std::string(job.name) + " needs a display, and there is none.",
                            ApplicationTitle());
        return ExitNoDisplay;
    }
    if (job.run == nullptr) return SayNotInThisVersion(app, job.name);
    job.run(app);
    return Status(app);
}

int Dispatch(App& app) {
    if (app.state.JobCode == FileJob) return ShowFileInformation(app);
    const Job* job = FindJob(app.state.JobCode);
    return job != nullptr ? RunJob(app, *job) : OpenMainWindow(app);
}

int LoadAndRun(App& app, const std::vector<std::string>& arguments) {
    LoadSettings(app);
    LoadPriorityClass(app);
    const bool anyArgument = ParseCommandLine(app, CommandLine(arguments));
    const int status = anyArgument ? Dispatch(app) : OpenMainWindow(app);
    ReleaseGlobals(app);
    return status;
}

/// What the person asked to be told before anything else; false when it was no such question.
bool Answer(const std::vector<std::string>& arguments, std::ostream& output) {
    const std::string question = arguments.empty() ? std::string() : arguments.front();
    if (question == "--version") {
        output << ApplicationTitle() << " " << VersionText() << "\n";
        return true;
    }
    if (question != "--help" && question != "-h") return false;
    output << HelpText();
    return true;
}

/// A failure that no routine trapped: said in the form of its message, whatever is broken.
int EndByFailure(App& app, const RuntimeError& error) {
    const std::string text = app.messages.GetMessage(1000, std::to_string(error.Number()), error.Text());
    app.desktop.ShowBox(BoxKind::Critical, text, ApplicationTitle());
    return ExitComplaint;
}

}  // namespace

int RunZefta(App& app, const std::vector<std::string>& arguments, std::ostream& output) {
    if (Answer(arguments, output)) return ExitDone;
    WaveFile defaultWaveFile(app);
    app.defaultWaveFile = &defaultWaveFile;
    try {
        return LoadAndRun(app, arguments);
    } catch (const RuntimeError& error) {
        return EndByFailure(app, error);
    } catch (const std::bad_alloc&) {
        return EndByFailure(app, RuntimeError(ErrorNumber::OutOfMemory));
    }
}

}  // namespace zefta
