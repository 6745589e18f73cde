#include "ui/setup/SetupDialog.h"

#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "core/Boxes.h"
#include "core/Version.h"
#include "ui/QtText.h"
#include "ui/setup/SetupPages.h"

namespace zefta {

SetupDialog::SetupDialog(App& app, DesktopEntries& desktops, QWidget* parent)
    : QDialog(parent),
      app_(app),
      desktops_(desktops),
      options_(LoadSetupOptions(app, desktops)),
      binding_(app, options_) {
    setObjectName("frmSetup");
    setModal(true);
    setWindowTitle(ToQt(ApplicationTitle()) + " - " + binding_.Text(33701));
    setLayout(new QVBoxLayout);
    AddPages();
    AddButtons();
}

void SetupDialog::AddPages() {
    auto* tabs = new QTabWidget;
    tabs->setObjectName("SSTab1");
    tabs->addTab(MakeGeneralPage(binding_), binding_.Text(33702));
    tabs->addTab(MakeShellPage(binding_), binding_.Text(33703));
    tabs->addTab(MakeModesPage(binding_), binding_.Text(33745));
    tabs->addTab(MakePresetPage(binding_, {&SetupOptions::CustomLAMEPreset, 1}), binding_.Text(33722));
    tabs->addTab(MakePresetPage(binding_, {&SetupOptions::CustomOGGPreset, 4}), binding_.Text(33743));
    tabs->addTab(MakePresetPage(binding_, {&SetupOptions::CustomMPCPreset, 7}), binding_.Text(33744));
    layout()->addWidget(tabs);
}

void SetupDialog::AddButtons() {
    auto* ok = new QPushButton(binding_.Text(33716));
    ok->setObjectName("OKButton");
    auto* cancel = new QPushButton(binding_.Text(33717));
    cancel->setObjectName("CancelButton");
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(cancel, QDialogButtonBox::RejectRole);
    layout()->addWidget(buttons);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &SetupDialog::OKButton_Click);
    connect(cancel, &QPushButton::clicked, this, &SetupDialog::CancelButton_Click);
}

void SetupDialog::OKButton_Click() {
    binding_.Take();
    const QPointer<QWidget> focus = focusWidget();
    // Boxes of the saving stand over the dialog; it is not to be pressed again meanwhile.
    setEnabled(false);
    const bool hasFailed = CheckRuntimeError(app_, [this] { SaveSetupOptions(app_, desktops_, options_); });
    setEnabled(true);
    // What was chosen is still there to be tried again.
    if (!hasFailed) return accept();
    if (focus) focus->setFocus();
}

void ShowSetup(App& app, QWidget* parent) {
    const auto desktops = OpenDesktopEntries();
    SetupDialog(app, *desktops, parent).exec();
}

}  // namespace zefta
