#include "ui/OwnStyle.h"

#include <QMainWindow>
#include <QPainter>
#include <QStyleOption>

#include "ui/Resources.h"

namespace zefta {

namespace {

/// The only bar of its window, below the menus.
bool IsBarBelowMenus(const QStyleOptionToolBar& bar, const QWidget* widget) {
    return widget != nullptr && qobject_cast<const QMainWindow*>(widget->parentWidget()) != nullptr &&
           bar.state.testFlag(QStyle::State_Horizontal) && bar.toolBarArea == Qt::TopToolBarArea &&
           bar.positionOfLine == QStyleOptionToolBar::OnlyOne;
}

/// Lines of the toolkit are a pixel high on such a screen; on others their halves lie between pixels.
bool HasWholePixels(const QPainter& painter) {
    return qFuzzyCompare(painter.device()->devicePixelRatioF(), 1);
}

/// As the toolkit paints it.
void PaintBar(QPainter& painter, const QStyleOptionToolBar& bar) {
    const QColor window = bar.palette.window().color();
    QLinearGradient shine(bar.rect.topLeft(), bar.rect.bottomLeft());
    constexpr int Shine = 104;
    shine.setColorAt(0, window.lighter(Shine));
    shine.setColorAt(1, window);
    painter.fillRect(bar.rect, shine);
    constexpr QColor Light(255, 255, 255, 90), Shadow(0, 0, 0, 60);
    const QRect line(bar.rect.topLeft(), QSize(bar.rect.width(), 1));
    painter.fillRect(line, Light);
    painter.fillRect(line.translated(0, bar.rect.height() - 2), Shadow);
    painter.fillRect(line.translated(0, bar.rect.height() - 1), Light);
}

}  // namespace

void OwnStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const {
    const auto* bar = element == CE_ToolBar ? qstyleoption_cast<const QStyleOptionToolBar*>(option) : nullptr;
    if (bar != nullptr && IsBarBelowMenus(*bar, widget) && HasWholePixels(*painter)) {
        PaintBar(*painter, *bar);
    } else {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

QIcon OwnStyle::standardIcon(StandardPixmap picture, const QStyleOption* option,
                             const QWidget* widget) const {
    switch (picture) {
        case SP_ToolBarHorizontalExtensionButton:
            return OwnIcon("more-right");
        case SP_ToolBarVerticalExtensionButton:
            return OwnIcon("more-down");
        default:
            return QProxyStyle::standardIcon(picture, option, widget);
    }
}

}  // namespace zefta
