#include "ui/info/InfoLabel.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace zefta {

namespace {

/// A vendor's text of many lines must not fill the screen.
constexpr qsizetype MostLines = 8;
/// Of a text without end as much as anyone reads.
constexpr qsizetype LongestToolTip = 2000;
constexpr qsizetype LongestLine = 1000;

}  // namespace

void InfoLabel::ShowText(const QString& text) {
    setTextFormat(Qt::PlainText);
    setText(text);
    // Plain text in a tool tip has to say so: what looks like markup would be taken for it.
    setToolTip(text.isEmpty()
                   ? QString()
                   : "<p style='white-space:pre-wrap'>" + text.left(LongestToolTip).toHtmlEscaped() + "</p>");
    setHidden(text.isEmpty());
    updateGeometry();
}

QStringList InfoLabel::Lines() const {
    QStringList lines = text().split('\n');
    if (lines.size() > 1 && lines.back().isEmpty()) lines.removeLast();
    if (lines.size() > MostLines) lines.resize(MostLines);
    for (QString& line : lines) {
        line.remove('\r');
        line.truncate(LongestLine);
    }
    return lines;
}

QSize InfoLabel::sizeHint() const {
    int width = 0;
    const QStringList lines = Lines();
    for (const QString& line : lines) width = std::max(width, fontMetrics().horizontalAdvance(line));
    const int usual = fontMetrics().averageCharWidth() * 40;
    return {std::min(width, usual), static_cast<int>(lines.size()) * fontMetrics().lineSpacing()};
}

QSize InfoLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 8, sizeHint().height()};
}

void InfoLabel::paintEvent(QPaintEvent* event) {
    (void)event;
    QPainter painter(this);
    QRect line = contentsRect();
    line.setHeight(fontMetrics().lineSpacing());
    for (const QString& text : Lines()) {
        const QString shown = fontMetrics().elidedText(text, Qt::ElideRight, line.width());
        style()->drawItemText(&painter, line, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                              foregroundRole());
        line.translate(0, line.height());
    }
}

}  // namespace zefta
