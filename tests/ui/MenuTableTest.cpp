#include <QStringList>
#include <algorithm>
#include <map>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "encoding/ModeCatalogue.h"
#include "support/TestApp.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/main/MenuTable.h"
#include "ui/main/RowState.h"

namespace zefta::test {
namespace {

const IndexedList& ListOf(const std::string& name) {
    for (const IndexedList& list : IndexedLists()) {
        if (list.list == name) return list;
    }
    throw std::out_of_range(name);
}

/// The shown indexes of the list.
std::vector<int> Shown(const std::string& name, const AppState& state) {
    const IndexedList& list = ListOf(name);
    const std::vector<bool> shown = ShownRows(list, state);
    std::vector<int> indexes;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (shown[i]) indexes.push_back(list.rows[i].index);
    }
    return indexes;
}

using Indexes = std::vector<int>;

TEST(MenuTable, Controls_AreThereOnceWithTheirCaptionsInBothLanguages) {
    std::set<std::string> names;
    for (const char* language : {"en_GB", "ru_RU"}) {
        TestWorld world;
        world.machine.language = language;
        App app(world.machine, world.files, world.desktop, world.processes, world.userSettings,
                world.machineSettings);
        for (const MenuRow& row : MenuTable())
            EXPECT_NE(app.messages.GetMessage(row.message), "") << row.control;
        for (const ToolRow& row : ToolTable()) EXPECT_NE(app.messages.GetMessage(row.tip), "") << row.key;
    }
    for (const MenuRow& row : MenuTable()) EXPECT_TRUE(names.insert(row.control).second) << row.control;
    for (const IndexedList& list : IndexedLists()) {
        EXPECT_TRUE(names.insert(list.list).second) << list.list;
        EXPECT_TRUE(names.contains(list.menu)) << list.menu;
    }
}

TEST(MenuTable, LettersOfTheBarAndThePathBox_AreDistinct) {
    for (const char* language : {"en_GB", "ru_RU"}) {
        TestWorld world;
        world.machine.language = language;
        App app(world.machine, world.files, world.desktop, world.processes, world.userSettings,
                world.machineSettings);
        QStringList captions = {OwnText(app, WindowText::FolderLabel)};
        for (const MenuRow& row : MenuTable()) {
            if (row.menu == nullptr) captions.append(ToQt(app.messages.GetMessage(row.message)));
        }
        std::set<QString> letters;
        for (const QString& caption : captions)
            EXPECT_TRUE(letters.insert(caption.mid(caption.indexOf('&') + 1, 1).toLower()).second)
                << FromQt(caption);
    }
}

TEST(MenuTable, Keys_AreTheDocumentedOnes) {
    const std::map<std::string, std::string> keys = {
        {"mnuFileOpenFolder", "F3"},      {"mnuFileRename", "F2; F6"},        {"mnuFileDelete", "Del; F8"},
        {"mnuFileRefresh", "F5"},         {"mnuFileExit", "Ctrl+W"},          {"mnuWAVeEncodeEx", "Ctrl+E"},
        {"mnuMP3DecodeAll", "Ctrl+D"},    {"mnuToolsCompressCD", "F11"},      {"mnuToolsMakeList", "Ctrl+G"},
        {"mnuToolsPlayFolder", "Ctrl+P"}, {"mnuToolsAppendFolder", "Ctrl+L"}, {"mnuToolsRenameExt", "Ctrl+R"},
        {"mnuToolsChangeTags", "Ctrl+U"}, {"mnuToolsChangeTagsEx", "Ctrl+I"}, {"mnuToolsOptions", "F12"},
    };
    for (const MenuRow& row : MenuTable()) {
        const auto found = keys.find(row.control);
        EXPECT_EQ(row.keys, found == keys.end() ? "" : found->second) << row.control;
    }
}

TEST(MenuTable, ModeLists_HoldTheirIndexes) {
    const Indexes lame = {128,  160,  192,  256,  320,  444,  555,  666,
                          1128, 1160, 1192, 1256, 9000, 9001, 9002, 9003};
    const Indexes ogg = {1, 2, 3, 4, 5, 6, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 30, 31, 32, 33};
    const AppState state;
    EXPECT_EQ(Shown("mnuWAVeEncode", state), lame);
    EXPECT_EQ(Shown("mnuWAVeEncodeOgg", state), ogg);
    EXPECT_EQ(Shown("mnuWAVeEncodeMPPlus", state), (Indexes{1, 2, 3, 4, 5, 6, 10, 11, 12, 13}));
    EXPECT_EQ(Shown("mnuMP3_ReEncodingMP3", state),
              (Indexes{128, 160, 192, 256, 444, 555, 666, 1128, 1160, 1192, 9000, 9001, 9002, 9003}));
    EXPECT_EQ(Shown("mnuMP3_ReEncodingOGG", state),
              (Indexes{1, 2, 3, 4, 5, 9, 10, 11, 12, 13, 14, 15, 16, 30, 31, 32, 33}));
    EXPECT_EQ(Shown("mnuMP3_ReEncodingMPPlus", state), (Indexes{1, 2, 3, 4, 10, 11, 12, 13}));
    for (const char* rename : {"mnuMP3Rename", "mnuM3URenameFiles", "mnuToolsRename", "mnuToolsAutoRename"})
        EXPECT_EQ(Shown(rename, state), (Indexes{1, 2, 3, 4, 5, 6}));
}

TEST(MenuTable, EveryMode_IsInTheCatalogue) {
    for (const IndexedList& list : IndexedLists()) {
        if (list.kind != IndexedKind::Modes) continue;
        for (const IndexedRow& row : list.rows)
            EXPECT_EQ(FindMode(CatalogueCode(list, row.index)) == nullptr, row.IsSeparator())
                << list.list << row.index;
    }
}

TEST(MenuTable, ModeThatIsNotEnabled_IsHiddenInBothLists) {
    AppState state;
    state.EnableOGGq[5] = false;
    state.EnableLAME128ABR = false;
    state.EnableMPCm[0] = false;
    for (const char* list : {"mnuWAVeEncodeOgg", "mnuMP3_ReEncodingOGG"}) {
        const Indexes shown = Shown(list, state);
        EXPECT_EQ(std::count(shown.begin(), shown.end(), 15), 0) << list;
        EXPECT_EQ(std::count(shown.begin(), shown.end(), 14), 1) << list;
    }
    for (const char* list : {"mnuWAVeEncode", "mnuMP3_ReEncodingMP3"}) {
        const Indexes shown = Shown(list, state);
        EXPECT_EQ(std::count(shown.begin(), shown.end(), 1128), 0) << list;
    }
    EXPECT_EQ(Shown("mnuWAVeEncodeMPPlus", state).front(), 2);
    EXPECT_EQ(Shown("mnuMP3_ReEncodingMPPlus", state).front(), 2);
}

TEST(MenuTable, Separator_ShowsNextToAGroupOfWhichAnythingShows) {
    AppState state;
    state.EnableLAMEVBR = false;
    state.EnableLAME128ABR = state.EnableLAME160ABR = state.EnableLAME192ABR = state.EnableLAME256ABR = false;
    EXPECT_EQ(Shown("mnuWAVeEncode", state), (Indexes{128, 160, 192, 256, 320, 444, 9000, 9001, 9002, 9003}));
    state.EnableLAME128 = state.EnableLAME160 = state.EnableLAME192 = false;
    state.EnableLAME256 = state.EnableLAME320 = false;
    EXPECT_EQ(Shown("mnuWAVeEncode", state), (Indexes{9000, 9001, 9002, 9003}));
}

SelectedRow Compressed(const char* name) {
    return {RowIcon::Compressed, name};
}

TEST(RowState, FocusedRow_DecidesByItsKind) {
    const CodePage ansi = LoadCodePage(1252);
    EXPECT_EQ(RowStateOf(Compressed("a.mp3"), {}, false, ansi), (RowState{true, false, false, "a.mp3"}));
    EXPECT_EQ(RowStateOf(SelectedRow{RowIcon::Playlist, "l.m3u"}, {}, false, ansi),
              (RowState{false, true, false, "l.m3u"}));
    EXPECT_EQ(RowStateOf(SelectedRow{RowIcon::Wave, "\xD6.wav"}, {}, false, ansi),
              (RowState{false, false, true, "Ö.wav"}));
    EXPECT_EQ(RowStateOf(SelectedRow{RowIcon::Folder, "f"}, {Compressed("a.mp3")}, false, ansi),
              (RowState{false, false, false, "f"}));
}

TEST(RowState, WithoutFocusOrByForce_TheLastSelectedRowDecides) {
    const CodePage ansi = LoadCodePage(1252);
    const SelectedRow wave = {RowIcon::Wave, "b.wav"};
    const SelectedRow list = {RowIcon::Playlist, "l.m3u"};
    EXPECT_EQ(RowStateOf(std::nullopt, {}, false, ansi), RowState{});
    EXPECT_EQ(RowStateOf(std::nullopt, {Compressed("a.mp3"), wave}, false, ansi),
              (RowState{false, false, true, ""}));
    EXPECT_EQ(RowStateOf(wave, {wave, Compressed("c.mp3")}, true, ansi), (RowState{true, false, false, ""}));
    EXPECT_EQ(RowStateOf(list, {list}, true, ansi), RowState{});
}

}  // namespace
}  // namespace zefta::test
