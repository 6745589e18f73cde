#pragma once

#include <QStyledItemDelegate>

namespace zefta {

/// Paints the name of a row with the picture of its kind, which takes the colour of the text while the row is
/// selected: its own colours would be lost in that of the selection.
class KindDelegate : public QStyledItemDelegate {
    Q_OBJECT

  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace zefta
