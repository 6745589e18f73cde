#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/AppState.h"
#include "encoding/TargetKind.h"

namespace zefta {

/// What menus, toolbar and keys can ask for.
enum class Command : std::uint8_t {
    None,
    GoUp,
    OpenFolder,
    Rename,
    Delete,
    Refresh,
    Exit,
    Play,
    Append,
    Encode,
    EncodeOgg,
    EncodeMPEGplus,
    AdvancedEncoding,
    ReEncodeMP3,
    ReEncodeOgg,
    ReEncodeMPEGplus,
    RenameSelected,
    Decode,
    Properties,
    RenameByPlaylist,
    CopyPlaylist,
    CompressCD,
    MakeList,
    PlayFolder,
    AppendFolder,
    RenameAll,
    RenameByAllPlaylists,
    ExtendedRename,
    ChangeTags,
    ChangeTagsEx,
    Options,
    SysTray,
    HelpContents,
    WebKestrin,
    WebProgram,
    WebDownloads,
    About,
    // Keys of the list alone.
    Enter,
    PopUpMenu,
    SelectKind,
    DeselectKind,
    InvertSelection,
    FocusDrives,
};

/// A menu of the menu bar, or an item of one.
struct MenuRow {
    /// Name of the menu that it stands in; null for a menu of the bar.
    const char* menu;
    const char* control;
    /// Its caption.
    std::int32_t message;
    /// Key sequences, the one that the menu shows first; "" for none.
    const char* keys;
    /// None for a menu.
    Command command;
};

/// All of them, each behind the menu that it stands in.
std::span<const MenuRow> MenuTable();

/// An item of a list of items that share a handler.
struct IndexedRow {
    std::int32_t index;
    /// Null for a separator, "" for a custom preset or where `message` is the caption.
    const char* caption;
    std::int32_t message = 0;

    bool IsSeparator() const { return caption == nullptr; }
};

enum class IndexedKind : std::uint8_t { Modes, RenameRules };

/// A submenu whose items hand their index to one handler.
struct IndexedList {
    /// Name of the list; an item is called by it and the index.
    const char* list;
    /// The submenu that holds it.
    const char* menu;
    IndexedKind kind;
    /// For modes: which encoder, and with it what the indexes mean.
    TargetKind target;
    Command command;
    std::vector<IndexedRow> rows;
};

const std::vector<IndexedList>& IndexedLists();

/// The code in the catalogue of encoding modes that an item of a list of modes stands for.
std::int32_t CatalogueCode(const IndexedList& list, std::int32_t index);

/// The custom preset of an item; null for any other one.
const CustomPreset* PresetOf(const IndexedList& list, const IndexedRow& row, const AppState& state);

/// Which rows of the list show: modes that the person has enabled, and separators that stand next to a group
/// of which anything shows.
std::vector<bool> ShownRows(const IndexedList& list, const AppState& state);

/// A button of the toolbar.
struct ToolRow {
    const char* key;
    std::int32_t tip;
    Command command;
    /// Name in the icon themes of desktops; that of our own picture.
    const char* themeIcon;
    const char* ownIcon;
};

std::span<const ToolRow> ToolTable();

}  // namespace zefta
