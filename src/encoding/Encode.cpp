#include "encoding/Encode.h"

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/FileWalk.h"
#include "core/Strings.h"
#include "encoding/EncodedOutput.h"
#include "encoding/ToolRuns.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

void EncodeOneFile(App& app, const std::string& folder, const std::string& name) {
    if (IsWaveFile(name)) {
        EncodeAndTag(app, folder, name);
    } else if (IsCompressedFile(name)) {
        ShowWarning(app,
                    "\"" + app.ansi.ToText(name) + "\": this version cannot re-encode compressed files.");
    }
}

}  // namespace

void EncodeFile(App& app, EncodeSource source) {
    if (!HasOutputName(source.name)) return;
    const std::string doubledSeparator(2, PathSeparator);
    source.path = ReplaceAll(source.path, doubledSeparator, std::string(1, PathSeparator));
    if (app.state.TrimSilence) RunTrimChild(app, source.path, app.state.Normalize);
    RunTool(app, EncodeCommand(app.state, source));
}

bool EncodeAndTag(App& app, const std::string& folder, const std::string& name) {
    const std::string output = EncodedOutputPath(app.state, folder, name);
    const std::string former = app.files.ContentStamp(output);
    EncodeFile(app, {name, JoinPath(folder, name), folder});
    // An old file of that name that the encoder did not touch is no output: its tags are somebody's work.
    if (!HasEncodedOutput(app, output) || app.files.ContentStamp(output) == former) return false;
    TagEncodedOutput(app, output, name);
    return true;
}

void EncodeJob(App& app) {
    WalkFiles(app,
              [&](const std::string& folder, const std::string& name) { EncodeOneFile(app, folder, name); });
}

}  // namespace zefta
