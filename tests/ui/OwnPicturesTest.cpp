#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QToolBar>
#include <memory>

#include <gtest/gtest.h>

#include "ui/OwnIconEngine.h"
#include "ui/OwnStyle.h"
#include "ui/Resources.h"

namespace zefta::test {
namespace {

QImage PictureOf(const QIcon& icon, int side, qreal ratio = 1, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(side, side), ratio, mode)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// As the toolkit's own reading of such files draws it.
QImage PictureOfToolkit(const QString& name, int side, qreal ratio) {
    return PictureOf(QIcon(":/icons/" + name + ".svg"), side, ratio);
}

QImage Blank(const QSize& size) {
    QImage blank(size, QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::transparent);
    return blank;
}

TEST(OwnPictures, EachOne_IsDrawnAsTheToolkitDrawsIt) {
    OwnIcon("zefta");
    const QStringList files = QDir(":/icons").entryList();
    ASSERT_GT(files.size(), 20);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        const QString name = file.chopped(4);
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QImage picture = PictureOf(OwnIcon(name), 24, ratio);
            EXPECT_EQ(picture.size(), QSize(24, 24) * ratio);
            EXPECT_EQ(picture, PictureOfToolkit(name, 24, ratio));
            QImage plain = picture;
            plain.setDevicePixelRatio(1);
            EXPECT_NE(plain, Blank(picture.size()));
        }
    }
}

TEST(OwnPictures, DrawnAhead_IsThePictureThatIsShown) {
    OwnIconEngine::DrawAhead("rename", 37);
    EXPECT_EQ(PictureOf(OwnIcon("rename"), 37), PictureOfToolkit("rename", 37, 1));
    QImage marked = Blank(QSize(39, 39));
    marked.fill(Qt::magenta);
    OwnIconEngine::KeepAhead("rename", marked);
    EXPECT_NE(PictureOf(OwnIcon("rename"), 39, 1, QIcon::Disabled), marked);
    EXPECT_EQ(PictureOf(OwnIcon("rename"), 39), marked) << "kept for when the button is enabled";
    EXPECT_EQ(PictureOf(OwnIcon("refresh"), 39), PictureOfToolkit("refresh", 39, 1));
}

TEST(OwnPictures, Disabled_IsAsTheStyleShowsIt) {
    const QPixmap normal = OwnIcon("delete").pixmap(24, 24);
    QStyleOption option;
    option.palette = QApplication::palette();
    const QPixmap faded = QApplication::style()->generatedIconPixmap(QIcon::Disabled, normal, &option);
    EXPECT_NE(faded.toImage(), normal.toImage());
    EXPECT_EQ(OwnIcon("delete").pixmap(24, 24, QIcon::Disabled).toImage(), faded.toImage());
}

TEST(OwnPictures, OfNoSize_IsNone) {
    EXPECT_TRUE(OwnIcon("delete").pixmap(0, 0).isNull());
}

TEST(OwnPictures, OnALargeScreen_FillsEachPixel) {
    QImage screen = Blank(QSize(48, 48));
    screen.setDevicePixelRatio(2);
    QPainter painter(&screen);
    OwnIcon("up").paint(&painter, QRect(0, 0, 24, 24));
    painter.end();
    EXPECT_EQ(screen, PictureOf(OwnIcon("up"), 24, 2));
}

TEST(OwnStyleTest, ButtonsForMore_HaveOurPictures) {
    const OwnStyle style;
    EXPECT_EQ(
        PictureOf(style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr), 16),
        PictureOf(OwnIcon("more-right"), 16));
    EXPECT_EQ(PictureOf(style.standardIcon(QStyle::SP_ToolBarVerticalExtensionButton, nullptr, nullptr), 16),
              PictureOf(OwnIcon("more-down"), 16));
}

TEST(OwnStyleTest, AllElse_IsOfTheToolkit) {
    const std::unique_ptr<QStyle> base(QStyleFactory::create(OwnStyle::BaseName));
    const OwnStyle style;
    for (const auto picture : {QStyle::SP_MessageBoxWarning, QStyle::SP_DirIcon, QStyle::SP_TrashIcon})
        EXPECT_EQ(PictureOf(style.standardIcon(picture, nullptr, nullptr), 16),
                  PictureOf(base->standardIcon(picture), 16));
    EXPECT_EQ(style.pixelMetric(QStyle::PM_ToolBarIconSize), base->pixelMetric(QStyle::PM_ToolBarIconSize));
}

QImage BarIn(const QStyle& style, const QPalette& palette, Qt::ToolBarArea area, qreal ratio) {
    QMainWindow window;
    auto* widget = new QToolBar(&window);
    window.addToolBar(area, widget);
    QStyleOptionToolBar bar;
    bar.initFrom(widget);
    bar.state |= QStyle::State_Horizontal;
    bar.palette = palette;
    bar.rect = QRect(0, 0, 300, 36);
    bar.toolBarArea = area;
    QImage picture = Blank(bar.rect.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    QPainter painter(&picture);
    style.drawControl(QStyle::CE_ToolBar, &bar, &painter, widget);
    painter.end();
    return picture;
}

TEST(OwnStyleTest, Bar_LooksAsTheToolkitPaintsIt) {
    const std::unique_ptr<QStyle> base(QStyleFactory::create(OwnStyle::BaseName));
    const OwnStyle style;
    for (const QColor& colour : {QColor(239, 239, 239), QColor(45, 45, 48)}) {
        for (const Qt::ToolBarArea area : {Qt::TopToolBarArea, Qt::BottomToolBarArea}) {
            for (const qreal ratio : {1.0, 1.5, 2.0})
                EXPECT_EQ(BarIn(style, QPalette(colour), area, ratio),
                          BarIn(*base, QPalette(colour), area, ratio));
        }
    }
}

}  // namespace
}  // namespace zefta::test
