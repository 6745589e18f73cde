#include "ui/list/KindDelegate.h"

#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QWidget>

namespace zefta {

namespace {

QIcon InOneColour(const QStyleOptionViewItem& option, const QColor& colour) {
    const qreal ratio = option.widget != nullptr ? option.widget->devicePixelRatioF() : 1;
    QPixmap picture = option.icon.pixmap(option.decorationSize, ratio);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(picture.rect(), colour);
    painter.end();
    QIcon icon;
    // The style would mix one of its own from the other mode.
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) icon.addPixmap(picture, mode);
    return icon;
}

}  // namespace

void KindDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    RowDelegate::initStyleOption(option, index);
    if (!option->state.testFlag(QStyle::State_Selected) || option->icon.isNull()) return;
    option->icon =
        InOneColour(*option, option->palette.color(GroupOf(option->state), QPalette::HighlightedText));
}

}  // namespace zefta
