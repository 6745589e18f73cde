#pragma once

#include <QLabel>

namespace zefta {

/// A label for a path that may be longer than the window is wide: its middle is left out then, and the whole
/// is its tool tip.
class ElidedLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ElidedLabel(const QString& objectName);

    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace zefta
