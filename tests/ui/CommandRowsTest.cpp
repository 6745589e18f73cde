// The menus of the main window row for row: what people and manuals know them by.

#include <map>

#include "ui/CommandStage.h"

namespace zefta::test {
namespace {

struct MenuItemRow {
    const char* control;
    int message;
};

struct MenuRows {
    const char* menu;
    int message;
    std::vector<MenuItemRow> items;
};

const std::vector<MenuRows> MenuTree = {
    {"mnuFile",
     32101,
     {{"mnuFileOpenFolder", 32102},
      {"mnuFileRename", 32103},
      {"mnuFileDelete", 32104},
      {"mnuFileRefresh", 32105},
      {"mnuFileExit", 32106}}},
    {"mnuWAVe",
     32111,
     {{"mnuWAVePlay", 32112},
      {"mnuWAVeAppend", 32113},
      {"mnuWAVe_MP3Encoding", 32114},
      {"mnuWAVe_OggEncoding", 32115},
      {"mnuWAVe_MPPlusEncoding", 32117},
      {"mnuWAVeEncodeEx", 32116}}},
    {"mnuMP3",
     32131,
     {{"mnuMP3Play", 32132},
      {"mnuMP3Append", 32133},
      {"mnuMP3_ReEncodingMP3_Menu", 32136},
      {"mnuMP3_ReEncodingOGG_Menu", 32137},
      {"mnuMP3_ReEncodingMPPlus_Menu", 32139},
      {"mnuMP3RenameByID3", 32138},
      {"mnuMP3DecodeAll", 32134},
      {"mnuMP3Properties", 32135}}},
    {"mnuM3U",
     32151,
     {{"mnuM3UPlay", 32152},
      {"mnuM3UAppend", 32153},
      {"mnuM3URenameFiles_submenu", 32155},
      {"mnuM3UCopy", 32154}}},
    {"mnuTools",
     32171,
     {{"mnuToolsCompressCD", 32172},
      {"mnuToolsMakeList", 32173},
      {"mnuToolsPlayFolder", 32174},
      {"mnuToolsAppendFolder", 32175},
      {"mnuToolsRenameByID3", 32176},
      {"mnuToolsAutoRenameByID3", 32177},
      {"mnuToolsRenameExt", 32180},
      {"mnuToolsChangeTags", 32182},
      {"mnuToolsChangeTagsEx", 32183},
      {"mnuToolsOptions", 32178},
      {"mnuToolsSysTray", 32179}}},
    {"mnuHelp",
     32191,
     {{"mnuHelpContents", 32192},
      {"mnuHelpWWWKestrin", 32194},
      {"mnuHelpWWWProgram", 32195},
      {"mnuHelpWWWDownloads", 32196},
      {"mnuHelpAbout", 32193}}},
};

using IndexedCaptions = std::map<int, std::string>;

const IndexedCaptions LameCaptions = {{128, "128 kbps"},
                                      {160, "160 kbps"},
                                      {192, "192 kbps"},
                                      {256, "256 kbps"},
                                      {320, "320 kbps"},
                                      {444, ""},
                                      {555, "VBR: 200-300 kbps"},
                                      {666, ""},
                                      {1128, "ABR: 128 kbps "},
                                      {1160, "ABR: 160 kbps "},
                                      {1192, "ABR: 192 kbps "},
                                      {1256, "ABR: 256 kbps "},
                                      {9000, ""}};
const IndexedCaptions OggCaptions = {
    {1, "112 kbps"},   {2, "128 kbps"},   {3, "160 kbps"},    {4, "192 kbps"},   {5, "256 kbps"},
    {6, "350 kbps"},   {9, ""},           {10, "Quality 0"},  {11, "Quality 1"}, {12, "Quality 2"},
    {13, "Quality 3"}, {14, "Quality 4"}, {15, "Quality 5"},  {16, "Quality 6"}, {17, "Quality 7"},
    {18, "Quality 8"}, {19, "Quality 9"}, {20, "Quality 10"}, {30, ""}};
const IndexedCaptions MPEGplusCaptions = {{1, "Thumb"},  {2, "Radio"},     {3, "Standard"}, {4, "Xtreme"},
                                          {5, "Insane"}, {6, "BrainDead"}, {10, ""}};

class CommandRowsTest : public CommandStage {
  protected:
    /// Names of the items and of the menus among them.
    static Texts NamesOf(const QList<QAction*>& actions) {
        Texts names;
        for (const QAction* action : actions)
            names.push_back(
                FromQt(action->menu() != nullptr ? action->menu()->objectName() : action->objectName()));
        return names;
    }

    std::string CaptionOf(const std::string& control) {
        auto* menu = window->findChild<QMenu*>(ToQt(control));
        return FromQt(menu != nullptr ? menu->title() : Item(control).text());
    }

    /// The rows of the list, without those that re-encoding leaves out.
    void ExpectCaptions(const std::string& list, IndexedCaptions captions, const std::vector<int>& without) {
        for (const int index : without) {
            captions.erase(index);
            EXPECT_EQ(window->findChild<QAction*>(ToQt(list + "_" + std::to_string(index))), nullptr) << list;
        }
        for (const auto& [index, caption] : captions) {
            const QAction& item = Item(list + "_" + std::to_string(index));
            EXPECT_EQ(item.isSeparator(), caption.empty()) << list << index;
            if (!caption.empty()) {
                EXPECT_EQ(FromQt(item.text()), caption) << list << index;
            }
        }
    }

    bool Shows(const std::string& item) { return Item(item).isVisible(); }
};

TEST_F(CommandRowsTest, Menus_HoldTheirItemsInOrderWithTheirMessages) {
    Open();
    Texts menus;
    for (const MenuRows& row : MenuTree) {
        menus.push_back(row.menu);
        EXPECT_EQ(CaptionOf(row.menu), Message(row.message));
        Texts items;
        for (const MenuItemRow& item : row.items) {
            items.push_back(item.control);
            EXPECT_EQ(CaptionOf(item.control), Message(item.message)) << item.control;
        }
        EXPECT_EQ(NamesOf(Menu(row.menu).actions()), items);
    }
    EXPECT_EQ(NamesOf(window->menuBar()->actions()), menus);
}

TEST_F(CommandRowsTest, ModeLists_HaveTheirCaptions) {
    Open();
    ExpectCaptions("mnuWAVeEncode", LameCaptions, {});
    ExpectCaptions("mnuWAVeEncodeOgg", OggCaptions, {});
    ExpectCaptions("mnuWAVeEncodeMPPlus", MPEGplusCaptions, {});
    ExpectCaptions("mnuMP3_ReEncodingMP3", LameCaptions, {320, 1256});
    ExpectCaptions("mnuMP3_ReEncodingOGG", OggCaptions, {6, 17, 18, 19, 20});
    ExpectCaptions("mnuMP3_ReEncodingMPPlus", MPEGplusCaptions, {5, 6});
}

TEST_F(CommandRowsTest, ListsOfModesAndRules_HangInTheirMenus) {
    Open();
    const std::map<std::string, std::string> menus = {
        {"mnuWAVeEncode_128", "mnuWAVe_MP3Encoding"},
        {"mnuWAVeEncodeOgg_1", "mnuWAVe_OggEncoding"},
        {"mnuWAVeEncodeMPPlus_1", "mnuWAVe_MPPlusEncoding"},
        {"mnuMP3_ReEncodingMP3_128", "mnuMP3_ReEncodingMP3_Menu"},
        {"mnuMP3_ReEncodingOGG_1", "mnuMP3_ReEncodingOGG_Menu"},
        {"mnuMP3_ReEncodingMPPlus_1", "mnuMP3_ReEncodingMPPlus_Menu"},
        {"mnuMP3Rename_1", "mnuMP3RenameByID3"},
        {"mnuM3URenameFiles_1", "mnuM3URenameFiles_submenu"},
        {"mnuToolsRename_1", "mnuToolsRenameByID3"},
        {"mnuToolsAutoRename_1", "mnuToolsAutoRenameByID3"},
    };
    for (const auto& [item, menu] : menus) EXPECT_EQ(FromQt(Item(item).parent()->objectName()), menu) << item;
}

TEST_F(CommandRowsTest, RenameLists_HaveTheSixRules) {
    Open();
    const Texts rules = {"&1: Artist - Title.MP3",      "&2: Artist - Title (Mix).MP3", "&3: Title (Mix).MP3",
                         "&4: Artist\\Title (Mix).MP3", "&5: Artist_-_Title_(Mix).MP3", Message(32181)};
    for (const std::string list :
         {"mnuMP3Rename_", "mnuM3URenameFiles_", "mnuToolsRename_", "mnuToolsAutoRename_"}) {
        for (std::size_t i = 0; i < rules.size(); ++i)
            EXPECT_EQ(CaptionOf(list + std::to_string(i + 1)), rules[i]) << list;
    }
}

TEST_F(CommandRowsTest, QuestionOfARename_NamesTheRule) {
    app.state.CustomRenameTemplate = "%T";
    Make("a.mp3", Mp3().Bytes());
    Open();
    const Texts shown = {"Artist - Title.MP3",      "Artist - Title (Mix).MP3", "Title (Mix).MP3",
                         "Artist\\Title (Mix).MP3", "Artist_-_Title_(Mix).MP3", "%T"};
    for (std::size_t i = 0; i < shown.size(); ++i) {
        ClickRow("a.mp3");
        Item("mnuMP3Rename_" + std::to_string(i + 1)).trigger();
        EXPECT_EQ(Question(i), Message(32004) + ": " + Message(32023, shown[i]));
    }
}

TEST_F(CommandRowsTest, PresetsOfAllEncoders_ShowTheirNameInBothLists) {
    app.state.CustomLAMEPreset[2] = {"Lame three", "-b 1"};
    app.state.CustomOGGPreset[0] = {"Ogg one", "-q 1"};
    app.state.CustomOGGPreset[1] = {"Ogg two", ""};
    app.state.CustomOGGPreset[2] = {"", "-q 1"};
    app.state.CustomMPCPreset[1] = {"Plus two", "--radio"};
    app.state.CustomMPCPreset[2] = {"", ""};
    Open();
    const std::string none = Message(32118);
    const std::map<std::string, std::string> captions = {
        {"mnuWAVeEncode_9003", "Lame three"},   {"mnuMP3_ReEncodingMP3_9003", "Lame three"},
        {"mnuWAVeEncodeOgg_31", "Ogg one"},     {"mnuMP3_ReEncodingOGG_31", "Ogg one"},
        {"mnuWAVeEncodeOgg_32", none},          {"mnuMP3_ReEncodingOGG_32", none},
        {"mnuWAVeEncodeOgg_33", none},          {"mnuMP3_ReEncodingOGG_33", none},
        {"mnuWAVeEncodeMPPlus_12", "Plus two"}, {"mnuMP3_ReEncodingMPPlus_12", "Plus two"},
        {"mnuWAVeEncodeMPPlus_13", none},       {"mnuMP3_ReEncodingMPPlus_13", none},
    };
    for (const auto& [item, caption] : captions) {
        EXPECT_EQ(CaptionOf(item), caption) << item;
        EXPECT_EQ(Item(item).isEnabled(), caption != none) << item;
    }
}

TEST_F(CommandRowsTest, SeparatorsOfOggAndMPEGplus_ShowBetweenGroups) {
    for (bool& mode : app.state.EnableOGGb) mode = false;
    for (bool& mode : app.state.EnableMPCm) mode = false;
    Open();
    for (const char* item : {"mnuWAVeEncodeOgg_9", "mnuMP3_ReEncodingOGG_9", "mnuWAVeEncodeOgg_30",
                             "mnuWAVeEncodeMPPlus_10", "mnuMP3_ReEncodingMPPlus_10"})
        EXPECT_TRUE(Shows(item)) << item;
    EXPECT_FALSE(Shows("mnuWAVeEncodeOgg_1"));
    for (bool& mode : app.state.EnableOGGq) mode = false;
    CancelNextDialog();
    Key(Qt::Key_F12);
    EXPECT_EQ(cancelledDialog, "frmSetup");
    EXPECT_FALSE(Shows("mnuWAVeEncodeOgg_9"));
    EXPECT_FALSE(Shows("mnuMP3_ReEncodingOGG_9"));
    EXPECT_TRUE(Shows("mnuWAVeEncodeOgg_30")) << "in front of the presets";
}

}  // namespace
}  // namespace zefta::test
