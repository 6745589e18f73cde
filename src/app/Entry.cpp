#include "app/Entry.h"

#include <functional>
#include <new>
#include <ostream>
#include <span>

#include "app/JobTable.h"
#include "app/ListJob.h"
#include "app/Preview.h"
#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/Options.h"
#include "core/Settings.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "library/FolderAhead.h"
#include "library/InformationText.h"
#include "platform/RuntimeError.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::int32_t FileJob = 11;
constexpr std::int32_t FolderJob = 12;

int Status(const App& app) {
    return app.desktop.HasComplained() ? ExitComplaint : ExitDone;
}

/// The streams and the way to the windows: what a run is given beside its App.
struct Surroundings {
    std::ostream& output;
    const WindowOpener& openWindows;
};

int SayNotPartOf(App& app, const std::string& what, const std::string& whole) {
    ShowWarning(app, what + " is not part of this " + whole + ".");
    return Status(app);
}

/// A display that is there by its name alone is none.
bool HasDisplay(const App& app, const Surroundings& around) {
    return app.machine.hasDisplay && !(around.openWindows && around.openWindows().displayFails);
}

std::string WhyNoDisplay(const App& app) {
    return app.machine.hasDisplay ? "the display of this session can't be opened" : "there is none";
}

/// Who expects a window and gets its content as text is told why.
void NoteDisplayThatFails(App& app) {
    if (app.machine.hasDisplay) app.desktop.Note("No window is shown: " + WhyNoDisplay(app) + ".");
}

int ShowWindow(App& app, const Surroundings& around, const std::string& name,
               const std::function<void(Windows&)>& show) {
    Windows* windows = around.openWindows ? around.openWindows().windows : nullptr;
    if (windows == nullptr) return SayNotPartOf(app, name, "build");
    show(*windows);
    return Status(app);
}

/// Without a display the list of the window is printed in its place.
int OpenMainWindow(App& app, const std::string& folder, const Surroundings& around) {
    if (app.state.EmbeddingStart) return ExitDone;
    if (HasDisplay(app, around)) {
        // While the toolkit starts.
        FolderAhead ahead({app.files, app.ansi, UnknownContent::PassOver}, app.state.CurrentFolder);
        return ShowWindow(app, around, "The main window",
                          [&](Windows& windows) { windows.RunMainWindow(app, ahead); });
    }
    NoteDisplayThatFails(app);
    PrintList(app, {folder}, ListForm::Table, around.output);
    return Status(app);
}

/// What the dialog would show, where there is no display for it.
int PrintFileInformation(App& app, const std::string& path, std::ostream& output) {
    NoteDisplayThatFails(app);
    const std::string text = InformationText(app, path);
    if (text.empty()) ShowWarning(app, app.messages.GetMessage(1003));
    if (!(output << text).flush()) throw RuntimeError(ErrorNumber::DeviceIoError);
    return Status(app);
}

/// A file named on the command line opens its information; a file that has none does nothing.
int ShowFileInformation(App& app, const Surroundings& around) {
    const std::string& path = app.state.FileSpec;
    if (!IsCompressedFile(path)) return Status(app);
    if (!HasDisplay(app, around)) return PrintFileInformation(app, path, around.output);
    return ShowWindow(app, around, "The file information",
                      [&](Windows& windows) { windows.RunFileInformation(app, path); });
}

int RunJob(App& app, const Job& job, const Surroundings& around) {
    if (job.needsDisplay && !HasDisplay(app, around)) {
        app.desktop.ShowBox(BoxKind::Critical,
                            std::string(job.name) + " needs a display, and " + WhyNoDisplay(app) + ".",
                            ApplicationTitle());
        return ExitNoDisplay;
    }
    if (job.show != nullptr)
        return ShowWindow(app, around, job.name, [&](Windows& windows) { (windows.*job.show)(app); });
    job.run(app);
    return Status(app);
}

int Dispatch(App& app, const Surroundings& around) {
    if (app.state.JobCode == FileJob) return ShowFileInformation(app, around);
    if (app.state.JobCode == FolderJob) return OpenMainWindow(app, app.state.CurrentFolder, around);
    const Job* job = FindJob(app.state.JobCode);
    return job != nullptr ? RunJob(app, *job, around) : OpenMainWindow(app, "", around);
}

bool IsListJob(const std::vector<std::string>& arguments) {
    return !arguments.empty() && EqualsIgnoringAsciiCase(arguments.front(), "/list");
}

/// /list takes no option but its own: folders, files and masks may begin with "/".
int RunListJob(App& app, const std::vector<std::string>& arguments, std::ostream& output) {
    ListForm form = ListForm::Table;
    std::vector<std::string> specs;
    for (const std::string& argument : std::span(arguments).subspan(1)) {
        if (EqualsIgnoringAsciiCase(argument, "/json")) {
            form = ListForm::Json;
        } else {
            specs.push_back(argument);
        }
    }
    PrintList(app, specs, form, output);
    return Status(app);
}

int LoadAndRun(App& app, const std::vector<std::string>& arguments, const Surroundings& around) {
    if (const auto previewed = ArgumentsOfPreview(arguments)) {
        if (const auto complained = Preview(app, *previewed, around.output))
            return *complained ? ExitComplaint : ExitDone;
    }
    LoadSettings(app);
    if (IsListJob(arguments)) return RunListJob(app, arguments, around.output);
    LoadPriorityClass(app);
    const bool anyArgument = ParseCommandLine(app, CommandLine(arguments));
    const int status = anyArgument ? Dispatch(app, around) : OpenMainWindow(app, "", around);
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
    const std::string text =
        app.messages.GetMessage(1000, std::to_string(error.Number()), app.ansi.ToText(error.Text()));
    app.desktop.ShowBox(BoxKind::Critical, text, ApplicationTitle());
    return ExitComplaint;
}

}  // namespace

int RunZefta(App& app, const std::vector<std::string>& arguments, std::ostream& output,
             const WindowOpener& openWindows) {
    if (Answer(arguments, output)) return output.flush() ? ExitDone : ExitComplaint;
    WaveFile defaultWaveFile(app);
    app.defaultWaveFile = &defaultWaveFile;
    try {
        return LoadAndRun(app, arguments, {output, openWindows});
    } catch (const RuntimeError& error) {
        return EndByFailure(app, error);
    } catch (const std::bad_alloc&) {
        return EndByFailure(app, RuntimeError(ErrorNumber::OutOfMemory));
    }
}

}  // namespace zefta
