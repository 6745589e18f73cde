#include <QApplication>
#include <QIcon>
#include <QStyle>
#include <map>

#include "ui/CommandStage.h"

namespace zefta::test {
namespace {

class ToolbarTest : public CommandStage {};

TEST_F(ToolbarTest, Buttons_StandInOrderWithTheirTips) {
    Open();
    const std::vector<std::pair<std::string, int>> tips = {
        {"Up", 32301},           {"OpenFolder", 32302}, {"Refresh", 32310},    {"Encode", 32303},
        {"Decode", 32304},       {"Properties", 32305}, {"Delete", 32306},     {"Rename", 32307},
        {"CopyPlaylist", 32308}, {"Options", 32309},    {"CompressCD", 32311}, {"Play", 32312},
        {"Append", 32313},
    };
    std::size_t index = 0;
    for (const QAction* action : window->findChild<MainToolBar*>()->actions()) {
        ASSERT_LT(index, tips.size());
        EXPECT_EQ(FromQt(action->objectName()), tips[index].first);
        EXPECT_EQ(FromQt(action->toolTip()), Message(tips[index].second));
        EXPECT_EQ(FromQt(Button(tips[index].first).accessibleName()), Message(tips[index].second));
        ++index;
    }
    EXPECT_EQ(index, tips.size());
}

TEST_F(ToolbarTest, Icons_AreOursWhereTheDesktopHasNone) {
    Open();
    for (const ToolRow& row : ToolTable()) {
        const QIcon own(QString(":/icons/%1.svg").arg(row.ownIcon));
        EXPECT_FALSE(own.pixmap(48, 48).isNull()) << row.ownIcon;
        EXPECT_FALSE(Button(row.key).icon().pixmap(24, 24).isNull()) << row.key;
    }
}

TEST_F(ToolbarTest, Icons_AreShownInTheSizeInWhichTheyAreDrawnAhead) {
    Open();
    const auto& bar = *window->findChild<MainToolBar*>();
    const int side = QApplication::style()->pixelMetric(QStyle::PM_ToolBarIconSize);
    EXPECT_EQ(bar.iconSize(), QSize(side, side));
    const QStringList drawn = MainToolBar::OwnPictures();
    for (const ToolRow& row : ToolTable()) {
        const bool isOwn = drawn.contains(row.ownIcon);
        EXPECT_TRUE(isOwn || *row.themeIcon != '\0') << row.ownIcon;
    }
}

TEST_F(ToolbarTest, EachButton_DoesWhatItsMenuItemDoes) {
    MakeFolder("sub");
    Make("a.mp3", Mp3().Bytes());
    Make("b.wav");
    Make("c.m3u", "a.mp3\n");
    Make("d.lqt");
    app.state.CurrentFolder = PathOf("sub");
    Open();
    ClickButton("Up");
    EXPECT_EQ(Browser().Folder(), Music());
    ClickButton("OpenFolder");
    EXPECT_EQ(app.desktop.questions.back().text, Message(32001));
    Make("new.mp3");
    ClickButton("Refresh");
    ClickRow("new.mp3");
    ClickButton("Decode");
    EXPECT_EQ(app.desktop.questions.back().text, Message(32007));
    ClickButton("Delete");
    EXPECT_EQ(app.desktop.questions.back().text, Message(32002, "new.mp3"));
    ClickButton("Rename");
    EXPECT_EQ(app.desktop.questions.back().text, Message(32004));
    ClickRow("d.lqt");
    ClickButton("Properties");
    EXPECT_EQ(app.desktop.boxes.back().text, Message(32008));
    ClickRow("b.wav");
    ClickButton("Play");
    EXPECT_FALSE(app.desktop.played.back().append);
    ClickButton("Append");
    EXPECT_TRUE(app.desktop.played.back().append);
    ClickButton("CompressCD");
    EXPECT_EQ(app.processes.started.back(), "\"/opt/zefta/zefta\" /compress_audio_cd");
    ClickRow("c.m3u");
    app.desktop.folders.push_back("");
    ClickButton("CopyPlaylist");
    EXPECT_EQ(app.desktop.questions.back().text, Message(10001));
}

TEST_F(ToolbarTest, ButtonsOfDialogs_OpenThem) {
    Make("b.wav");
    Open();
    ClickRow("b.wav");
    CancelNextDialog();
    ClickButton("Encode");
    EXPECT_EQ(cancelledDialog, "frmEncode");
    CancelNextDialog();
    ClickButton("Options");
    EXPECT_EQ(cancelledDialog, "frmSetup");
}

TEST_F(ToolbarTest, Buttons_AreReachedByTabAndPressedBySpace) {
    Open();
    Button("Delete").setFocus();
    EXPECT_NE(Button("Refresh").focusPolicy() & Qt::TabFocus, 0);
    QTest::keyClick(&Button("OpenFolder"), Qt::Key_Space);
    EXPECT_EQ(app.desktop.questions.back().text, Message(32001));
}

}  // namespace
}  // namespace zefta::test
