#pragma once

#include <QMainWindow>
#include <QPointer>

#include "core/App.h"
#include "ui/desktop/BatchView.h"

class QPushButton;
class QShortcut;

namespace zefta {

class FolderAhead;
class FolderBrowser;
class MainCommands;
class MainMenu;
class MainToolBar;
class StatusPanels;

/// frmMain: the list of one folder with its commands. While work on many files runs the title tells how far
/// it is, nothing else can be started, and cmdCancelBatch ends it behind the file at hand; a second time it
/// ends the outside tool that is at work on that file.
class MainWindow : public QMainWindow, public BatchView {
    Q_OBJECT

  public:
    /// Opens on CurrentFolder of the state; `ahead`: what was read of it before, if anything was.
    explicit MainWindow(App& app, FolderAhead* ahead = nullptr);

    void ShowBatch(std::size_t item, std::size_t count) override;
    bool IsCancelled() const override { return isCancelled_ || (front_ != nullptr && front_->IsCancelled()); }
    /// A tool is at hand: who has cancelled and does not want to wait for it may have it ended.
    bool WantsToolEnded() override;
    /// A dialog in front of the window has the work, and this button behind it can't be pressed; null for
    /// none.
    void PutInFront(BatchView* front) { front_ = front; }

    FolderBrowser& Browser() { return *browser_; }
    MainCommands& Commands() { return *commands_; }

  protected:
    /// While a command runs it is asked to end, and the window closes then.
    void closeEvent(QCloseEvent* event) override;

  private:
    void AddParts();
    void AddCancelButton();
    void Cancel();
    void ShowCancelButton(bool endsTool);
    void AskToEndTool();
    void Connect();
    void Load(FolderAhead* ahead);
    void SetBusy(bool busy);
    void OnCommandEnded();

    App& app_;
    StatusPanels* panels_;
    FolderBrowser* browser_;
    MainMenu* menu_;
    MainToolBar* toolBar_;
    MainCommands* commands_;
    QPushButton* cancelButton_;
    QShortcut* escape_;
    QPointer<QWidget> focusBefore_;
    BatchView* front_ = nullptr;
    bool isBusy_ = false;
    bool isCancelled_ = false;
    bool closesAfterwards_ = false;
    /// The button ends the tool at hand.
    bool offersToEndTool_ = false;
    bool endsTool_ = false;
};

}  // namespace zefta
