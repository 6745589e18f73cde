#include "ui/desktop/ExitWindowsDialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/Boxes.h"
#include "core/Version.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/desktop/LoginManager.h"

namespace zefta {

namespace {

constexpr int SecondsToThink = 15;
constexpr int MillisecondsOfATick = 1000;

QLabel* AddLabel(QBoxLayout& layout, const char* objectName, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    layout.addWidget(label);
    return label;
}

}  // namespace

ExitWindowsDialog::ExitWindowsDialog(App& app, PowerOff& powerOff, QWidget* parent)
    : QDialog(parent), app_(app), powerOff_(powerOff), counter_(SecondsToThink), timer_(new QTimer(this)) {
    setObjectName("frmExitWindows");
    setWindowTitle(ToQt(ApplicationTitle()));
    setWindowFlag(Qt::WindowStaysOnTopHint);
    new QVBoxLayout(this);
    BuildCountdown();
    BuildButtons();
    timer_->setObjectName("Timer1");
    timer_->setInterval(MillisecondsOfATick);
    connect(timer_, &QTimer::timeout, this, &ExitWindowsDialog::Tick);
    timer_->start();
}

void ExitWindowsDialog::BuildCountdown() {
    auto* rows = qobject_cast<QBoxLayout*>(layout());
    AddLabel(*rows, "lblInfo1", ToQt(app_.messages.GetMessage(33901)));
    lblTimeout_ = AddLabel(*rows, "lblTimeout", QString::number(counter_));
    QFont large = lblTimeout_->font();
    constexpr double TimesTheText = 3;
    large.setPointSizeF(large.pointSizeF() * TimesTheText);
    large.setBold(true);
    lblTimeout_->setFont(large);
    AddLabel(*rows, "lblInfo2", ToQt(app_.messages.GetMessage(33902)));
}

void ExitWindowsDialog::BuildButtons() {
    auto* row = new QHBoxLayout;
    okButton_ = new QPushButton(ToQt(app_.messages.GetMessage(33903)));
    okButton_->setObjectName("OKButton");
    // A key that was meant for another window must not power off.
    okButton_->setAutoDefault(false);
    cancelButton_ = new QPushButton(ToQt(app_.messages.GetMessage(33904)));
    cancelButton_->setObjectName("CancelButton");
    cancelButton_->setDefault(true);
    cancelButton_->setFocus();
    row->addWidget(okButton_);
    row->addWidget(cancelButton_);
    qobject_cast<QBoxLayout*>(layout())->addLayout(row);
    connect(okButton_, &QPushButton::clicked, this, &ExitWindowsDialog::Exit);
    connect(cancelButton_, &QPushButton::clicked, this, &ExitWindowsDialog::reject);
}

void ExitWindowsDialog::Tick() {
    --counter_;
    lblTimeout_->setText(QString::number(counter_));
    if (counter_ == 0) Exit();
}

void ExitWindowsDialog::Exit() {
    timer_->stop();
    isAsked_ = true;
    // The login manager may ask for a password; nothing here can be pressed again meanwhile.
    setEnabled(false);
    const std::string refusal = powerOff_.ExitSystem(ExitShutDown + ExitPowerOff);
    if (!refusal.empty())
        ShowWarning(app_, FromQt(OwnText(app_, WindowText::PowerOffRefused)) + "\n\n" + refusal);
    accept();
}

/// Too late once the system is asked: a dialog that went would look like a power off that was prevented.
void ExitWindowsDialog::reject() {
    if (!isAsked_) QDialog::reject();
}

void ExitWindowsDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    QApplication::beep();
    QApplication::alert(this);
}

void ExitWindowsDialog::done(int result) {
    timer_->stop();
    QDialog::done(result);
}

void RunPowerOffCountdown(App& app) {
    LoginManager manager;
    ExitWindowsDialog dialog(app, manager, QApplication::activeWindow());
    dialog.exec();
}

}  // namespace zefta
