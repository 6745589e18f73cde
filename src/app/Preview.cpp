#include "app/Preview.h"

#include <algorithm>
#include <ostream>

#include "app/PreviewDesktop.h"
#include "core/Boxes.h"
#include "core/Options.h"
#include "core/Settings.h"
#include "core/Strings.h"
#include "platform/RuntimeError.h"
#include "platform/overlay/OverlayFileSystem.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr std::string_view PreviewOption = "/preview";

}  // namespace

std::optional<std::vector<std::string>> ArgumentsOfPreview(const std::vector<std::string>& arguments) {
    std::vector<std::string> others;
    std::copy_if(arguments.begin(), arguments.end(), std::back_inserter(others),
                 [](const std::string& token) { return !EqualsIgnoringAsciiCase(token, PreviewOption); });
    if (others.size() == arguments.size()) return std::nullopt;
    return others;
}

std::optional<bool> Preview(App& app, const std::vector<std::string>& arguments, std::ostream& output) {
    OverlayFileSystem files(app.files);
    PreviewDesktop desktop(output);
    App preview(app.machine, files, desktop, app.processes, app.userSettings, app.machineSettings);
    WaveFile defaultWaveFile(preview);
    preview.defaultWaveFile = &defaultWaveFile;
    preview.steps = &output;
    LoadSettings(preview);
    ParseCommandLine(preview, CommandLine(arguments));
    const Job* job = FindJob(preview.state.JobCode);
    if (job == nullptr) return std::nullopt;
    if (!job->canPreview) {
        // Whoever asks for a preview must not get the real thing.
        ShowWarning(app, std::string(job->name) + " has no preview. Nothing was done.");
        return true;
    }
    job->run(preview);
    // Steps that were cut short must not look complete.
    if (!output.flush()) throw RuntimeError(ErrorNumber::DeviceIoError);
    return desktop.HasComplained();
}

}  // namespace zefta
