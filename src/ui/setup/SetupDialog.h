#pragma once

#include <QDialog>

#include "core/App.h"
#include "core/SetupOptions.h"
#include "platform/DesktopEntries.h"
#include "ui/setup/SetupBinding.h"

namespace zefta {

/// frmSetup: the options of the program on tabs. Nothing is kept before OK.
class SetupDialog : public QDialog {
    Q_OBJECT

  public:
    SetupDialog(App& app, DesktopEntries& desktops, QWidget* parent);

  private:
    void AddPages();
    void AddButtons();
    void OKButton_Click();
    void CancelButton_Click() { reject(); }

    App& app_;
    DesktopEntries& desktops_;
    SetupOptions options_;
    SetupBinding binding_;
};

/// Shows the dialog on the desktops of the person; returns when it is closed.
void ShowSetup(App& app, QWidget* parent);

}  // namespace zefta
