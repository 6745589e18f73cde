#include "ui/desktop/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

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
    setToolTip(shown == text() ? QString() : text());
    QPainter painter(this);
    style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeading, palette(), isEnabled(),
                          shown, foregroundRole());
}

}  // namespace zefta
