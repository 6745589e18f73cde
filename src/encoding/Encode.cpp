#include "encoding/Encode.h"

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/Folders.h"
#include "core/Strings.h"
#include "encoding/EncodedOutput.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

void EncodeWaveFile(App& app, const std::string& folder, const std::string& name) {
    EncodeFile(app, {name, JoinPath(folder, name), folder});
    const std::string output = EncodedOutputPath(app.state, folder, name);
    if (HasEncodedOutput(app, output)) TagEncodedOutput(app, output, name);
}

void EncodeOneFile(App& app, const std::string& folder, const std::string& name) {
    if (IsWaveFile(name)) {
        // One file that fails (a full disk under its tag) does not end the walk.
        CheckRuntimeError(app, [&] { EncodeWaveFile(app, folder, name); });
    } else if (IsCompressedFile(name)) {
        ShowWarning(app,
                    "\"" + app.ansi.ToText(name) + "\": this version cannot re-encode compressed files.");
    }
}

}  // namespace

void EncodeFile(App& app, EncodeSource source) {
    const std::string doubledSeparator(2, PathSeparator);
    source.path = ReplaceAll(source.path, doubledSeparator, std::string(1, PathSeparator));
    if (app.state.TrimSilence) {
        const std::string child =
            TrimChildCommand(app.state, app.processes.OwnPath(), source.path, app.state.Normalize);
        app.processes.RunProgram(child, false, app.state.PriorityClass);
    }
    const std::string command = EncodeCommand(app.state, source);
    if (!command.empty())
        app.processes.RunProgram(command, app.state.ShowExecuteWindows, app.state.PriorityClass);
}

void EncodeJob(App& app) {
    const FolderAndMask work = SplitFileSpec(app.files, app.state.FileSpec);
    // The Ogg Vorbis encoder writes to the current folder.
    app.files.SetCurrentFolder(work.folder);
    for (const FolderEntry& entry : app.files.List(work.folder)) {
        if (!entry.isFolder && MatchesMask(entry.name, work.mask))
            EncodeOneFile(app, work.folder, entry.name);
    }
}

}  // namespace zefta
