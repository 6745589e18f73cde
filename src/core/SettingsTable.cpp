#include "core/SettingsTable.h"

#include <array>
#include <charconv>
#include <utility>

#include "core/Strings.h"

namespace zefta {

namespace {

using Slot = SettingSlot;

template <auto Field>
Slot FieldSlot(AppState& state, std::size_t) {
    return &(state.*Field);
}

template <auto Field>
Slot SavedSlot(AppState& state, std::size_t) {
    return &(state.Saved.*Field);
}

template <auto Field>
Slot ElementSlot(AppState& state, std::size_t index) {
    return &(state.*Field)[index];
}

template <auto Field>
Slot PresetName(AppState& state, std::size_t index) {
    return &(state.*Field)[index].Name;
}

template <auto Field>
Slot PresetCode(AppState& state, std::size_t index) {
    return &(state.*Field)[index].Code;
}

void AddPresets(std::vector<Setting>& table, const std::string& name,
                std::pair<Slot (*)(AppState&, std::size_t), Slot (*)(AppState&, std::size_t)> slots) {
    for (std::size_t i = 0; i < 3; ++i) {
        const std::string key = name + std::to_string(i + 1);
        table.push_back({key + "_Name", Saver::Options, slots.first, i});
        table.push_back({key + "_Code", Saver::Options, slots.second, i});
    }
}

struct Series {
    std::string name;
    int first;
    std::size_t count;
    Slot (*slot)(AppState&, std::size_t);
};

void AddSeries(std::vector<Setting>& table, const Series& series) {
    for (std::size_t i = 0; i < series.count; ++i)
        table.push_back({series.name + std::to_string(series.first + static_cast<int>(i)), Saver::Options,
                         series.slot, i});
}

void AddEnableFlags(std::vector<Setting>& table) {
    const std::vector<Setting> lame = {
        {"EnableLAME128", Saver::Options, FieldSlot<&AppState::EnableLAME128>},
        {"EnableLAME160", Saver::Options, FieldSlot<&AppState::EnableLAME160>},
        {"EnableLAME192", Saver::Options, FieldSlot<&AppState::EnableLAME192>},
        {"EnableLAME256", Saver::Options, FieldSlot<&AppState::EnableLAME256>},
        {"EnableLAME320", Saver::Options, FieldSlot<&AppState::EnableLAME320>},
        {"EnableLAMEVBR", Saver::Options, FieldSlot<&AppState::EnableLAMEVBR>},
        {"EnableLAME128ABR", Saver::Options, FieldSlot<&AppState::EnableLAME128ABR>},
        {"EnableLAME160ABR", Saver::Options, FieldSlot<&AppState::EnableLAME160ABR>},
        {"EnableLAME192ABR", Saver::Options, FieldSlot<&AppState::EnableLAME192ABR>},
        {"EnableLAME256ABR", Saver::Options, FieldSlot<&AppState::EnableLAME256ABR>},
    };
    table.insert(table.end(), lame.begin(), lame.end());
    AddSeries(table, {"EnableOGGb", 1, 6, ElementSlot<&AppState::EnableOGGb>});
    AddSeries(table, {"EnableOGGq", 0, 11, ElementSlot<&AppState::EnableOGGq>});
    AddSeries(table, {"EnableMPCm", 1, 6, ElementSlot<&AppState::EnableMPCm>});
}

std::vector<Setting> EncoderSettings() {
    return {
        {"Bitrate", Saver::Main, FieldSlot<&AppState::Bitrate>},
        {"UseVBR", Saver::Main, FieldSlot<&AppState::UseVBR>},
        {"OggVorbisMode", Saver::Main, FieldSlot<&AppState::OggVorbisMode>},
        {"MPEGplusMode", Saver::Main, FieldSlot<&AppState::MPEGplusMode>},
        {"TrimSilence", Saver::Options, SavedSlot<&RunSwitches::TrimSilence>},
        {"UseOggVorbis", Saver::Main, FieldSlot<&AppState::UseOggVorbis>},
        {"UseMPEGplus", Saver::Main, FieldSlot<&AppState::UseMPEGplus>},
        {"CustomRenameTemplate", Saver::Options, FieldSlot<&AppState::CustomRenameTemplate>},
        {"ReduceLevel", Saver::Options, SavedSlot<&RunSwitches::ReduceLevel>},
        {"ShowExecuteWindows", Saver::Options, FieldSlot<&AppState::ShowExecuteWindows>},
        {"Normalize", Saver::Options, SavedSlot<&RunSwitches::Normalize>},
        {"NormalizeLevel", Saver::Options, FieldSlot<&AppState::NormalizeLevel>},
        {"NormalizeAbove", Saver::Options, FieldSlot<&AppState::NormalizeAbove>},
        {"NormalizeBelow", Saver::Options, FieldSlot<&AppState::NormalizeBelow>},
        {"NormalizeSeparately", Saver::Options, SavedSlot<&RunSwitches::NormalizeSeparately>},
    };
}

std::vector<Setting> ProgramSettings() {
    return {
        {"CurrentFolder", Saver::Main, FieldSlot<&AppState::CurrentFolder>},
        {"StartupFolder", Saver::Options, FieldSlot<&AppState::StartupFolder>},
        {"EnableStartupFolder", Saver::Options, FieldSlot<&AppState::EnableStartupFolder>},
        {"FilePropertiesOnDblClick", Saver::Options, FieldSlot<&AppState::FilePropertiesOnDblClick>},
        {"DeleteAfterCompress", Saver::Options, FieldSlot<&AppState::DeleteAfterCompress>},
        {"DeleteAfterReCompress", Saver::Options, FieldSlot<&AppState::DeleteAfterReCompress>},
        {"ExternalLanguageFile", Saver::Options, FieldSlot<&AppState::ExternalLanguageFile>},
        {"EnableExternalLanguage", Saver::Options, FieldSlot<&AppState::EnableExternalLanguage>},
        {"CompressCD_SourceFolder", Saver::CompressCD, FieldSlot<&AppState::CompressCD_SourceFolder>},
        {"CompressCD_TargetFolder", Saver::CompressCD, FieldSlot<&AppState::CompressCD_TargetFolder>},
        {"CompressCD_Bitrate", Saver::CompressCD, FieldSlot<&AppState::CompressCD_Bitrate>},
        {"RenameAndTagging_Format", Saver::Rename, FieldSlot<&AppState::RenameAndTagging_Format>},
        {"RenameAndTagging_ProcessSubfolders", Saver::Rename,
         FieldSlot<&AppState::RenameAndTagging_ProcessSubfolders>},
        {"RenameAndTagging_UpdatePlaylists", Saver::Rename,
         FieldSlot<&AppState::RenameAndTagging_UpdatePlaylists>},
        {"RenameAndTagging_FilterType", Saver::Rename, FieldSlot<&AppState::RenameAndTagging_FilterType>},
        {"RenameAndTagging_Mask", Saver::Rename, FieldSlot<&AppState::RenameAndTagging_Mask>},
        {"ChangeTags_AllFirstCaps", Saver::ChangeTags, FieldSlot<&AppState::ChangeTags_AllFirstCaps>},
        {"ChangeTags_AllTags", Saver::ChangeTags, FieldSlot<&AppState::ChangeTags_AllTags>},
        {"ChangeTags_ReverseFormat", Saver::ChangeTags, FieldSlot<&AppState::ChangeTags_ReverseFormat>},
    };
}

std::vector<Setting> BuildTable() {
    std::vector<Setting> table = EncoderSettings();
    AddPresets(table, "CustomLAMEPreset",
               {PresetName<&AppState::CustomLAMEPreset>, PresetCode<&AppState::CustomLAMEPreset>});
    AddPresets(table, "CustomOGGPreset",
               {PresetName<&AppState::CustomOGGPreset>, PresetCode<&AppState::CustomOGGPreset>});
    AddPresets(table, "CustomMPCPreset",
               {PresetName<&AppState::CustomMPCPreset>, PresetCode<&AppState::CustomMPCPreset>});
    const std::vector<Setting> program = ProgramSettings();
    table.insert(table.end(), program.begin(), program.end());
    AddEnableFlags(table);
    return table;
}

bool Read(bool& field, const std::string& text) {
    const std::string word = AsciiLower(Trim(text));
    if (word != "true" && word != "false" && word != "1" && word != "0") return false;
    field = word == "true" || word == "1";
    return true;
}

template <typename Number>
bool Read(Number& field, const std::string& text) {
    const std::string digits = Trim(text);
    const char* const end = digits.data() + digits.size();
    Number number{};
    const auto result = std::from_chars(digits.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end) return false;
    field = number;
    return true;
}

bool Read(std::string& field, const std::string& text) {
    field = text;
    return true;
}

std::string Text(bool value) {
    return value ? "True" : "False";
}
std::string Text(std::int16_t value) {
    return std::to_string(value);
}
std::string Text(std::uint8_t value) {
    return std::to_string(value);
}
std::string Text(const std::string& value) {
    return value;
}

}  // namespace

const std::vector<Setting>& SettingsTable() {
    static const std::vector<Setting> table = BuildTable();
    return table;
}

std::string SettingText(const SettingSlot& slot) {
    return std::visit([](const auto* field) { return Text(*field); }, slot);
}

bool ReadSetting(const SettingSlot& slot, const std::string& text) {
    return std::visit([&](auto* field) { return Read(*field, text); }, slot);
}

}  // namespace zefta
