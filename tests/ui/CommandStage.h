#pragma once

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Mp3Builder.h"
#include "support/TestApp.h"
#include "toolkit/DialogAtHand.h"
#include "ui/QtText.h"
#include "ui/list/FolderBrowser.h"
#include "ui/list/StatusPanels.h"
#include "ui/main/MainCommands.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MainToolBar.h"
#include "ui/main/MainWindow.h"
#include "wave/WaveFile.h"

namespace zefta::test {

/// The main window on a folder "music" that a test fills before it opens the window, used by mouse and keys.
class CommandStage : public ::testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    CommandStage() {
        app.defaultWaveFile = &wave;
        app.TestWorld::machine.temporaryFolder = temporary.Path();
        app.state.Saved.TrimSilence = false;
        std::filesystem::create_directories(Music());
        app.state.CurrentFolder = Music();
    }

    std::string Music() const { return app.folder / "music"; }
    std::string PathOf(const std::string& name) const { return Music() + "/" + name; }

    void Make(const std::string& name, const std::string& bytes = "x") {
        WriteWholeFile(PathOf(name), bytes);
    }
    void MakeFolder(const std::string& name) { std::filesystem::create_directories(PathOf(name)); }
    bool Exists(const std::string& name) const { return std::filesystem::exists(PathOf(name)); }

    /// To be called when the folder holds what the test is about.
    void Open() {
        window = std::make_unique<MainWindow>(app);
        window->resize(900, 600);
        ShowInFront(*window);
        Browser().FinishScan();
        Browser().View()->setFocus();
    }

    FolderBrowser& Browser() { return window->Browser(); }
    QAbstractItemView& View() { return *Browser().View(); }
    std::string Status(int panel = 1) { return window->findChild<StatusPanels*>()->StatusText(panel); }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&View(), key, modifiers);
        QApplication::processEvents();
    }

    /// Where the row of that name is, within the viewport.
    QPoint PlaceOf(const std::string& name) {
        for (int row = 0; row < View().model()->rowCount(); ++row) {
            const QModelIndex index = View().model()->index(row, 0);
            if (FromQt(index.data().toString()) == name) {
                View().scrollTo(index);
                return View().visualRect(index).center();
            }
        }
        ADD_FAILURE() << "no row " << name;
        return {};
    }

    void ClickRow(const std::string& name, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(View().viewport(), Qt::LeftButton, modifiers, PlaceOf(name));
    }

    /// Clicks the rows so that they are selected, and the last one has the focus.
    void SelectRows(const Texts& names) {
        Browser().ClearSelection();
        for (const std::string& name : names)
            ClickRow(name, name == names.front() ? Qt::NoModifier : Qt::ControlModifier);
    }

    Texts SelectedNames() {
        Texts names;
        for (const BrowserRow& row : Browser().SelectedRows()) names.push_back(row.name);
        return names;
    }

    QAction& Item(const std::string& name) {
        auto* item = window->findChild<QAction*>(ToQt(name));
        if (item == nullptr) throw std::out_of_range(name);
        return *item;
    }

    QMenu& Menu(const std::string& name) {
        auto* menu = window->findChild<QMenu*>(ToQt(name));
        if (menu == nullptr) throw std::out_of_range(name);
        return *menu;
    }

    /// Opens the menus on the way to the item by the mouse and clicks it.
    void ClickItem(const std::string& name) {
        QAction& item = Item(name);
        auto* menu = qobject_cast<QMenu*>(item.parent());
        OpenMenu(*menu);
        ASSERT_TRUE(menu->isVisible()) << name;
        QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(&item).center());
        Activate();
    }

    /// A menu takes the keyboard and doesn't give it back where there is no window manager.
    void Activate() {
        if (window->isVisible()) window->activateWindow();
        QApplication::processEvents();
    }

    void OpenMenu(QMenu& menu) {
        QAction* way = menu.menuAction();
        if (auto* parent = qobject_cast<QMenu*>(menu.parentWidget())) {
            OpenMenu(*parent);
            QTest::mouseClick(parent, Qt::LeftButton, Qt::NoModifier, parent->actionGeometry(way).center());
        } else {
            QMenuBar* bar = window->menuBar();
            QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->actionGeometry(way).center());
        }
        // A submenu opens a moment after the click.
        EXPECT_TRUE(QTest::qWaitFor([&] { return menu.isVisible(); }));
    }

    bool IsMenuEnabled(const std::string& name) { return Menu(name).menuAction()->isEnabled(); }

    QToolButton& Button(const std::string& key) {
        auto* bar = window->findChild<MainToolBar*>();
        return *qobject_cast<QToolButton*>(bar->widgetForAction(bar->findChild<QAction*>(ToQt(key))));
    }

    void ClickButton(const std::string& key) {
        QTest::mouseClick(&Button(key), Qt::LeftButton);
        QApplication::processEvents();
    }

    /// The dialog that the next step opens is left by its Escape key.
    void CancelNextDialog() {
        QTimer::singleShot(0, window.get(), [this] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            cancelledDialog = FromQt(dialog->objectName());
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
    }

    void AnswerYes(std::size_t times = 1) { app.desktop.answers.assign(times, true); }
    std::string Message(std::int32_t id, const std::string& p1 = {}) {
        return app.messages.GetMessage(id, p1);
    }

    std::string Question(std::size_t index = 0) const {
        if (index >= app.desktop.questions.size()) return "no question";
        return app.desktop.questions[index].caption + ": " + app.desktop.questions[index].text;
    }

    Texts CommandLines() const {
        Texts lines;
        for (const auto& run : app.processes.runs) lines.push_back(run.commandLine);
        return lines;
    }

    TestApp app;
    WaveFile wave{app};
    TempFolder temporary;
    std::unique_ptr<MainWindow> window;
    std::string cancelledDialog;
};

}  // namespace zefta::test
