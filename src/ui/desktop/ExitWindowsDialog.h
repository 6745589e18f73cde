#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "core/App.h"
#include "platform/PowerOff.h"

namespace zefta {

/// frmExitWindows: counts down to the end of the machine's work, which a job asked for; the person can have
/// it at once or prevent it. Stands in front of all windows, since the person may be at work in another one.
class ExitWindowsDialog : public QDialog {
    Q_OBJECT

  public:
    /// The countdown begins with the dialog's life. `powerOff` is asked once at most.
    ExitWindowsDialog(App& app, PowerOff& powerOff, QWidget* parent = nullptr);

    void done(int result) override;
    void reject() override;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void BuildCountdown();
    void BuildButtons();
    void Tick();
    /// Powers off; a refusal is told.
    void Exit();

    App& app_;
    PowerOff& powerOff_;
    int counter_;
    bool isAsked_ = false;
    QLabel* lblTimeout_;
    QPushButton* okButton_;
    QPushButton* cancelButton_;
    QTimer* timer_;
};

/// Counts down over whichever window is active, with the login manager of the machine; returns when the
/// person has cancelled or the system was asked.
void RunPowerOffCountdown(App& app);

}  // namespace zefta
