#include "ui/list/StatusPanels.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

constexpr std::array<WindowText, StatusPanels::PanelCount> PanelNames = {
    WindowText::StatusProgress, WindowText::StatusCount, WindowText::StatusSize, WindowText::StatusMore};
/// What panels 2 to 4 have room for.
constexpr auto SampleText = "000 000 000 K";

/// Cuts its text where it has no room for it, and never asks for more room on its account.
class Panel : public QLabel {
  public:
    using QLabel::QLabel;

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QRect place = contentsRect().adjusted(margin(), 0, -margin(), 0);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
        style()->drawItemText(&painter, place, Qt::AlignVCenter | Qt::AlignLeading | Qt::TextSingleLine,
                              palette(), isEnabled(), shown, foregroundRole());
    }
};

QLabel* NewPanel(const App& app, int number) {
    auto* panel = new Panel;
    panel->setObjectName(QStringLiteral("panel%1").arg(number));
    panel->setTextFormat(Qt::PlainText);
    panel->setMargin(panel->fontMetrics().horizontalAdvance('i'));
    panel->setAccessibleName(OwnText(app, PanelNames.at(static_cast<std::size_t>(number - 1))));
    if (number > 1) panel->setMinimumWidth(panel->fontMetrics().horizontalAdvance(SampleText));
    return panel;
}

}  // namespace

StatusPanels::StatusPanels(const App& app, QWidget* parent) : QStatusBar(parent) {
    setObjectName("sbStatusBar");
    for (int number = 1; number <= PanelCount; ++number) {
        QLabel* panel = NewPanel(app, number);
        addPermanentWidget(panel, number == 1 ? 1 : 0);
        panels_.at(static_cast<std::size_t>(number - 1)) = panel;
    }
}

void StatusPanels::SetStatusText(int panel, const std::string& text) {
    QLabel* label = panels_.at(static_cast<std::size_t>(panel - 1));
    const QString shown = ToQt(text);
    if (label->text() == shown) return;
    label->setText(shown);
    // A screen reader reads the name of the panel in the place of its text.
    label->setAccessibleDescription(shown);
    label->setToolTip(label->fontMetrics().horizontalAdvance(shown) > label->width() ? shown : QString());
}

std::string StatusPanels::StatusText(int panel) const {
    return FromQt(panels_.at(static_cast<std::size_t>(panel - 1))->text());
}

}  // namespace zefta
