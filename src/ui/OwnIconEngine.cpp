#include "ui/OwnIconEngine.h"

#include <QApplication>
#include <QHash>
#include <QMutex>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

namespace zefta {

namespace {

/// In device pixels.
QImage Draw(const QString& name, const QSize& size) {
    QSvgRenderer file(QStringLiteral(":/icons/%1.svg").arg(name));
    file.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    file.render(&painter);
    return picture;
}

QString KeyOf(const QString& name, const QSize& size) {
    return QStringLiteral("%1 %2x%3").arg(name).arg(size.width()).arg(size.height());
}

/// Pictures that were drawn before somebody asked for them.
class DrawnPictures {
  public:
    void Put(const QString& name, const QImage& picture) {
        const QMutexLocker lock(&mutex_);
        pictures_.insert(KeyOf(name, picture.size()), picture);
    }

    /// Null where there is none.
    QImage Take(const QString& name, const QSize& size) {
        const QMutexLocker lock(&mutex_);
        return pictures_.take(KeyOf(name, size));
    }

  private:
    QMutex mutex_;
    QHash<QString, QImage> pictures_;
};

DrawnPictures& DrawnAhead() {
    static DrawnPictures pictures;
    return pictures;
}

QPixmap Drawn(const QString& name, const QSize& size) {
    QImage picture = DrawnAhead().Take(name, size);
    if (picture.isNull()) picture = Draw(name, size);
    return QPixmap::fromImage(std::move(picture));
}

/// As the style shows what is disabled or selected.
QPixmap InMode(const QPixmap& normal, QIcon::Mode mode) {
    QStyleOption option;
    option.palette = QApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, normal, &option);
}

QString KeyOf(const QString& name, const QSize& size, QIcon::Mode mode) {
    const QString key = KeyOf(name, size);
    if (mode == QIcon::Normal) return key;
    return QStringLiteral("%1 %2 %3").arg(key).arg(mode).arg(QApplication::palette().cacheKey());
}

}  // namespace

void OwnIconEngine::KeepAhead(const QString& name, const QImage& picture) {
    DrawnAhead().Put(name, picture);
}

void OwnIconEngine::DrawAhead(const QString& name, int side) {
    KeepAhead(name, Draw(name, QSize(side, side)));
}

void OwnIconEngine::paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) {
    const qreal ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(place, pixmap((QSizeF(place.size()) * ratio).toSize(), mode, state));
}

QPixmap OwnIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) {
    if (size.isEmpty()) return {};
    const QString key = KeyOf(name_, size, mode);
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture =
            mode == QIcon::Normal ? Drawn(name_, size) : InMode(pixmap(size, QIcon::Normal, state), mode);
        QPixmapCache::insert(key, picture);
    }
    return picture;
}

}  // namespace zefta
