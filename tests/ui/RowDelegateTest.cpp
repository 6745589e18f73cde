#include <QPainter>
#include <QStandardItemModel>
#include <QTreeView>

#include <gtest/gtest.h>

#include "ui/OwnStyle.h"
#include "ui/list/RowDelegate.h"

namespace zefta::test {
namespace {

constexpr QSize CellSize(150, 24);

/// A cell as the toolkit paints it, and as we do.
class RowDelegateTest : public ::testing::Test {
  protected:
    RowDelegateTest() {
        view.setModel(&model);
        model.appendRow(item);
        option.initFrom(&view);
        option.widget = &view;
        option.rect = QRect(QPoint(), CellSize);
        option.showDecorationSelected = true;
        option.decorationSize = QSize(16, 16);
        option.state = QStyle::State_Enabled | QStyle::State_Active;
    }

    QImage Painted(const QAbstractItemDelegate& delegate) const {
        QImage picture(CellSize, QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        delegate.paint(&painter, option, model.index(0, 0));
        painter.end();
        return picture;
    }

    void ExpectThatOfTheToolkit(const char* text) {
        SCOPED_TRACE(text);
        item->setText(QString::fromUtf8(text));
        const QImage expected = Painted(QStyledItemDelegate());
        EXPECT_EQ(Painted(own), expected);
        EXPECT_EQ(Painted(own), expected) << "from what was kept";
    }

    QTreeView view;
    QStandardItemModel model;
    QStandardItem* item = new QStandardItem;
    QStyleOptionViewItem option;
    RowDelegate own;
};

constexpr const char* Texts[] = {
    "Song",
    "AVAVA Tofi",
    "A title that is much too long for the room that its cell has",
    "\u0412\u0435\u0441\u043d\u0430",
    "Ame\u0301lie, in parts",
    "\u05e9\u05dc\u05d5\u05dd",
    "\u0634\u0643\u0631\u0627 \u062c\u0632\u064a\u0644\u0627",
    "\u65e5\u672c\u306e\u6b4c",
};

TEST_F(RowDelegateTest, Text_LooksAsTheToolkitPaintsIt) {
    for (const char* text : Texts) ExpectThatOfTheToolkit(text);
}

TEST_F(RowDelegateTest, TextAtTheRight_LooksAsTheToolkitPaintsIt) {
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (const char* text : Texts) ExpectThatOfTheToolkit(text);
}

TEST_F(RowDelegateTest, TextOfAWindowFromRightToLeft_LooksAsTheToolkitPaintsIt) {
    option.direction = Qt::RightToLeft;
    for (const char* text : Texts) ExpectThatOfTheToolkit(text);
}

TEST_F(RowDelegateTest, BoldAndColouredText_LooksAsTheToolkitPaintsIt) {
    QFont bold;
    bold.setBold(true);
    item->setFont(bold);
    item->setForeground(Qt::darkGreen);
    for (const char* text : Texts) ExpectThatOfTheToolkit(text);
}

TEST_F(RowDelegateTest, Picture_LooksAsTheToolkitPaintsIt) {
    QPixmap red(16, 16);
    red.fill(Qt::red);
    item->setIcon(red);
    for (const char* text : Texts) ExpectThatOfTheToolkit(text);
}

TEST_F(RowDelegateTest, EachState_LooksAsTheToolkitPaintsIt) {
    const QStyle::State enabled = QStyle::State_Enabled, active = QStyle::State_Active,
                        selected = QStyle::State_Selected;
    for (const QStyle::State state :
         {QStyle::State(), enabled, enabled | selected, enabled | active | selected, selected}) {
        option.state = state;
        ExpectThatOfTheToolkit("Song");
    }
}

TEST_F(RowDelegateTest, CellOfAnotherWidth_IsLaidOutAnew) {
    ExpectThatOfTheToolkit(Texts[2]);
    option.rect.setWidth(CellSize.width() - 40);
    ExpectThatOfTheToolkit(Texts[2]);
}

TEST_F(RowDelegateTest, OtherFont_IsLaidOutAnew) {
    ExpectThatOfTheToolkit("Song");
    option.font.setPointSize(option.font.pointSize() + 3);
    option.fontMetrics = QFontMetrics(option.font);
    ExpectThatOfTheToolkit("Song");
}

TEST_F(RowDelegateTest, OtherDirection_IsLaidOutAnew) {
    ExpectThatOfTheToolkit(Texts[1]);
    option.direction = Qt::RightToLeft;
    ExpectThatOfTheToolkit(Texts[1]);
}

TEST_F(RowDelegateTest, CellWithoutText_ShowsItsBackgroundAlone) {
    option.state |= QStyle::State_Selected;
    ExpectThatOfTheToolkit("");
}

TEST_F(RowDelegateTest, OwnStyle_PaintsTheSame) {
    OwnStyle style;
    view.setStyle(&style);
    for (const char* text : Texts) ExpectThatOfTheToolkit(text);
}

}  // namespace
}  // namespace zefta::test
