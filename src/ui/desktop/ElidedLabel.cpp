#include "ui/desktop/ElidedLabel.h"

#include <QPainter>
#include <QStyle>
#include <QTextDocument>

namespace zefta {

ElidedLabel::ElidedLabel(const QString& objectName) {
    setObjectName(objectName);
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const {
    constexpr int FewestCharacters = 16;
    return {fontMetrics().averageCharWidth() * FewestCharacters, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    // Plain text in a tool tip has to say so: what looks like markup would be taken for it.
    const bool isPlain = !Qt::mightBeRichText(text());
    setToolTip(shown == text() ? QString() : isPlain ? text() : "<p>" + text().toHtmlEscaped() + "</p>");
    QPainter painter(this);
    style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeading, palette(), isEnabled(),
                          shown, foregroundRole());
}

}  // namespace zefta
