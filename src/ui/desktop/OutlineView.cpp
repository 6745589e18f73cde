#include "ui/desktop/OutlineView.h"

#include <QPainter>
#include <algorithm>

namespace zefta {

namespace {

/// The lowest and highest sample of all columns that fall into one pixel of so many.
WaveOutline::Column ColumnAt(const std::vector<WaveOutline::Column>& columns, int pixel, int pixels) {
    const auto count = static_cast<std::int64_t>(columns.size());
    const auto first = static_cast<std::size_t>(count * pixel / pixels);
    const auto end = std::max(static_cast<std::size_t>(count * (pixel + 1) / pixels), first + 1);
    WaveOutline::Column whole = columns[first];
    for (std::size_t i = first; i < end; ++i) {
        whole.low = std::min(whole.low, columns[i].low);
        whole.high = std::max(whole.high, columns[i].high);
    }
    return whole;
}

}  // namespace

OutlineView::OutlineView(const QString& accessibleName) {
    setObjectName("picOutline");
    setAccessibleName(accessibleName);
    setToolTip(accessibleName);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void OutlineView::Show(const ProgressReport& report) {
    if (outline_ == report.outline && before_ == report.silenceBefore && after_ == report.silenceAfter)
        return;
    outline_ = report.outline;
    before_ = report.silenceBefore;
    after_ = report.silenceAfter;
    update();
}

QSize OutlineView::sizeHint() const {
    constexpr int LinesHigh = 6;
    constexpr int CharactersWide = 60;
    return {fontMetrics().averageCharWidth() * CharactersWide, fontMetrics().lineSpacing() * LinesHigh};
}

int OutlineView::PixelsOf(std::int32_t bytes) const {
    if (!outline_ || outline_->bytes <= 0) return 0;
    return static_cast<int>(
        std::clamp<std::int64_t>(std::int64_t{width()} * bytes / outline_->bytes, 0, width()));
}

int OutlineView::SilenceBeforeEnds() const {
    return PixelsOf(before_);
}

int OutlineView::SilenceAfterBegins() const {
    return width() - PixelsOf(after_);
}

void OutlineView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    if (outline_ && !outline_->channels.empty()) {
        const int bands = static_cast<int>(outline_->channels.size());
        for (int i = 0; i < bands; ++i) {
            const int top = height() * i / bands;
            const QRect band(0, top, width(), height() * (i + 1) / bands - top);
            DrawChannel(painter, outline_->channels[static_cast<std::size_t>(i)], band);
        }
        HatchSilence(painter);
    }
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void OutlineView::DrawChannel(QPainter& painter, const std::vector<WaveOutline::Column>& columns,
                              const QRect& band) const {
    constexpr double FullScale = 32768;
    const double middle = band.top() + band.height() / 2.0;
    // A little air between the bands.
    const double scale = (band.height() / 2.0 - 2) / FullScale;
    // One line a pixel of the screen, however many of them a pixel of ours has.
    const double fineness = devicePixelRatioF();
    const int lines = static_cast<int>(band.width() * fineness);
    painter.setPen(QPen(palette().color(QPalette::Text), 0));
    for (int line = 0; line < lines; ++line) {
        const WaveOutline::Column column = ColumnAt(columns, line, lines);
        const double x = (line + 0.5) / fineness;
        painter.drawLine(QPointF(x, middle - column.high * scale), QPointF(x, middle - column.low * scale));
    }
}

/// A pattern as well as a shade, since a shade alone is nothing to some eyes.
void OutlineView::HatchSilence(QPainter& painter) const {
    QColor shade = palette().color(QPalette::Highlight);
    const QRect ends[] = {
        QRect(0, 0, SilenceBeforeEnds(), height()),
        QRect(SilenceAfterBegins(), 0, width() - SilenceAfterBegins(), height()),
    };
    for (const QRect& end : ends) {
        shade.setAlphaF(0.25F);
        painter.fillRect(end, shade);
        shade.setAlphaF(0.75F);
        painter.fillRect(end, QBrush(shade, Qt::BDiagPattern));
    }
}

}  // namespace zefta
