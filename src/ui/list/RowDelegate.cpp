#include "ui/list/RowDelegate.h"

#include <QApplication>
#include <QPainter>
#include <QtMath>
#include <memory>
#include <utility>

namespace zefta {

namespace {

QPalette::ColorRole RoleOf(QStyle::State state) {
    return state.testFlag(QStyle::State_Selected) ? QPalette::HighlightedText : QPalette::Text;
}

const QStyle& StyleOf(const QStyleOptionViewItem& cell) {
    return cell.widget != nullptr ? *cell.widget->style() : *QApplication::style();
}

/// Gives the width that the text asks for.
qreal LayOut(QTextLayout& layout, const QStyleOptionViewItem& cell, int width) {
    QTextOption option(QStyle::visualAlignment(cell.direction, cell.displayAlignment));
    option.setWrapMode(QTextOption::ManualWrap);
    option.setTextDirection(cell.direction);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    layout.endLayout();
    return line.naturalTextWidth();
}

}  // namespace

size_t qHash(const CellText& text, size_t seed) {
    return qHashMulti(seed, text.text, text.font, text.width, text.alignment.toInt());
}

QPalette::ColorGroup RowDelegate::GroupOf(QStyle::State state) {
    if (!state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
    return state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

QTextLayout& RowDelegate::LaidOut(const QStyleOptionViewItem& cell, const QString& text, int width) const {
    const CellText key{
        text,           cell.font,         cell.fontMetrics.height(), width, cell.displayAlignment,
        cell.direction, cell.textElideMode};
    if (QTextLayout* kept = layouts_.object(key)) return *kept;
    auto layout = std::make_unique<QTextLayout>(text, cell.font);
    // The toolkit would lay it out again when it is drawn.
    layout->setCacheEnabled(true);
    if (LayOut(*layout, cell, width) > width) {
        layout->setText(cell.fontMetrics.elidedText(text, cell.textElideMode, width));
        LayOut(*layout, cell, width);
    }
    QTextLayout& kept = *layout;
    layouts_.insert(key, layout.release());
    return kept;
}

void RowDelegate::PaintText(QPainter& painter, const QStyleOptionViewItem& cell, const QString& text) const {
    const QStyle& style = StyleOf(cell);
    // As wide as the style makes it.
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    const QRect room =
        style.subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget).adjusted(margin, 0, -margin, 0);
    const QTextLayout& layout = LaidOut(cell, text, room.width());
    const QSize size(room.width(), qCeil(layout.boundingRect().height()));
    const QRect place = QStyle::alignedRect(cell.direction, cell.displayAlignment, size, room);
    painter.setPen(cell.palette.color(GroupOf(cell.state), RoleOf(cell.state)));
    layout.draw(&painter, place.topLeft());
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& cell, const QModelIndex& index) const {
    QStyleOptionViewItem option = cell;
    initStyleOption(&option, index);
    const QString text = std::exchange(option.text, QString());
    StyleOf(option).drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    if (text.isEmpty()) return;
    painter->save();
    painter->setClipRect(option.rect, Qt::IntersectClip);
    PaintText(*painter, option, text);
    painter->restore();
}

}  // namespace zefta
