#pragma once

#include <QIconEngine>
#include <QImage>
#include <QString>
#include <utility>

namespace zefta {

/// Draws one of our pictures in the size that is asked for. The file is read for the first painting; the
/// toolkit's own engine is a plugin, which reads each file once to try it and once more to paint it.
class OwnIconEngine : public QIconEngine {
  public:
    explicit OwnIconEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override;
    /// `size` is in device pixels.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override { return new OwnIconEngine(*this); }

    /// What is shown when that picture is asked for in the size of this one; in any thread.
    static void KeepAhead(const QString& name, const QImage& picture);
    /// Draws the picture before somebody asks for it in that size, in device pixels; in any thread.
    static void DrawAhead(const QString& name, int side);

  private:
    QString name_;
};

}  // namespace zefta
