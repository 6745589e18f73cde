#pragma once

#include <QWidget>
#include <memory>

#include "platform/Desktop.h"
#include "wave/WaveOutline.h"

namespace zefta {

/// Draws the waveform of a report, one band a channel, and hatches the silence at its ends.
class OutlineView : public QWidget {
    Q_OBJECT

  public:
    explicit OutlineView(const QString& accessibleName);

    void Show(const ProgressReport& report);

    /// Where the silence at the start ends and that at the end begins, in our pixels.
    int SilenceBeforeEnds() const;
    int SilenceAfterBegins() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint() / 2; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int PixelsOf(std::int32_t bytes) const;
    void DrawChannel(QPainter& painter, const std::vector<WaveOutline::Column>& columns,
                     const QRect& band) const;
    void HatchSilence(QPainter& painter) const;

    std::shared_ptr<const WaveOutline> outline_;
    std::int32_t before_ = 0;
    std::int32_t after_ = 0;
};

}  // namespace zefta
