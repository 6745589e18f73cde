#pragma once

#include <QCache>
#include <QFont>
#include <QStyledItemDelegate>
#include <QTextLayout>

namespace zefta {

/// A text as it stands in a cell; the same text in a cell of the same kind looks the same.
struct CellText {
    QString text;
    QFont font;
    /// Of the font on its screen.
    int height;
    int width;
    Qt::Alignment alignment;
    Qt::LayoutDirection direction;
    Qt::TextElideMode elideMode;

    bool operator==(const CellText&) const = default;
};

size_t qHash(const CellText& text, size_t seed);

/// Paints the cells of the list: the style paints what is around a text, the text is painted here. It is laid
/// out once and kept, as the albums of a folder are the same in all rows and rows are painted often; the
/// toolkit lays each text out three times for each painting, which took most of its time.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& cell, const QModelIndex& index) const override;

  protected:
    static QPalette::ColorGroup GroupOf(QStyle::State state);

  private:
    void PaintText(QPainter& painter, const QStyleOptionViewItem& cell, const QString& text) const;
    /// In one line as wide as the room, with an ellipsis where it is too long.
    QTextLayout& LaidOut(const QStyleOptionViewItem& cell, const QString& text, int width) const;

    /// The last ones; as many as a screen shows in some columns.
    mutable QCache<CellText, QTextLayout> layouts_{1000};
};

}  // namespace zefta
