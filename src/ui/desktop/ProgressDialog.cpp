#include "ui/desktop/ProgressDialog.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <algorithm>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

constexpr int MillisecondsBetweenReports = 40;

}  // namespace

ProgressDialog::ProgressDialog(Language language, QWidget* parent)
    : QDialog(parent), language_(language), timer_(new QTimer(this)) {
    timer_->setSingleShot(true);
    connect(timer_, &QTimer::timeout, this, &ProgressDialog::Flush);
}

QDialogButtonBox* ProgressDialog::MakeButtons() {
    auto* buttons = new QDialogButtonBox;
    cancel_ = buttons->addButton(OwnText(language_, WindowText::BoxCancel), QDialogButtonBox::RejectRole);
    cancel_->setObjectName("cmdCancel");
    cancel_->setToolTip(OwnText(language_, WindowText::ProgressCancelTip));
    // Whoever goes on typing when the dialog comes up must not end the work by it.
    cancel_->setAutoDefault(false);
    connect(cancel_, &QPushButton::clicked, this, &ProgressDialog::reject);
    return buttons;
}

void ProgressDialog::reject() {
    if (isCancelled_) return;
    isCancelled_ = true;
    cancel_->setEnabled(false);
    cancel_->setText(OwnText(language_, WindowText::ProgressEnding));
}

void ProgressDialog::ShowReport(const ProgressReport& report) {
    const bool isNews = report.fileName != report_.fileName || report.status != report_.status;
    report_ = report;
    const qint64 passed = sinceFlush_.isValid() ? sinceFlush_.elapsed() : MillisecondsBetweenReports;
    if (isNews || passed >= MillisecondsBetweenReports) {
        Flush();
    } else if (!timer_->isActive()) {
        timer_->start(static_cast<int>(MillisecondsBetweenReports - passed));
    }
}

void ProgressDialog::Flush() {
    timer_->stop();
    sinceFlush_.start();
    if (controls_.isEmpty()) FindControls();
    Display(report_);
}

void ProgressDialog::FindControls() {
    controls_[objectName()] = this;
    for (QWidget* control : findChildren<QWidget*>()) {
        if (!control->objectName().isEmpty()) controls_[control->objectName()] = control;
    }
}

void ProgressDialog::ShowLabels(const std::map<std::string, std::string>& labels) {
    for (auto [name, control] : controls_.asKeyValueRange()) {
        const auto found = labels.find(FromQt(name));
        if (found != labels.end()) {
            ShowText(*control, ToQt(found->second));
        } else if (auto* label = qobject_cast<QLabel*>(control)) {
            label->clear();
        }
    }
}

void ProgressDialog::ShowText(QWidget& control, const QString& text) {
    if (auto* label = qobject_cast<QLabel*>(&control)) {
        if (label->text() != text) label->setText(text);
    } else if (auto* frame = qobject_cast<QGroupBox*>(&control)) {
        frame->setTitle(text);
    } else if (auto* button = qobject_cast<QRadioButton*>(&control)) {
        button->setText(text);
    } else if (control.isWindow()) {
        control.setWindowTitle(text);
    }
}

void ProgressDialog::ShowScale(QProgressBar& bar, const ProgressScale& scale) {
    // An empty range would turn the bar into one that shows no progress but activity.
    bar.setRange(scale.minimum, std::max(scale.maximum, scale.minimum + 1));
    bar.setValue(std::clamp(scale.value, bar.minimum(), bar.maximum()));
}

}  // namespace zefta
