#include "library/RenameForm.h"

#include "core/History.h"
#include "core/Numbers.h"
#include "core/Settings.h"
#include "platform/RuntimeError.h"
#include "platform/StoreOutcome.h"

namespace zefta {

namespace {

constexpr std::int16_t RuleByTemplate = 6;
constexpr std::uint8_t LastFilter = 2;

/// The mask is what was typed last where a mask was asked for.
void SaveForm(App& app, const RenameForm& form) {
    AppState& state = app.state;
    state.RenameAndTagging_Format = ToByte(std::int64_t{form.format});
    // As the renaming has it: never with selected files, never with folders of artists.
    state.RenameAndTagging_ProcessSubfolders = state.ProcessSubfolders;
    state.RenameAndTagging_UpdatePlaylists = form.choice.updatePlaylists;
    state.RenameAndTagging_FilterType = static_cast<std::uint8_t>(form.choice.filter);
    if (form.choice.filter == ExtendedRename::Filter::FilesByMask)
        state.RenameAndTagging_Mask = form.choice.mask;
    SaveRenameSettings(app);
}

}  // namespace

RenameForm LoadRenameForm(const App& app) {
    const AppState& state = app.state;
    RenameForm form;
    const std::uint8_t format = state.RenameAndTagging_Format;
    if (format >= 1 && format <= RuleByTemplate) form.format = format;
    form.customTemplate = state.CustomRenameTemplate;
    if (state.RenameAndTagging_FilterType <= LastFilter)
        form.choice.filter = static_cast<ExtendedRename::Filter>(state.RenameAndTagging_FilterType);
    form.choice.mask = state.RenameAndTagging_Mask;
    form.choice.processSubfolders = state.RenameAndTagging_ProcessSubfolders;
    form.choice.updatePlaylists = state.RenameAndTagging_UpdatePlaylists;
    return form;
}

void ApplyRenameRule(AppState& state, const RenameForm& form) {
    state.RenameFormat = form.format;
    if (form.format == RuleByTemplate) state.CustomRenameTemplate = form.customTemplate;
}

void RunRenameForm(App& app, const RenameForm& form, const RenamedFile& renamed) {
    ApplyRenameRule(app.state, form);
    if (form.format == RuleByTemplate)
        SaveRenameTemplates(app.userSettings,
                            WithTemplate(LoadRenameTemplates(app.userSettings), form.customTemplate));
    try {
        RenameExtended(app, form.choice, renamed);
    } catch (const RuntimeError&) {
        SaveForm(app, form);
        throw;
    }
    SaveForm(app, form);
    ExpectStored(app.userSettings);
}

}  // namespace zefta
