#include "ui/info/YearGuard.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMetaObject>
#include <QToolTip>
#include <utility>

namespace zefta {

namespace {

/// With which a guard takes the focus back.
constexpr Qt::FocusReason TakenBack = Qt::OtherFocusReason;

/// Reasons for which the focus comes back by itself or the whole window has lost it; and another guard that
/// took it: two that do not pass would throw it to each other for ever.
bool IsPassing(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
           reason == Qt::MenuBarFocusReason || reason == TakenBack;
}

}  // namespace

YearGuard::YearGuard(QLineEdit* edit, std::function<bool()> passes, QWidget* wayOut, const QString& rule)
    : QObject(edit), edit_(edit), passes_(std::move(passes)), wayOut_(wayOut), rule_(rule) {
    edit->installEventFilter(this);
}

bool YearGuard::Validate() {
    if (!edit_->isEnabled() || passes_()) return true;
    edit_->setFocus(TakenBack);
    edit_->selectAll();
    QApplication::beep();
    QToolTip::showText(edit_->mapToGlobal(QPoint(0, edit_->height())), rule_, edit_);
    return false;
}

bool YearGuard::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && !IsPassing(static_cast<QFocusEvent*>(event)->reason()))
        // The focus is still on its way: where to shows behind this event.
        QMetaObject::invokeMethod(this, &YearGuard::CheckWhereFocusWent, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void YearGuard::CheckWhereFocusWent() {
    const QWidget* focus = QApplication::focusWidget();
    const bool isInWindow = focus != nullptr && focus->window() == edit_->window();
    if (isInWindow && focus != edit_ && focus != wayOut_ && edit_->isVisible()) Validate();
}

}  // namespace zefta
