#pragma once

#include <QLabel>

namespace zefta {

/// A plain text from a file, of any length: what does not fit is left out at the end, and a tool tip has all
/// of it. Asks for no width of its own.
class InfoLabel : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;

    /// An empty text takes no place.
    void ShowText(const QString& text);
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QStringList Lines() const;
};

}  // namespace zefta
