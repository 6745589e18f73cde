#include "ui/main/MainWindow.h"

#include <QAbstractItemView>
#include <QAction>
#include <QCloseEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>

#include "core/Agent.h"
#include "core/Boxes.h"
#include "core/Version.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/list/FolderBrowser.h"
#include "ui/list/MainGeometry.h"
#include "ui/list/StatusPanels.h"
#include "ui/main/ListKeys.h"
#include "ui/main/MainCommands.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MainToolBar.h"

namespace zefta {

namespace {

QString Caption() {
    return ToQt(ApplicationTitle() + " " + VersionText());
}

}  // namespace

MainWindow::MainWindow(App& app, FolderAhead* ahead) : app_(app) {
    setObjectName("frmMain");
    AddParts();
    AddCancelButton();
    Connect();
    Load(ahead);
}

void MainWindow::AddParts() {
    menu_ = new MainMenu(app_, *menuBar());
    toolBar_ = new MainToolBar(app_, this);
    addToolBar(toolBar_);
    panels_ = new StatusPanels(app_, this);
    setStatusBar(panels_);
    browser_ = new FolderBrowser(app_, *panels_, this);
    setCentralWidget(browser_);
    commands_ = new MainCommands(app_, {*this, *browser_, *panels_, *menu_, *toolBar_,
                                        [this](BatchView* front) { PutInFront(front); }});
}

void MainWindow::AddCancelButton() {
    cancelButton_ = new QPushButton(this);
    cancelButton_->setObjectName("cmdCancelBatch");
    ShowCancelButton(false);
    cancelButton_->hide();
    statusBar()->addPermanentWidget(cancelButton_);
    connect(cancelButton_, &QPushButton::clicked, this, &MainWindow::Cancel);
    // A key of the button itself would press it a moment later, and a batch may be over by then.
    escape_ = new QShortcut(Qt::Key_Escape, this);
    escape_->setEnabled(false);
    connect(escape_, &QShortcut::activated, this, &MainWindow::Cancel);
}

void MainWindow::ShowCancelButton(bool endsTool) {
    offersToEndTool_ = endsTool;
    cancelButton_->setText(OwnText(app_, endsTool ? WindowText::EndTool : WindowText::CancelBatch));
    cancelButton_->setToolTip(OwnText(app_, endsTool ? WindowText::EndToolTip : WindowText::CancelBatchTip));
}

void MainWindow::Cancel() {
    if (offersToEndTool_) return AskToEndTool();
    isCancelled_ = true;
    cancelButton_->setEnabled(false);
}

void MainWindow::AskToEndTool() {
    if (!AskYesNo(app_, FromQt(OwnText(app_, WindowText::EndToolQuestion)), FromQt(Caption()), true)) return;
    endsTool_ = true;
    cancelButton_->setEnabled(false);
}

bool MainWindow::WantsToolEnded() {
    if (front_ != nullptr) return front_->WantsToolEnded();
    if (isCancelled_ && !offersToEndTool_) {
        ShowCancelButton(true);
        cancelButton_->setEnabled(true);
    }
    return endsTool_;
}

void MainWindow::Connect() {
    connect(menu_, &MainMenu::Chosen, commands_, &MainCommands::Run);
    connect(toolBar_, &MainToolBar::Chosen, commands_, [this](Command command) { commands_->Run(command); });
    connect(commands_, &MainCommands::Ended, this, &MainWindow::OnCommandEnded);
    connect(browser_, &FolderBrowser::SelectionChanged, commands_,
            [this] { commands_->UpdateMenuAndToolbar(false); });
    connect(browser_, &FolderBrowser::ListChanged, commands_,
            [this] { commands_->UpdateMenuAndToolbar(true); });
    connect(browser_, &FolderBrowser::CanGoUpChanged, toolBar_,
            [this](bool canGoUp) { toolBar_->SetButtonEnabled("Up", canGoUp); });
    connect(browser_, &FolderBrowser::RowActivated, commands_,
            [this](const BrowserRow& row) { commands_->Run(commands_->CommandOfDoubleClick(row)); });
    connect(browser_, &FolderBrowser::MenuRequested, commands_, &MainCommands::PopUpMenuAt);
    auto* keys = new ListKeys(this);
    browser_->View()->installEventFilter(keys);
    connect(keys, &ListKeys::Pressed, commands_, [this](Command command) { commands_->Run(command); });
}

void MainWindow::Load(FolderAhead* ahead) {
    QAction& tray = *menu_->Item("mnuToolsSysTray");
    tray.setCheckable(true);
    tray.setChecked(IsAgentRunning(app_));
    setWindowTitle(Caption());
    LoadMainWindow(app_, *this, *browser_, ahead);
    browser_->View()->setFocus();
}

void MainWindow::ShowBatch(std::size_t item, std::size_t count) {
    SetBusy(item > 0);
    const QString place = item > 0 ? QString("[%1/%2] ").arg(item).arg(count) : QString();
    setWindowTitle(place + Caption());
}

void MainWindow::SetBusy(bool busy) {
    if (busy == isBusy_) return;
    isBusy_ = busy;
    if (busy) focusBefore_ = focusWidget();
    menuBar()->setEnabled(!busy);
    toolBar_->setEnabled(!busy);
    browser_->SetCommandsEnabled(!busy);
    cancelButton_->setEnabled(!isCancelled_);
    cancelButton_->setVisible(busy);
    escape_->setEnabled(busy);
    if (!busy && focusBefore_) focusBefore_->setFocus();
}

void MainWindow::OnCommandEnded() {
    SetBusy(false);
    isCancelled_ = false;
    endsTool_ = false;
    ShowCancelButton(false);
    cancelButton_->setEnabled(true);
    if (!closesAfterwards_) return;
    closesAfterwards_ = false;
    close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (commands_->IsRunning() && isBusy_) {
        closesAfterwards_ = true;
        event->ignore();
        Cancel();
        return;
    }
    UnloadMainWindow(app_, *this, *browser_);
    QMainWindow::closeEvent(event);
}

}  // namespace zefta
