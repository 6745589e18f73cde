#include <map>

#include "ui/CommandStage.h"

namespace zefta::test {
namespace {

class MainMenuTest : public CommandStage {
  protected:
    std::string TextOf(const std::string& item) { return FromQt(Item(item).text()); }
};

TEST_F(MainMenuTest, Captions_AreTheMessages) {
    Open();
    for (const MenuRow& row : MenuTable()) {
        const QString caption =
            row.command == Command::None ? Menu(row.control).title() : Item(row.control).text();
        EXPECT_EQ(FromQt(caption), Message(row.message)) << row.control;
    }
}

TEST_F(MainMenuTest, Captions_FollowTheLanguage) {
    app.folder.Write("x.lng", "32101 = &Akte\r\n32122 = x\r\n32310 = Neu (F5)\r\n");
    Open();
    app.state.ExternalLanguageFile = app.folder / "x.lng";
    app.state.EnableExternalLanguage = true;
    CancelNextDialog();
    ClickItem("mnuToolsOptions");
    EXPECT_EQ(FromQt(Menu("mnuFile").title()), "&Akte");
    EXPECT_EQ(FromQt(Button("Refresh").toolTip()), "Neu (F5)");
}

TEST_F(MainMenuTest, ModeCaptions_AreTheDocumentedOnes) {
    Open();
    EXPECT_EQ(TextOf("mnuWAVeEncode_128"), "128 kbps");
    EXPECT_EQ(TextOf("mnuWAVeEncode_555"), "VBR: 200-300 kbps");
    EXPECT_EQ(TextOf("mnuWAVeEncode_1256"), "ABR: 256 kbps ");
    EXPECT_EQ(TextOf("mnuWAVeEncodeOgg_6"), "350 kbps");
    EXPECT_EQ(TextOf("mnuWAVeEncodeOgg_20"), "Quality 10");
    EXPECT_EQ(TextOf("mnuWAVeEncodeMPPlus_6"), "BrainDead");
    EXPECT_EQ(TextOf("mnuMP3_ReEncodingOGG_15"), "Quality 5");
    EXPECT_EQ(TextOf("mnuMP3Rename_4"), "&4: Artist\\Title (Mix).MP3");
    EXPECT_EQ(TextOf("mnuToolsAutoRename_6"), Message(32181));
    EXPECT_TRUE(Item("mnuWAVeEncode_444").isSeparator());
}

TEST_F(MainMenuTest, Presets_ShowTheirNameInBothLists) {
    app.state.CustomLAMEPreset[0] = {"Rock & Roll", "-b 1"};
    app.state.CustomLAMEPreset[1] = {"", "-b 1"};
    app.state.CustomLAMEPreset[2] = {"Name", ""};
    Open();
    for (const std::string list : {"mnuWAVeEncode_", "mnuMP3_ReEncodingMP3_"}) {
        EXPECT_EQ(TextOf(list + "9001"), "Rock && Roll");
        EXPECT_TRUE(Item(list + "9001").isEnabled());
        for (const std::string index : {"9002", "9003"}) {
            EXPECT_EQ(TextOf(list + index), Message(32118));
            EXPECT_FALSE(Item(list + index).isEnabled());
            EXPECT_TRUE(Item(list + index).isVisible());
        }
    }
}

TEST_F(MainMenuTest, ModeThatIsNotEnabled_IsHiddenInBothLists) {
    app.state.EnableOGGq[5] = false;
    Open();
    EXPECT_FALSE(Item("mnuWAVeEncodeOgg_15").isVisible());
    EXPECT_FALSE(Item("mnuMP3_ReEncodingOGG_15").isVisible());
    EXPECT_TRUE(Item("mnuWAVeEncodeOgg_16").isVisible());
}

TEST_F(MainMenuTest, Options_LoadCaptionsAndModesAgain) {
    Open();
    app.state.EnableLAME128 = false;
    app.state.CustomOGGPreset[0] = {"Mine", "-q 3"};
    CancelNextDialog();
    Key(Qt::Key_F12);
    EXPECT_FALSE(Item("mnuWAVeEncode_128").isVisible());
    EXPECT_EQ(TextOf("mnuWAVeEncodeOgg_31"), "Mine");
}

TEST_F(MainMenuTest, NothingSelected_NoItemMenu) {
    Make("a.mp3");
    Open();
    for (const char* menu : {"mnuMP3", "mnuM3U", "mnuWAVe"}) EXPECT_FALSE(IsMenuEnabled(menu)) << menu;
    for (const char* key : {"Decode", "Properties", "Encode", "CopyPlaylist"})
        EXPECT_FALSE(Button(key).isEnabled()) << key;
    EXPECT_TRUE(IsMenuEnabled("mnuFile"));
    EXPECT_TRUE(Button("Refresh").isEnabled());
}

TEST_F(MainMenuTest, ClickOnARow_EnablesTheMenuOfItsKind) {
    Make("a.mp3", Mp3().Bytes());
    Make("b.wav");
    Make("c.m3u");
    MakeFolder("sub");
    Open();
    struct Case {
        const char* row;
        const char* menu;
        std::vector<const char*> buttons;
    };
    const std::vector<const char*> all = {"Decode", "Properties", "Encode", "CopyPlaylist"};
    const std::vector<Case> cases = {{"a.mp3", "mnuMP3", {"Decode", "Properties"}},
                                     {"b.wav", "mnuWAVe", {"Encode"}},
                                     {"c.m3u", "mnuM3U", {"CopyPlaylist"}},
                                     {"sub", "", {}}};
    for (const Case& each : cases) {
        ClickRow(each.row);
        EXPECT_EQ(Status(), each.row);
        for (const std::string menu : {"mnuMP3", "mnuM3U", "mnuWAVe"})
            EXPECT_EQ(IsMenuEnabled(menu), menu == each.menu) << each.row << menu;
        for (const char* key : all)
            EXPECT_EQ(Button(key).isEnabled(),
                      std::count(each.buttons.begin(), each.buttons.end(), std::string(key)) > 0)
                << each.row << key;
    }
}

TEST_F(MainMenuTest, OneMP3AndOneWave_TheWaveLast_EnablesWaves) {
    Make("a.mp3", Mp3().Bytes());
    Make("b.wav");
    Open();
    SelectRows({"a.mp3", "b.wav"});
    window->Commands().UpdateMenuAndToolbar(true);
    EXPECT_TRUE(IsMenuEnabled("mnuWAVe"));
    EXPECT_FALSE(IsMenuEnabled("mnuMP3"));
    EXPECT_EQ(Status(), "");
    SelectRows({"b.wav", "a.mp3"});
    EXPECT_TRUE(IsMenuEnabled("mnuMP3"));
    window->Commands().UpdateMenuAndToolbar(true);
    EXPECT_FALSE(IsMenuEnabled("mnuMP3"));
    EXPECT_TRUE(IsMenuEnabled("mnuWAVe"));
}

TEST_F(MainMenuTest, Refresh_ClosesTheItemMenus) {
    Make("a.mp3", Mp3().Bytes());
    Open();
    ClickRow("a.mp3");
    EXPECT_TRUE(IsMenuEnabled("mnuMP3"));
    Key(Qt::Key_F5);
    EXPECT_FALSE(IsMenuEnabled("mnuMP3"));
    EXPECT_EQ(Status(), "");
}

TEST_F(MainMenuTest, KeyOfAnItemInADisabledMenu_DoesNothing) {
    Make("b.wav");
    Open();
    ClickRow("b.wav");
    Key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(app.desktop.questions.empty());
}

TEST_F(MainMenuTest, RightButton_PopsUpTheMenuOfTheRow) {
    Make("a.mp3", Mp3().Bytes());
    Make("b.wav");
    Make("c.m3u");
    MakeFolder("sub");
    Open();
    for (const auto& [row, menu] :
         std::map<std::string, std::string>{{"a.mp3", "mnuMP3"}, {"b.wav", "mnuWAVe"}, {"c.m3u", "mnuM3U"}}) {
        QTest::mouseClick(View().viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf(row));
        EXPECT_EQ(SelectedNames(), (Texts{row}));
        EXPECT_EQ(Status(), row);
        EXPECT_TRUE(Menu(menu).isVisible()) << row;
        Menu(menu).close();
    }
    QTest::mouseClick(View().viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf("sub"));
    for (const char* menu : {"mnuMP3", "mnuM3U", "mnuWAVe"}) EXPECT_FALSE(Menu(menu).isVisible());
}

TEST_F(MainMenuTest, RightButtonOnASelectedRow_KeepsTheSelection) {
    Make("a.mp3", Mp3().Bytes());
    Make("b.mp3", Mp3().Bytes());
    Open();
    SelectRows({"a.mp3", "b.mp3"});
    QTest::mouseClick(View().viewport(), Qt::RightButton, Qt::NoModifier, PlaceOf("a.mp3"));
    EXPECT_EQ(SelectedNames(), (Texts{"a.mp3", "b.mp3"}));
    EXPECT_TRUE(Menu("mnuMP3").isVisible());
    Menu("mnuMP3").close();
}

}  // namespace
}  // namespace zefta::test
