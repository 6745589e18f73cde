#include "ui/CommandStage.h"
#include "ui/main/ListKeys.h"

namespace zefta::test {
namespace {

class ListKeysTest : public CommandStage {
  protected:
    ListKeysTest() {
        MakeFolder("sub");
        Make("a.mp3", Mp3().Bytes());
        Make("b.mp3", Mp3().Bytes());
        Make("c.wav");
        Make("d.m3u");
    }
};

TEST(KeyTable, IsTheDocumentedOne) {
    using Q = QKeyEvent;
    const auto commandOf = [](int key, Qt::KeyboardModifiers modifiers) {
        return CommandOfKey(Q(QEvent::KeyPress, key, modifiers));
    };
    const std::pair<std::pair<int, Qt::KeyboardModifiers>, Command> keys[] = {
        {{Qt::Key_Menu, Qt::NoModifier}, Command::PopUpMenu},
        {{Qt::Key_F10, Qt::ShiftModifier}, Command::PopUpMenu},
        {{Qt::Key_3, Qt::AltModifier}, Command::Properties},
        {{Qt::Key_Return, Qt::ControlModifier}, Command::Properties},
        {{Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier}, Command::Properties},
        {{Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier}, Command::SelectKind},
        {{Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier}, Command::DeselectKind},
        {{Qt::Key_Return, Qt::AltModifier}, Command::Play},
        {{Qt::Key_X, Qt::NoModifier}, Command::Play},
        {{0x0427, Qt::NoModifier}, Command::Play},
        {{Qt::Key_Return, Qt::ShiftModifier}, Command::Append},
        {{Qt::Key_F1, Qt::AltModifier}, Command::FocusDrives},
        {{Qt::Key_Return, Qt::NoModifier}, Command::Enter},
        {{Qt::Key_Enter, Qt::KeypadModifier}, Command::Enter},
        {{Qt::Key_Backspace, Qt::NoModifier}, Command::GoUp},
        {{Qt::Key_Asterisk, Qt::KeypadModifier}, Command::InvertSelection},
    };
    for (const auto& [key, command] : keys) EXPECT_EQ(commandOf(key.first, key.second), command) << key.first;
    EXPECT_EQ(KeyTable().size(), 13U);
    for (const auto& [key, modifiers] : {std::pair<int, Qt::KeyboardModifiers>{Qt::Key_Down, Qt::NoModifier},
                                         {Qt::Key_Asterisk, Qt::NoModifier},
                                         {Qt::Key_Plus, Qt::NoModifier},
                                         {Qt::Key_X, Qt::ControlModifier},
                                         {Qt::Key_F1, Qt::NoModifier}})
        EXPECT_EQ(commandOf(key, modifiers), std::nullopt) << key;
}

TEST_F(ListKeysTest, Arrows_MoveAndUpdateTheMenus) {
    Open();
    ClickRow("b.mp3");
    Key(Qt::Key_Down);
    EXPECT_EQ(SelectedNames(), (Texts{"c.wav"}));
    EXPECT_TRUE(IsMenuEnabled("mnuWAVe"));
    EXPECT_EQ(Status(), "c.wav");
}

TEST_F(ListKeysTest, MenuKey_PopsUpTheMenuOfTheRow) {
    Open();
    ClickRow("c.wav");
    Key(Qt::Key_Menu);
    EXPECT_TRUE(Menu("mnuWAVe").isVisible());
    const QRect row = View().visualRect(View().currentIndex());
    EXPECT_GE(Menu("mnuWAVe").y(), View().viewport()->mapToGlobal(row.bottomLeft()).y()) << "below its row";
    Menu("mnuWAVe").close();
    ClickRow("sub");
    Key(Qt::Key_Menu);
    for (const char* menu : {"mnuMP3", "mnuM3U", "mnuWAVe"}) EXPECT_FALSE(Menu(menu).isVisible());
}

TEST_F(ListKeysTest, NumericPlusAndMinusWithCtrl_SelectAndDeselectTheKind) {
    Open();
    ClickRow("a.mp3");
    Key(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(SelectedNames(), (Texts{"a.mp3", "b.mp3"}));
    ClickRow("c.wav", Qt::ControlModifier);
    ClickRow("b.mp3", Qt::ControlModifier);
    ClickRow("b.mp3", Qt::ControlModifier);
    Key(Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(SelectedNames(), (Texts{"c.wav"}));
}

TEST_F(ListKeysTest, NumericStar_InvertsTheSelection) {
    Open();
    SelectRows({"a.mp3", "c.wav"});
    Key(Qt::Key_Asterisk, Qt::KeypadModifier);
    EXPECT_EQ(SelectedNames(), (Texts{"sub", "d.m3u", "b.mp3"}));
}

TEST_F(ListKeysTest, PlayKeys_PlayAndAppend) {
    Open();
    ClickRow("c.wav");
    Key(Qt::Key_X);
    Key(Qt::Key_Return, Qt::AltModifier);
    Key(Qt::Key_Return, Qt::ShiftModifier);
    ASSERT_EQ(app.desktop.played.size(), 3U);
    EXPECT_FALSE(app.desktop.played[0].append);
    EXPECT_FALSE(app.desktop.played[1].append);
    EXPECT_TRUE(app.desktop.played[2].append);
    EXPECT_EQ(app.desktop.played[2].text, PathOf("c.wav") + "\n");
}

TEST_F(ListKeysTest, KeyThatIsHeld_CountsOnce) {
    Open();
    ClickRow("c.wav");
    Key(Qt::Key_X);
    for (int i = 0; i < 3; ++i) {
        QKeyEvent again(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, "x", true);
        QApplication::sendEvent(&View(), &again);
    }
    EXPECT_EQ(app.desktop.played.size(), 1U);
    EXPECT_EQ(SelectedNames(), (Texts{"c.wav"})) << "nor is it a letter of a name";
    for (const MenuRow& row : MenuTable()) {
        if (row.command != Command::None) {
            EXPECT_FALSE(Item(row.control).autoRepeat()) << row.control;
        }
    }
}

TEST_F(ListKeysTest, Enter_OnAFolderEntersItAndBackspaceGoesUp) {
    Open();
    ClickRow("sub");
    Key(Qt::Key_Return);
    EXPECT_EQ(Browser().Folder(), PathOf("sub"));
    EXPECT_EQ(app.files.CurrentFolder(), PathOf("sub"));
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Browser().Folder(), Music());
    EXPECT_EQ(SelectedNames(), (Texts{"sub"}));
}

TEST_F(ListKeysTest, Enter_OnTheWayUpGoesUp) {
    Open();
    ClickRow("..");
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Browser().Folder(), app.folder.Path());
}

TEST_F(ListKeysTest, Enter_OnAFileOpensItWithItsProgram) {
    Open();
    app.desktop.canOpenDocuments = false;
    for (const std::string name : {"d.m3u", "a.mp3", "c.wav"}) {
        ClickRow(name);
        Key(Qt::Key_Return);
        EXPECT_EQ(app.desktop.openedDocuments.back(), PathOf(name));
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ListKeysTest, Backspace_AtTheRootDoesNothing) {
    app.state.CurrentFolder = "/";
    Open();
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Browser().Folder(), "/");
    EXPECT_FALSE(Button("Up").isEnabled());
}

TEST_F(ListKeysTest, AltF1_OpensTheDrives) {
    Open();
    Key(Qt::Key_F1, Qt::AltModifier);
    auto* drives = window->findChild<QWidget*>("drvBox");
    EXPECT_TRUE(drives->hasFocus() || QApplication::activePopupWidget() != nullptr);
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
}

TEST_F(ListKeysTest, PropertiesKeys_AreSwallowedOnOtherRows) {
    Open();
    ClickRow("c.wav");
    Key(Qt::Key_3, Qt::AltModifier);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_TRUE(app.desktop.openedDocuments.empty());
}

TEST_F(ListKeysTest, DoubleClick_BehavesAsEnterOrGivesProperties) {
    Make("e.lqt");
    Open();
    const auto doubleClick = [&](const std::string& name) {
        ClickRow(name);
        QTest::mouseDClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, PlaceOf(name));
    };
    doubleClick("e.lqt");
    EXPECT_EQ(app.desktop.openedDocuments, (Texts{PathOf("e.lqt")}));
    app.state.FilePropertiesOnDblClick = true;
    doubleClick("e.lqt");
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(app.desktop.boxes[0].text, Message(32008));
    doubleClick("c.wav");
    EXPECT_EQ(app.desktop.openedDocuments.size(), 2U);
    doubleClick("sub");
    EXPECT_EQ(Browser().Folder(), PathOf("sub"));
}

}  // namespace
}  // namespace zefta::test
