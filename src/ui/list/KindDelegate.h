#pragma once

#include "ui/list/RowDelegate.h"

namespace zefta {

/// Paints the name of a row with the picture of its kind, which takes the colour of the text while the row is
/// selected: its own colours would be lost in that of the selection.
class KindDelegate : public RowDelegate {
    Q_OBJECT

  public:
    using RowDelegate::RowDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace zefta
