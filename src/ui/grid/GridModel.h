#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <string>
#include <vector>

#include "ui/grid/CellBlock.h"

namespace zefta {

struct GridColumn {
    QString heading;
    /// Its cells can't be changed.
    bool isFixed = false;
    /// Of the grid's width, against the other columns.
    int share = 1;
};

using GridRow = std::vector<std::string>;

/// A table of text cells that remembers every change. A cell is shown as one line up to its first NUL; what
/// can't be shown stays with it until it is given another text.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit GridModel(std::vector<GridColumn> columns, QObject* parent = nullptr);

    /// Other rows, each with a cell for every column. There is nothing to undo then.
    void Load(std::vector<GridRow> rows);
    const std::vector<GridRow>& Rows() const { return rows_; }
    const std::string& TextAt(int row, int column) const;
    /// As it is shown and edited; whole.
    QString ShownAt(int row, int column) const;
    const GridColumn& ColumnAt(int column) const { return columns_[static_cast<std::size_t>(column)]; }
    bool IsFixed(int column) const { return ColumnAt(column).isFixed; }
    /// All cells.
    CellRange Whole() const;

    /// One step for the person, whatever number of cells. Left out are cells that are fixed, outside the grid
    /// or hold the text already; false when none is left.
    bool Change(const std::vector<CellChange>& changes);
    /// Takes the row out, for good: what was changed in other rows can still be undone.
    void RemoveRow(int row);

    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < steps_.size(); }
    /// The cells that are other ones now; empty when there is no step.
    CellRange Undo();
    CellRange Redo();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

  signals:
    /// There are other steps to undo or redo.
    void HistoryChanged();

  private:
    /// The texts that the cells do not hold now.
    using Step = std::vector<CellChange>;

    std::string& CellAt(int row, int column);
    bool IsChange(const CellChange& change) const;
    /// Exchanges the texts of step and cells.
    CellRange Exchange(Step& step);
    void ForgetSteps();
    /// The steps as if the row had never been there.
    void ForgetRow(int row);

    std::vector<GridColumn> columns_;
    std::vector<GridRow> rows_;
    std::vector<Step> steps_;
    /// So many of the steps are done, the ones behind them undone.
    std::size_t done_ = 0;
};

}  // namespace zefta
