#include "library/SelectionEncoding.h"

#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/FileKind.h"
#include "core/Numbers.h"
#include "encoding/Decode.h"
#include "encoding/Encode.h"
#include "encoding/ReEncode.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr std::int32_t FullVbrCode = 555;
constexpr std::int32_t DecodingTitle = 32006;
constexpr std::int32_t DecodeQuestion = 32007;
constexpr std::int32_t ReEncodeQuestion = 32020;

/// Messages of the commands that make files of one kind.
struct KindTexts {
    std::int32_t title;
    std::int32_t encodeQuestion;
};

KindTexts TextsOf(TargetKind kind) {
    switch (kind) {
        case TargetKind::OggVorbis:
            return {32012, 32013};
        case TargetKind::MPEGplus:
            return {32022, 32021};
        default:
            return {32010, 32011};
    }
}

void SetLameMode(AppState& state, std::int32_t code) {
    constexpr std::int32_t FirstVariable = 1001;
    constexpr std::int32_t LastVariable = 9000;
    const bool isRate = code < FirstVariable || code > LastVariable;
    state.UseVBR = !isRate || code == FullVbrCode;
    // The rate beside the full VBR line is one that no range of average rates holds.
    constexpr std::int32_t RateOfFullVbr = 320;
    const std::int32_t rate = code == FullVbrCode ? RateOfFullVbr : isRate ? code : code - 1000;
    state.Bitrate = ToI16(std::int64_t{rate});
}

bool Ask(App& app, std::int32_t question, std::int32_t title) {
    return AskYesNo(app, app.messages.GetMessage(question), app.messages.GetMessage(title));
}

using FileWork = std::function<void(const std::string& name)>;

void WorkOn(App& app, const std::vector<std::string>& names, const SelectionWatch& watch,
            const FileWork& work) {
    Batch batch(app, names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        watch.status("[" + std::to_string(i + 1) + "/" + std::to_string(names.size()) + "] " +
                     app.ansi.ToText(names[i]));
        if (!batch.Next()) return;
        CheckRuntimeError(app, [&] { work(names[i]); });
    }
}

/// Tools that are told no folder write to the current one.
bool EnterFolder(App& app, const std::string& folder) {
    return !CheckRuntimeError(app, [&] { app.files.SetCurrentFolder(folder); });
}

}  // namespace

void SetModeOfCommand(AppState& state, const ModeOfCommand& mode) {
    // All of them: another encoding before this one may have left its own.
    static_cast<RunSwitches&>(state) = state.Saved;
    state.UseVBR = false;
    state.UseOggVorbis = mode.kind == TargetKind::OggVorbis;
    state.UseMPEGplus = mode.kind == TargetKind::MPEGplus;
    switch (mode.kind) {
        case TargetKind::OggVorbis:
            state.OggVorbisMode = ToByte(std::int64_t{mode.code});
            break;
        case TargetKind::MPEGplus:
            state.MPEGplusMode = ToByte(std::int64_t{mode.code});
            break;
        default:
            SetLameMode(state, mode.code);
    }
}

bool EncodeSelected(App& app, const Selection& selection, const ModeOfCommand& mode,
                    const SelectionWatch& watch) {
    const KindTexts texts = TextsOf(mode.kind);
    if (!Ask(app, texts.encodeQuestion, texts.title)) return false;
    SetModeOfCommand(app.state, mode);
    if (!EnterFolder(app, selection.folder)) return true;
    WorkOn(app, NamesOf(selection, {RowIcon::Wave}), watch, [&](const std::string& name) {
        if (EncodeAndTag(app, selection.folder, name)) watch.done(name);
    });
    return true;
}

bool ReEncodeSelected(App& app, const Selection& selection, const ModeOfCommand& mode,
                      const SelectionWatch& watch) {
    if (!Ask(app, ReEncodeQuestion, TextsOf(mode.kind).title)) return false;
    SetModeOfCommand(app.state, mode);
    if (!EnterFolder(app, selection.folder)) return true;
    const auto names = NamesOf(selection, {RowIcon::Compressed, RowIcon::Playlist});
    WorkOn(app, names, watch, [&](const std::string& name) {
        ReEncodeFile(app, JoinPath(selection.folder, name), mode.kind == TargetKind::OggVorbis,
                     mode.kind == TargetKind::MPEGplus);
    });
    return true;
}

bool DecodeSelected(App& app, const Selection& selection, const SelectionWatch& watch) {
    if (!Ask(app, DecodeQuestion, DecodingTitle)) return false;
    app.state.TrimSilence = app.state.Saved.TrimSilence;
    if (!EnterFolder(app, selection.folder)) return true;
    auto names = NamesOf(selection, {RowIcon::Compressed});
    std::erase_if(names, [](const std::string& name) { return !IsCompressedFile(name); });
    WorkOn(app, names, watch,
           [&](const std::string& name) { DecodeFile(app, JoinPath(selection.folder, name)); });
    return true;
}

}  // namespace zefta
