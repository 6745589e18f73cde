#include <QCompleter>
#include <QToolButton>
#include <QWheelEvent>

#include "ui/ListStage.h"
#include "ui/list/DriveBox.h"
#include "ui/list/PathBox.h"

namespace zefta::test {
namespace {

class FolderPath : public ListStage {
  protected:
    void SetUp() override {
        app.files.CreateFolder(app.folder / "sub");
        app.files.CreateFolder(app.folder / "sub/inner");
        app.files.CreateFolder(app.folder / "Songs");
        Open();
        Show();
    }

    PathBox& Path() const { return Child<PathBox>("cmbPath"); }
    DriveBox& Drives() const { return Child<DriveBox>("drvBox"); }

    void Type(const std::string& text) {
        Path().setFocus();
        Path().lineEdit()->selectAll();
        QTest::keyClicks(&Path(), ToQt(text));
        QTest::keyClick(&Path(), Qt::Key_Return);
    }

    Texts DriveTexts() const {
        Texts texts;
        for (int i = 0; i < Drives().count(); ++i) texts.push_back(FromQt(Drives().itemText(i)));
        return texts;
    }
};

TEST_F(FolderPath, TypedFolder_IsEnteredAndRemembered) {
    QSignalSpy lists(&browser, &FolderBrowser::ListChanged);
    Type(app.folder / "sub");
    EXPECT_EQ(browser.Folder(), app.folder / "sub");
    EXPECT_EQ(browser.History(), Texts{app.folder / "sub"});
    EXPECT_EQ(lists.size(), 1);
    Type(app.folder / "Songs");
    EXPECT_EQ(browser.History(), (Texts{app.folder / "Songs", app.folder / "sub"})) << "the newest on top";
    lists.clear();
    Type(app.folder / "sub");
    EXPECT_EQ(browser.History(), (Texts{app.folder / "Songs", app.folder / "sub"}));
    EXPECT_EQ(lists.size(), 1) << "a text that is in the list is entered once";
    EXPECT_EQ(browser.Folder(), app.folder / "sub");
}

TEST_F(FolderPath, TextThatIsLeft_IsNotEntered) {
    browser.SetHistory({app.folder / "sub"});
    Path().setFocus();
    Path().lineEdit()->selectAll();
    QTest::keyClicks(&Path(), ToQt(app.folder / "sub"));
    browser.View()->setFocus();
    EXPECT_EQ(browser.Folder(), app.folder.Path());
}

TEST_F(FolderPath, RelativePath_CountsFromTheFolderShown) {
    Type("sub/inner");
    EXPECT_EQ(browser.Folder(), app.folder / "sub/inner");
    EXPECT_EQ(PathText(), app.folder / "sub/inner");
    Type("..\\..\\Songs");
    EXPECT_EQ(app.files.CurrentFolder(), app.folder / "Songs");
}

TEST_F(FolderPath, EscapeKey_GivesThePathBack) {
    Path().setFocus();
    QTest::keyClicks(&Path(), "zzz");
    QTest::keyClick(&Path(), Qt::Key_Escape);
    EXPECT_EQ(PathText(), app.folder.Path());
    EXPECT_EQ(browser.Folder(), app.folder.Path());
}

TEST_F(FolderPath, ChosenItem_IsShown) {
    browser.SetHistory({app.folder / "sub", "", app.folder / "Songs"});
    EXPECT_EQ(browser.History(), (Texts{app.folder / "sub", app.folder / "Songs"}))
        << "empty entries are left out";
    EXPECT_EQ(PathText(), app.folder.Path());
    Path().setFocus();
    Path().showPopup();
    QTest::keyClick(Path().view(), Qt::Key_Down);
    QTest::keyClick(Path().view(), Qt::Key_Return);
    EXPECT_EQ(browser.Folder().substr(0, app.folder.Path().size() + 1), app.folder / "");
    EXPECT_EQ(PathText(), browser.Folder());
    EXPECT_EQ(browser.History().size(), 2U);
}

TEST_F(FolderPath, NameOfBytes_KeepsThemOnTheWayThroughTheBox) {
    const std::string folder = app.folder / "caf\xE9";
    app.files.CreateFolder(folder);
    browser.EnterTypedFolder(folder);
    EXPECT_EQ(browser.Folder(), folder);
    EXPECT_EQ(PathText(), app.folder / "café");
    QTest::keyClick(&Path(), Qt::Key_Return);
    EXPECT_EQ(browser.Folder(), folder) << "entered again as it stands";
    browser.ShowFolder(app.folder.Path());
    Path().lineEdit()->setText(ToQt(app.folder / "café"));
    QTest::keyClick(&Path(), Qt::Key_Return);
    EXPECT_EQ(browser.Folder(), folder) << "typed as the list shows it";
    EXPECT_EQ(browser.History(), Texts{folder});
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(FolderPath, Typing_OffersSubfolders) {
    Path().setFocus();
    Path().lineEdit()->clear();
    QTest::keyClicks(&Path(), ToQt(app.folder / "s"));
    const QCompleter* completer = Path().lineEdit()->completer();
    Texts offers;
    for (int i = 0; i < completer->completionModel()->rowCount(); ++i)
        offers.push_back(FromQt(completer->completionModel()->index(i, 0).data().toString()));
    EXPECT_EQ(offers, (Texts{app.folder / "Songs", app.folder / "sub"})) << "in any case";
}

TEST_F(FolderPath, Typing_OffersWhatIsThereByNow) {
    const auto offers = [&] {
        Path().setFocus();
        Path().lineEdit()->end(false);
        QTest::keyClicks(&Path(), "/so");
        return Path().lineEdit()->completer()->completionModel()->rowCount();
    };
    EXPECT_EQ(offers(), 1);
    app.files.CreateFolder(app.folder / "Sounds");
    browser.RefreshContents();
    EXPECT_EQ(offers(), 2);
}

TEST_F(FolderPath, BrowseButton_EntersTheChosenFolder) {
    app.desktop.folders = {app.folder / "sub"};
    QTest::mouseClick(&Child<QToolButton>("cmbBrowseFolder"), Qt::LeftButton);
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(app.desktop.questions[0].text, "Select folder:");
    EXPECT_EQ(browser.Folder(), app.folder / "sub");
    EXPECT_EQ(browser.History(), Texts{app.folder / "sub"});
    QTest::keyClick(&Child<QToolButton>("cmbBrowseFolder"), Qt::Key_Space);
    EXPECT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_EQ(browser.Folder(), app.folder / "sub") << "cancelled";
}

TEST_F(FolderPath, Drives_AreTheRootTheHomeAndTheMedia) {
    app.TestWorld::machine.homeFolder = "/home/ann";
    Drives().SetMediaLister([&] { return Texts{"/home/ann", "/media/STICK"}; });
    browser.RefreshContents();
    EXPECT_EQ(DriveTexts(), (Texts{"/", "/home/ann", "/media/STICK"}));
    Drives().SetMediaLister([] { return Texts{}; });
    browser.RefreshContents();
    EXPECT_EQ(DriveTexts(), (Texts{"/", "/home/ann"})) << "each refresh asks again";
}

TEST_F(FolderPath, DriveBox_FollowsTheFolderWithoutChangingIt) {
    Drives().SetMediaLister([&] { return Texts{app.folder / "sub", app.folder / "su"}; });
    QSignalSpy chosen(&Drives(), &DriveBox::DriveChosen);
    browser.ShowFolder(app.folder / "sub/inner");
    EXPECT_EQ(FromQt(Drives().currentText()), app.folder / "sub");
    EXPECT_EQ(browser.Folder(), app.folder / "sub/inner");
    browser.ShowFolder(app.folder / "Songs");
    EXPECT_EQ(Drives().currentText(), "/");
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(FolderPath, ChosenDrive_IsShownAndTheListGetsTheFocus) {
    Drives().SetMediaLister([&] { return Texts{app.folder / "sub"}; });
    browser.RefreshContents();
    browser.FocusDriveBox();
    ASSERT_TRUE(Drives().view()->isVisible());
    QTest::keyClick(Drives().view(), Qt::Key_Down);
    QTest::keyClick(Drives().view(), Qt::Key_Return);
    EXPECT_EQ(browser.Folder(), app.folder / "sub");
    EXPECT_EQ(PathText(), app.folder / "sub");
    EXPECT_TRUE(browser.View()->hasFocus());
    EXPECT_TRUE(browser.History().empty());
}

TEST_F(FolderPath, DriveThatCannotBeEntered_IsNotShown) {
    Drives().SetMediaLister([&] { return Texts{app.folder / "gone"}; });
    browser.RefreshContents();
    browser.FocusDriveBox();
    QTest::keyClick(Drives().view(), Qt::Key_End);
    QTest::keyClick(Drives().view(), Qt::Key_Return);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_EQ(browser.Folder(), app.folder.Path());
    EXPECT_NE(FromQt(Drives().currentText()), app.folder / "gone");
}

TEST_F(FolderPath, EnterInTheDriveBox_GoesToItsDrive) {
    Drives().SetMediaLister([&] { return Texts{app.folder / "sub"}; });
    browser.ShowFolder(app.folder / "sub/inner");
    Drives().setFocus();
    QTest::keyClick(&Drives(), Qt::Key_Return);
    EXPECT_EQ(browser.Folder(), app.folder / "sub");
    EXPECT_TRUE(browser.View()->hasFocus());
}

TEST_F(FolderPath, Wheel_LeavesTheFolder) {
    browser.SetHistory({app.folder / "sub", app.folder / "Songs"});
    for (QWidget* box : {static_cast<QWidget*>(&Path()), static_cast<QWidget*>(&Drives())}) {
        QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(box, &wheel);
    }
    EXPECT_EQ(browser.Folder(), app.folder.Path());
}

TEST_F(FolderPath, Controls_HaveNamesForThoseWhoHearThem) {
    for (QWidget* widget : {static_cast<QWidget*>(&Path()), static_cast<QWidget*>(&Drives()),
                            static_cast<QWidget*>(&Child<QToolButton>("cmbBrowseFolder")),
                            static_cast<QWidget*>(browser.View())})
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << FromQt(widget->objectName());
}

}  // namespace
}  // namespace zefta::test
