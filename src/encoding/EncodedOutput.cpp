#include "encoding/EncodedOutput.h"

#include "core/Strings.h"
#include "core/Version.h"
#include "platform/Paths.h"
#include "wave/TagWriters.h"
#include "wave/WaveFile.h"

namespace zefta {

namespace {

constexpr auto WaveExtension = ".wav";

}  // namespace

bool HasOutputName(const std::string& waveName) {
    return ReplaceAllIgnoringCase(waveName, WaveExtension, "") != waveName;
}

std::string EncodedOutputPath(const AppState& state, const std::string& folder, const std::string& waveName) {
    if (!HasOutputName(waveName)) return {};
    const char* extension = state.UseOggVorbis ? ".ogg" : state.UseMPEGplus ? ".mpc" : ".mp3";
    return JoinPath(folder, ReplaceAllIgnoringCase(waveName, WaveExtension, extension));
}

bool HasEncodedOutput(App& app, const std::string& path) {
    if (!app.files.FileExists(path)) return false;
    const auto file = app.files.OpenReadOnly(path);
    return file != nullptr && file->Size() > 0;
}

void TagEncodedOutput(App& app, const std::string& path, const std::string& waveName) {
    ID3Tag tag;
    tag.Path = path;
    // A name is bytes; a tag is text.
    tag.Title = app.ansi.ToText(ReplaceAllIgnoringCase(waveName, WaveExtension, ""));
    tag.ID3v2Extension.TrackTitle = tag.Title;
    tag.ID3v2Extension.EncodedBy = ApplicationTitle() + " " + VersionText();
    WriteTags(*app.defaultWaveFile, TagJob::Encoding, tag);
}

}  // namespace zefta
