#include "encoding/Encode.h"

#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/FileWalk.h"
#include "core/Strings.h"
#include "encoding/EncodedOutput.h"
#include "encoding/ReEncode.h"
#include "encoding/SetAside.h"
#include "encoding/ToolRuns.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr std::int32_t ReEncodeQuestion = 10010;
constexpr std::int32_t MP3Title = 32010;
constexpr std::int32_t OggVorbisTitle = 32012;
constexpr std::int32_t MPEGplusTitle = 32022;

/// Which encoder the job was given. Decoding a file sets the switches of the state for its kind.
struct ChosenEncoder {
    bool useOggVorbis;
    bool useMPEGplus;
};

bool WantsReEncoding(App& app, const std::string& name) {
    const std::int32_t title = app.state.UseMPEGplus    ? MPEGplusTitle
                               : app.state.UseOggVorbis ? OggVorbisTitle
                                                        : MP3Title;
    return AskYesNo(app, app.messages.GetMessage(ReEncodeQuestion, app.ansi.ToText(name)),
                    app.messages.GetMessage(title));
}

void EncodeOneFile(App& app, ChosenEncoder chosen, const std::string& folder, const std::string& name) {
    app.state.UseOggVorbis = chosen.useOggVorbis;
    app.state.UseMPEGplus = chosen.useMPEGplus;
    if (IsWaveFile(name)) {
        EncodeAndTag(app, folder, name);
    } else if (IsCompressedFile(name) && WantsReEncoding(app, name)) {
        // A job of the command line never deletes a source.
        app.state.DeleteAfterReCompress = false;
        ReEncodeFile(app, JoinPath(folder, name), chosen.useOggVorbis, chosen.useMPEGplus);
    }
}

}  // namespace

bool EncodeFile(App& app, EncodeSource source) {
    if (!HasOutputName(source.name)) return true;
    const std::string doubledSeparator(2, PathSeparator);
    source.path = ReplaceAll(source.path, doubledSeparator, std::string(1, PathSeparator));
    if (app.state.TrimSilence) RunTrimChild(app, source.path, app.state.Normalize);
    return RunTool(app, EncodeCommand(app.state, source));
}

std::string EncodeAnew(App& app, const EncodeSource& source) {
    std::string output = EncodedOutputPath(app.state, source.destination, source.name);
    const std::string former = app.files.ContentStamp(output);
    const bool isWhole = EncodeFile(app, source);
    // An old file of that name that the encoder did not touch is no output: its tags are somebody's work.
    const bool isTouched = app.files.ContentStamp(output) != former;
    if (!isWhole && isTouched) DropIfThere(app.files, output);
    if (!isWhole || !isTouched || !HasEncodedOutput(app, output)) return {};
    return output;
}

std::string EncodeInPlace(App& app, const std::string& folder, const std::string& name) {
    return EncodeAnew(app, {name, JoinPath(folder, name), folder});
}

bool EncodeAndTag(App& app, const std::string& folder, const std::string& name) {
    const std::string output = EncodeInPlace(app, folder, name);
    if (output.empty()) return false;
    TagEncodedOutput(app, output, name);
    return true;
}

void EncodeJob(App& app) {
    const ChosenEncoder chosen{app.state.UseOggVorbis, app.state.UseMPEGplus};
    WalkFiles(app, [&](const std::string& folder, const std::string& name) {
        EncodeOneFile(app, chosen, folder, name);
    });
}

}  // namespace zefta
