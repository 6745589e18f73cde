#include "encoding/ReEncodedName.h"

#include "encoding/CommandLines.h"
#include "encoding/ModeCatalogue.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr std::int16_t FirstPreset = 9001;
constexpr std::int16_t LastPreset = 9003;
/// The rate that stands for "no rate at all" beside UseVBR.
constexpr std::int16_t FullVariableRate = 320;

std::string LameModeInName(const AppState& state) {
    if (state.UseVBR)
        return state.Bitrate == FullVariableRate ? "vbr" : std::to_string(state.Bitrate) + " abr";
    const bool isPreset = state.Bitrate >= FirstPreset && state.Bitrate <= LastPreset;
    return isPreset ? "preset" + std::to_string(state.Bitrate - FirstPreset + 1) : "";
}

std::string ExtensionOf(TargetKind target) {
    switch (target) {
        case TargetKind::OggVorbis:
            return ".ogg";
        case TargetKind::MPEGplus:
            return ".mpc";
        case TargetKind::MP3:
            break;
    }
    return ".mp3";
}

/// "a" of "a.mp3"; the whole name of a file whose kind stands there without a dot.
std::string BaseName(const std::string& name) {
    return name.substr(0, name.rfind('.'));
}

}  // namespace

std::string ModeInName(const AppState& state, TargetKind target) {
    switch (target) {
        case TargetKind::OggVorbis:
            return "mode " + std::to_string(state.OggVorbisMode);
        case TargetKind::MPEGplus:
            return GetMPEGplusModeName(state, state.MPEGplusMode);
        case TargetKind::MP3:
            break;
    }
    return LameModeInName(state);
}

ReEncodeNames NamesForReEncoding(const AppState& state, const std::string& path, TargetKind target) {
    ReEncodeNames names;
    const std::string extension = ExtensionOf(target);
    names.folder = FolderPart(path);
    names.decoded = DecodedPath(path);
    names.temporaryWave = JoinPath(names.folder, TemporaryWaveName);
    names.temporaryOutput = JoinPath(names.folder, "temp" + extension);
    names.final =
        JoinPath(names.folder, BaseName(NamePart(path)) + " (" + ModeInName(state, target) + ")" + extension);
    return names;
}

}  // namespace zefta
