#pragma once

#include <QPersistentModelIndex>
#include <QTableView>
#include <vector>

#include "core/App.h"
#include "ui/WindowTexts.h"
#include "ui/grid/CellEditor.h"
#include "ui/grid/GridModel.h"

class QAction;

namespace zefta {

/// What begins the edit of a cell, beside F2 and a double click.
enum class EditStart {
    /// Typing replaces the text; a click selects, and edits the cell that is selected.
    Typing,
    /// A click or a key edits the text that is there.
    ClickOrKey,
};

/// A grid of texts that is worked like a spreadsheet: typing, F2, a double click or a click on the current
/// cell edits it in Text1; Return goes down, Tab to the next cell that can be edited; blocks are cut, copied,
/// pasted and cleared; everything can be undone. Ctrl+Tab goes on to the control behind the grid.
class GridView : public QTableView {
    Q_OBJECT

  public:
    /// The model has to live as long.
    GridView(const App& app, GridModel& model, QWidget* parent = nullptr);

    /// Typing to begin with.
    void SetEditStart(EditStart start) { editStart_ = start; }

    bool IsEditing() const { return edited_.isValid(); }
    /// What is being typed goes to its cell.
    void StoreEdit();
    /// Selects the cell alone and brings it into view.
    void SelectCell(int row, int column);

    /// Of the current cell; -1 for none.
    int CurrentColumn() const { return currentIndex().column(); }

    void Undo();
    void Redo();
    void Cut();
    /// The selected cells must make up whole rows and columns, which may lie apart; a beep and false
    /// otherwise.
    bool Copy() const;
    /// One value goes to all selected cells; more need a selection without gaps, or there is a beep, as for
    /// more than 64 MiB of text.
    void Paste();
    void Clear();

  protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

  private:
    void SetUpLook();
    void SetUpHeaders();
    void AddActions(const App& app);
    void AddAction(const QString& text, const QList<QKeySequence>& keys, void (GridView::*work)());
    void FollowHistory();

    /// Lays Text1 over the cell with that text in it.
    bool Open(const QModelIndex& index, const QString& text);
    QString TextAheadOfTyping(const QModelIndex& index) const;
    bool OpenByKey(const QModelIndex& index, const QKeyEvent& event);
    void Close();
    void OnStored(CellMove move);
    void PlaceEditor();
    /// False when there is no cell to go to.
    bool Move(CellMove move);
    QModelIndex CellBehind(CellMove move) const;
    void LeaveBy(bool next);

    /// All selected cells; the current one when none is.
    QModelIndexList SelectedCells() const;
    /// Around all of them.
    CellRange SelectedRange() const;
    void SelectRange(const CellRange& range);
    void PasteOverGaps(const CellBlock& block, const QModelIndexList& cells);
    void FitColumns();
    void TakeShares();
    int LeastWidth(int column) const;

    GridModel& model_;
    CellEditor* editor_;
    QPersistentModelIndex edited_;
    EditStart editStart_ = EditStart::Typing;
    QPersistentModelIndex pressed_;
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    /// Of the width, for each column.
    std::vector<double> shares_;
    bool isFitting_ = false;
};

}  // namespace zefta
