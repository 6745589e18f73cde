#include "encoding/Decode.h"

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/FileWalk.h"
#include "core/Strings.h"
#include "encoding/CommandLines.h"
#include "encoding/SetAside.h"
#include "encoding/ToolRuns.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::int32_t NotAValidFile = 1002;

bool IsEmptyFile(const FileSystem& files, const std::string& path) {
    return files.FileExists(path) && files.FileSize(path) == 0;
}

/// Puts the fresh file under the name, in the place of a former one, as the other decoders do; but never
/// nothing in the place of something: a decoder that fails leaves an empty file.
void TakeName(FileSystem& files, const std::string& fresh, const std::string& name) {
    if (!files.FileExists(name)) {
        files.MoveFile(fresh, name);
    } else if (IsEmptyFile(files, fresh)) {
        files.DeleteFile(fresh, Force::No);
    } else if (files.IsReadOnly(name)) {
        throw RuntimeError(ErrorNumber::PermissionDenied, name);
    } else {
        files.ReplaceFile(fresh, name);
    }
}

/// The same; a fresh file that can't have the name gets a free one beside it.
void TakeNameOrOneBeside(FileSystem& files, const std::string& fresh, const std::string& name) {
    try {
        TakeName(files, fresh, name);
    } catch (const RuntimeError&) {
        files.MoveFile(fresh, FreePathBeside(files, name, "decoded"));
        throw;
    }
}

/// The decoder names its output "a.wav" and writes over what it finds there, also when it fails: a file of
/// the person's is set aside for the run. What stands there afterwards is the decoder's.
bool DecodeOggFile(App& app, const std::string& path) {
    const std::string output = OggDecoderOutput(path);
    SetAside former(app.files);
    former.Take(output);
    const bool isWhole = RunTool(app, OggDecodeCommand(path));
    if (!isWhole) DropIfThere(app.files, output);
    // An extension in other letters keeps the decoder's name for its output, unless that is the person's.
    const bool takesName = path.ends_with(".ogg") || former.IsAway();
    if (takesName && app.files.FileExists(output)) TakeNameOrOneBeside(app.files, output, DecodedPath(path));
    former.PutBack();
    return isWhole;
}

/// The other decoders write over a file of the name of their output, which is theirs then.
bool DecodeByName(App& app, const std::string& path) {
    const std::string former = app.files.ContentStamp(DecodedPath(path));
    const bool isWhole = RunTool(app, DecodeCommand(app.state, path));
    if (!isWhole && app.files.ContentStamp(DecodedPath(path)) != former)
        DropIfThere(app.files, DecodedPath(path));
    return isWhole;
}

}  // namespace

bool DecodeFile(App& app, const std::string& path) {
    AppState& state = app.state;
    state.UseOggVorbis = MatchesMask(path, "*.ogg");
    state.UseMPEGplus = MatchesMask(path, "*.mpc") || MatchesMask(path, "*.mp+");
    const bool isWhole = state.UseOggVorbis ? DecodeOggFile(app, path) : DecodeByName(app, path);
    if (!isWhole) return false;
    // Normalising follows the setting here and not what the command line made of it.
    if (state.TrimSilence && !IsEmptyFile(app.files, DecodedPath(path)))
        RunTrimChild(app, DecodedPath(path), state.Saved.Normalize);
    return true;
}

void DecodeJob(App& app) {
    const std::string& fileSpec = app.state.FileSpec;
    if (fileSpec != "*.*" && !IsCompressedFile(fileSpec)) {
        ShowWarning(app, app.messages.GetMessage(NotAValidFile));
        return;
    }
    WalkFiles(app, [&](const std::string& folder, const std::string& name) {
        if (IsCompressedFile(name)) DecodeFile(app, JoinPath(folder, name));
    });
}

}  // namespace zefta
