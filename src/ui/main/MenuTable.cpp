#include "ui/main/MenuTable.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "encoding/ModeCatalogue.h"

namespace zefta {

namespace {

constexpr MenuRow Menus[] = {
    // clang-format off
    {nullptr, "mnuFile", 32101, "", Command::None},
    {"mnuFile", "mnuFileOpenFolder", 32102, "F3", Command::OpenFolder},
    {"mnuFile", "mnuFileRename", 32103, "F2; F6", Command::Rename},
    {"mnuFile", "mnuFileDelete", 32104, "Del; F8", Command::Delete},
    {"mnuFile", "mnuFileRefresh", 32105, "F5", Command::Refresh},
    {"mnuFile", "mnuFileExit", 32106, "Ctrl+W", Command::Exit},

    {nullptr, "mnuWAVe", 32111, "", Command::None},
    {"mnuWAVe", "mnuWAVePlay", 32112, "", Command::Play},
    {"mnuWAVe", "mnuWAVeAppend", 32113, "", Command::Append},
    {"mnuWAVe", "mnuWAVe_MP3Encoding", 32114, "", Command::None},
    {"mnuWAVe", "mnuWAVe_OggEncoding", 32115, "", Command::None},
    {"mnuWAVe", "mnuWAVe_MPPlusEncoding", 32117, "", Command::None},
    {"mnuWAVe", "mnuWAVeEncodeEx", 32116, "Ctrl+E", Command::AdvancedEncoding},

    {nullptr, "mnuMP3", 32131, "", Command::None},
    {"mnuMP3", "mnuMP3Play", 32132, "", Command::Play},
    {"mnuMP3", "mnuMP3Append", 32133, "", Command::Append},
    {"mnuMP3", "mnuMP3_ReEncodingMP3_Menu", 32136, "", Command::None},
    {"mnuMP3", "mnuMP3_ReEncodingOGG_Menu", 32137, "", Command::None},
    {"mnuMP3", "mnuMP3_ReEncodingMPPlus_Menu", 32139, "", Command::None},
    {"mnuMP3", "mnuMP3RenameByID3", 32138, "", Command::None},
    {"mnuMP3", "mnuMP3DecodeAll", 32134, "Ctrl+D", Command::Decode},
    {"mnuMP3", "mnuMP3Properties", 32135, "", Command::Properties},

    {nullptr, "mnuM3U", 32151, "", Command::None},
    {"mnuM3U", "mnuM3UPlay", 32152, "", Command::Play},
    {"mnuM3U", "mnuM3UAppend", 32153, "", Command::Append},
    {"mnuM3U", "mnuM3URenameFiles_submenu", 32155, "", Command::None},
    {"mnuM3U", "mnuM3UCopy", 32154, "", Command::CopyPlaylist},

    {nullptr, "mnuTools", 32171, "", Command::None},
    {"mnuTools", "mnuToolsCompressCD", 32172, "F11", Command::CompressCD},
    {"mnuTools", "mnuToolsMakeList", 32173, "Ctrl+G", Command::MakeList},
    {"mnuTools", "mnuToolsPlayFolder", 32174, "Ctrl+P", Command::PlayFolder},
    {"mnuTools", "mnuToolsAppendFolder", 32175, "Ctrl+L", Command::AppendFolder},
    {"mnuTools", "mnuToolsRenameByID3", 32176, "", Command::None},
    {"mnuTools", "mnuToolsAutoRenameByID3", 32177, "", Command::None},
    {"mnuTools", "mnuToolsRenameExt", 32180, "Ctrl+R", Command::ExtendedRename},
    {"mnuTools", "mnuToolsChangeTags", 32182, "Ctrl+U", Command::ChangeTags},
    {"mnuTools", "mnuToolsChangeTagsEx", 32183, "Ctrl+I", Command::ChangeTagsEx},
    {"mnuTools", "mnuToolsOptions", 32178, "F12", Command::Options},
    {"mnuTools", "mnuToolsSysTray", 32179, "", Command::SysTray},

    {nullptr, "mnuHelp", 32191, "", Command::None},
    {"mnuHelp", "mnuHelpContents", 32192, "", Command::HelpContents},
    {"mnuHelp", "mnuHelpWWWKestrin", 32194, "", Command::WebKestrin},
    {"mnuHelp", "mnuHelpWWWProgram", 32195, "", Command::WebProgram},
    {"mnuHelp", "mnuHelpWWWDownloads", 32196, "", Command::WebDownloads},
    {"mnuHelp", "mnuHelpAbout", 32193, "", Command::About},
    // clang-format on
};

constexpr ToolRow Tools[] = {
    // clang-format off
    {"Up", 32301, Command::GoUp, "go-up", "up"},
    {"OpenFolder", 32302, Command::OpenFolder, "folder-open", "open-folder"},
    {"Refresh", 32310, Command::Refresh, "view-refresh", "refresh"},
    {"Encode", 32303, Command::AdvancedEncoding, "", "encode"},
    {"Decode", 32304, Command::Decode, "", "decode"},
    {"Properties", 32305, Command::Properties, "document-properties", "properties"},
    {"Delete", 32306, Command::Delete, "edit-delete", "delete"},
    {"Rename", 32307, Command::Rename, "edit-rename", "rename"},
    {"CopyPlaylist", 32308, Command::CopyPlaylist, "", "copy-playlist"},
    {"Options", 32309, Command::Options, "preferences-system", "options"},
    {"CompressCD", 32311, Command::CompressCD, "media-optical-audio", "compress-cd"},
    {"Play", 32312, Command::Play, "media-playback-start", "play"},
    {"Append", 32313, Command::Append, "list-add", "append"},
    // clang-format on
};

using Rows = std::vector<IndexedRow>;

const Rows LameModes = {
    {128, "128 kbps"},
    {160, "160 kbps"},
    {192, "192 kbps"},
    {256, "256 kbps"},
    {320, "320 kbps"},
    {444, nullptr},
    {555, "VBR: 200-300 kbps"},
    {666, nullptr},
    {1128, "ABR: 128 kbps "},
    {1160, "ABR: 160 kbps "},
    {1192, "ABR: 192 kbps "},
    {1256, "ABR: 256 kbps "},
    {9000, nullptr},
    {9001, ""},
    {9002, ""},
    {9003, ""},
};

const Rows OggModes = {
    {1, "112 kbps"},   {2, "128 kbps"},   {3, "160 kbps"},    {4, "192 kbps"},   {5, "256 kbps"},
    {6, "350 kbps"},   {9, nullptr},      {10, "Quality 0"},  {11, "Quality 1"}, {12, "Quality 2"},
    {13, "Quality 3"}, {14, "Quality 4"}, {15, "Quality 5"},  {16, "Quality 6"}, {17, "Quality 7"},
    {18, "Quality 8"}, {19, "Quality 9"}, {20, "Quality 10"}, {30, nullptr},     {31, ""},
    {32, ""},          {33, ""},
};

const Rows MPEGplusModes = {
    {1, "Thumb"},     {2, "Radio"},  {3, "Standard"}, {4, "Xtreme"}, {5, "Insane"},
    {6, "BrainDead"}, {10, nullptr}, {11, ""},        {12, ""},      {13, ""},
};

const Rows RenameRules = {
    {1, "&1: Artist - Title.MP3"},      {2, "&2: Artist - Title (Mix).MP3"}, {3, "&3: Title (Mix).MP3"},
    {4, "&4: Artist\\Title (Mix).MP3"}, {5, "&5: Artist_-_Title_(Mix).MP3"}, {6, "", 32181},
};

Rows Without(const Rows& rows, std::initializer_list<std::int32_t> indexes) {
    Rows rest;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(rest), [&](const IndexedRow& row) {
        return std::find(indexes.begin(), indexes.end(), row.index) == indexes.end();
    });
    return rest;
}

constexpr auto Modes = IndexedKind::Modes;
constexpr auto Rules = IndexedKind::RenameRules;
constexpr auto MP3 = TargetKind::MP3;
constexpr auto Ogg = TargetKind::OggVorbis;
constexpr auto MPEGplus = TargetKind::MPEGplus;

bool ShowsMode(const IndexedList& list, const IndexedRow& row, const AppState& state) {
    const EncodingMode* mode = FindMode(CatalogueCode(list, row.index));
    // A custom preset without a code stays to tell that there could be one.
    return mode == nullptr || mode->preset(state) != nullptr || mode->enabled(state);
}

/// Whether anything shows between a separator and the next one in that direction.
template <typename Iterator>
bool ShowsAnyUpToSeparator(Iterator row, Iterator end, const std::function<bool(const IndexedRow&)>& shows) {
    for (; row != end && !row->IsSeparator(); ++row) {
        if (shows(*row)) return true;
    }
    return false;
}

}  // namespace

std::span<const MenuRow> MenuTable() {
    return Menus;
}

std::span<const ToolRow> ToolTable() {
    return Tools;
}

const std::vector<IndexedList>& IndexedLists() {
    static const std::vector<IndexedList> lists = {
        // clang-format off
        {"mnuWAVeEncode", "mnuWAVe_MP3Encoding", Modes, MP3, Command::Encode, LameModes},
        {"mnuWAVeEncodeOgg", "mnuWAVe_OggEncoding", Modes, Ogg, Command::EncodeOgg, OggModes},
        {"mnuWAVeEncodeMPPlus", "mnuWAVe_MPPlusEncoding", Modes, MPEGplus, Command::EncodeMPEGplus, MPEGplusModes},
        {"mnuMP3_ReEncodingMP3", "mnuMP3_ReEncodingMP3_Menu", Modes, MP3, Command::ReEncodeMP3, Without(LameModes, {320, 1256})},
        {"mnuMP3_ReEncodingOGG", "mnuMP3_ReEncodingOGG_Menu", Modes, Ogg, Command::ReEncodeOgg, Without(OggModes, {6, 17, 18, 19, 20})},
        {"mnuMP3_ReEncodingMPPlus", "mnuMP3_ReEncodingMPPlus_Menu", Modes, MPEGplus, Command::ReEncodeMPEGplus, Without(MPEGplusModes, {5, 6})},
        {"mnuMP3Rename", "mnuMP3RenameByID3", Rules, MP3, Command::RenameSelected, RenameRules},
        {"mnuM3URenameFiles", "mnuM3URenameFiles_submenu", Rules, MP3, Command::RenameByPlaylist, RenameRules},
        {"mnuToolsRename", "mnuToolsRenameByID3", Rules, MP3, Command::RenameAll, RenameRules},
        {"mnuToolsAutoRename", "mnuToolsAutoRenameByID3", Rules, MP3, Command::RenameByAllPlaylists, RenameRules},
        // clang-format on
    };
    return lists;
}

std::int32_t CatalogueCode(const IndexedList& list, std::int32_t index) {
    switch (list.target) {
        case TargetKind::OggVorbis:
            return 2000 + index;
        case TargetKind::MPEGplus:
            return 3000 + index;
        default:
            return index;
    }
}

const CustomPreset* PresetOf(const IndexedList& list, const IndexedRow& row, const AppState& state) {
    if (list.kind != IndexedKind::Modes || row.IsSeparator()) return nullptr;
    const EncodingMode* mode = FindMode(CatalogueCode(list, row.index));
    return mode != nullptr ? mode->preset(state) : nullptr;
}

std::vector<bool> ShownRows(const IndexedList& list, const AppState& state) {
    const auto shows = [&](const IndexedRow& row) {
        return list.kind != IndexedKind::Modes || ShowsMode(list, row, state);
    };
    std::vector<bool> shown;
    for (auto row = list.rows.begin(); row != list.rows.end(); ++row) {
        const bool isShown =
            row->IsSeparator()
                ? ShowsAnyUpToSeparator(std::next(row), list.rows.end(), shows) ||
                      ShowsAnyUpToSeparator(std::make_reverse_iterator(row), list.rows.rend(), shows)
                : shows(*row);
        shown.push_back(isShown);
    }
    return shown;
}

}  // namespace zefta
