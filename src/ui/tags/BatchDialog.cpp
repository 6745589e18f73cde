#include "ui/tags/BatchDialog.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <utility>

#include "core/Boxes.h"
#include "core/Version.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/grid/GridView.h"

namespace zefta {

BatchDialog::BatchDialog(App& app, const char* name, QWidget* parent)
    : QDialog(parent), app_(app), controls_(new QWidget(this)) {
    setObjectName(name);
    setModal(true);
}

QString BatchDialog::Text(std::int32_t message) const {
    return ToQt(app_.messages.GetMessage(message));
}

void BatchDialog::SetTitle(std::int32_t message) {
    setWindowTitle(ToQt(ApplicationTitle()) + " - " + Text(message));
}

void BatchDialog::Arrange(QLayout* controls, std::int32_t okText, std::int32_t cancelText) {
    auto* whole = new QVBoxLayout(this);
    controls->setContentsMargins(0, 0, 0, 0);
    controls_->setLayout(controls);
    whole->addWidget(controls_, 1);
    AddButtons(whole, okText, cancelText);
    stb_ = new QStatusBar;
    stb_->setObjectName("stb");
    stb_->setSizeGripEnabled(false);
    whole->addWidget(stb_);
}

void BatchDialog::AddButtons(QBoxLayout* whole, std::int32_t okText, std::int32_t cancelText) {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    const auto add = [&](const char* name, const QString& text) {
        auto* button = new QPushButton(text);
        button->setObjectName(name);
        row->addWidget(button);
        return button;
    };
    okButton_ = add("OKButton", Text(okText));
    cancelButton_ = add("CancelButton", Text(cancelText));
    cancelBatch_ = add("cmdCancelBatch", {});
    ShowCancelBatch(false);
    // The Enter key that began the work must not end it.
    cancelBatch_->setAutoDefault(false);
    cancelBatch_->hide();
    whole->addLayout(row);
    okButton_->setDefault(true);
    connect(okButton_, &QPushButton::clicked, this, [this] { OKButton_Click(); });
    connect(cancelButton_, &QPushButton::clicked, this, &BatchDialog::CancelButton_Click);
    connect(cancelBatch_, &QPushButton::clicked, this, &BatchDialog::CancelBatch);
}

void BatchDialog::CancelButton_Click() {
    done(Rejected);
}

void BatchDialog::reject() {
    if (isWorking_) {
        CancelBatch();
        return;
    }
    const auto mayClose = [this] {
        return AskYesNo(app_, FromQt(OwnText(app_, WindowText::TagsDiscard)), FromQt(windowTitle()), true);
    };
    if (!HasUnsaved() || mayClose()) QDialog::reject();
}

void BatchDialog::closeEvent(QCloseEvent* event) {
    closesBehindWork_ = isWorking_;
    QDialog::closeEvent(event);
}

void BatchDialog::keyPressEvent(QKeyEvent* event) {
    GridView* grid = isWorking_ ? nullptr : Grid();
    if (grid != nullptr && event->matches(QKeySequence::Undo)) {
        grid->Undo();
    } else if (grid != nullptr && event->matches(QKeySequence::Redo)) {
        grid->Redo();
    } else {
        QDialog::keyPressEvent(event);
    }
}

void BatchDialog::CloseIfAsked() {
    if (std::exchange(closesBehindWork_, false)) reject();
}

/// A question during the work is no time to wait.
bool BatchDialog::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked) ShowHourglass(false);
    if (event->type() == QEvent::WindowUnblocked) ShowHourglass(isWorking_);
    return QDialog::event(event);
}

void BatchDialog::ShowHourglass(bool isShown) {
    if (std::exchange(hasHourglass_, isShown) == isShown) return;
    if (isShown) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void BatchDialog::ShowCancelBatch(bool endsTool) {
    offersToEndTool_ = endsTool;
    cancelBatch_->setText(OwnText(app_, endsTool ? WindowText::EndTool : WindowText::CancelBatch));
    cancelBatch_->setToolTip(OwnText(app_, endsTool ? WindowText::EndToolTip : WindowText::CancelBatchTip));
}

/// The dialog can't be left before a tool that hangs has ended.
void BatchDialog::AskToEndTool() {
    const std::string question = FromQt(OwnText(app_, WindowText::EndToolQuestion));
    if (endsTool_ || !AskYesNo(app_, question, FromQt(windowTitle()), true)) return;
    endsTool_ = true;
    cancelBatch_->setEnabled(false);
}

bool BatchDialog::WantsToolEnded() {
    if (isWorking_ && isCancelled_ && !offersToEndTool_) {
        ShowCancelBatch(true);
        cancelBatch_->setEnabled(true);
        cancelBatch_->setFocus();
    }
    return isWorking_ && endsTool_;
}

void BatchDialog::CancelBatch() {
    if (offersToEndTool_) return AskToEndTool();
    isCancelled_ = true;
    cancelBatch_->setEnabled(false);
}

void BatchDialog::SetWorking(bool working) {
    isWorking_ = working;
    ShowHourglass(working);
    if (working) focusBefore_ = focusWidget();
    controls_->setEnabled(!working);
    okButton_->setEnabled(!working);
    cancelButton_->setEnabled(!working);
    cancelButton_->setVisible(!working);
    cancelBatch_->setEnabled(working);
    cancelBatch_->setVisible(working);
    if (!working && focusBefore_) focusBefore_->setFocus();
}

/// Everything is disabled for as long as this lives.
class BatchDialog::Working {
  public:
    explicit Working(BatchDialog& dialog) : dialog_(dialog) {
        dialog.isCancelled_ = dialog.endsTool_ = false;
        dialog.ShowCancelBatch(false);
        dialog.SetWorking(true);
    }
    ~Working() {
        dialog_.SetWorking(false);
        dialog_.ShowStatus({});
    }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

  private:
    BatchDialog& dialog_;
};

bool BatchDialog::Work(const std::function<void()>& work) {
    const Working working(*this);
    return !CheckRuntimeError(app_, work);
}

void BatchDialog::ShowStatus(const QString& text) {
    stb_->showMessage(text);
}

}  // namespace zefta
