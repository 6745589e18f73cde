#include "ui/grid/GridView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <algorithm>
#include <cmath>
#include <numeric>
#include <set>
#include <utility>

#include "tags/TagText.h"
#include "ui/QtText.h"

namespace zefta {

namespace {

/// A line of entry takes seconds for each million characters.
constexpr qsizetype LongestCell = 100'000;

/// Bytes: a text of some megabytes, pasted to all cells of many files, would take all memory there is.
constexpr std::size_t MostPasted = 64 * 1024 * 1024;

/// Cells with what is not shown of them: other programs end a text at a NUL.
constexpr auto CellsFormat = "application/x-zefta-cells";

/// Cells that can't be changed look like the headings.
class CellDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!(index.flags() & Qt::ItemIsEditable)) option->backgroundBrush = option->palette.button();
    }
};

bool IsTyped(const QKeyEvent& event) {
    const QString text = event.text();
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    // The third level of some keyboards comes as these two.
    const bool isPlain = !modifiers || modifiers == (Qt::ControlModifier | Qt::AltModifier);
    return isPlain && !text.isEmpty() && text[0] > ' ' && (text[0].isPrint() || text[0].isSurrogate());
}

}  // namespace

GridView::GridView(const App& app, GridModel& model, QWidget* parent)
    : QTableView(parent), model_(model), editor_(new CellEditor(viewport())) {
    setModel(&model);
    SetUpLook();
    SetUpHeaders();
    AddActions(app);
    setAccessibleDescription(OwnText(app, WindowText::GridKeys));
    editor_->setAccessibleName(OwnText(app, WindowText::GridCell));
    connect(editor_, &CellEditor::Stored, this, &GridView::OnStored);
    connect(editor_, &CellEditor::Left, this, &GridView::Close);
    connect(&model, &GridModel::HistoryChanged, this, &GridView::FollowHistory);
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, &GridView::Close);
    FollowHistory();
}

void GridView::SetUpLook() {
    setItemDelegate(new CellDelegate(this));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                    QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    setTabKeyNavigation(true);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setAttribute(Qt::WA_InputMethodEnabled);
}

void GridView::SetUpHeaders() {
    // Rows of one height, known without a look at their cells.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(editor_->sizeHint().height());
    verticalHeader()->hide();
    horizontalHeader()->setSectionsMovable(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setCornerButtonEnabled(false);
    for (int column = 0; column < model_.columnCount(); ++column)
        shares_.push_back(model_.ColumnAt(column).share);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        if (!isFitting_) TakeShares();
        PlaceEditor();
    });
}

void GridView::AddAction(const QString& text, const QList<QKeySequence>& keys, void (GridView::*work)()) {
    auto* action = new QAction(text, this);
    action->setShortcuts(keys);
    // Text1 has these keys for itself.
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, work);
    addAction(action);
}

void GridView::AddActions(const App& app) {
    const auto text = [&](WindowText which) { return OwnText(app, which); };
    const QKeySequence shiftZ(Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
    AddAction(text(WindowText::GridUndo), {QKeySequence(Qt::CTRL | Qt::Key_Z)}, &GridView::Undo);
    AddAction(text(WindowText::GridRedo), {shiftZ, QKeySequence(Qt::CTRL | Qt::Key_Y)}, &GridView::Redo);
    AddAction(text(WindowText::GridCut),
              {QKeySequence(Qt::CTRL | Qt::Key_X), QKeySequence(Qt::SHIFT | Qt::Key_Delete)}, &GridView::Cut);
    auto* copy = new QAction(text(WindowText::GridCopy), this);
    copy->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_C), QKeySequence(Qt::CTRL | Qt::Key_Insert)});
    copy->setShortcutContext(Qt::WidgetShortcut);
    connect(copy, &QAction::triggered, this, [this] { Copy(); });
    addAction(copy);
    AddAction(text(WindowText::GridPaste),
              {QKeySequence(Qt::CTRL | Qt::Key_V), QKeySequence(Qt::SHIFT | Qt::Key_Insert)},
              &GridView::Paste);
    AddAction(text(WindowText::GridClear), {QKeySequence(Qt::Key_Delete), QKeySequence(Qt::Key_Backspace)},
              &GridView::Clear);
    undo_ = actions().at(0);
    redo_ = actions().at(1);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void GridView::FollowHistory() {
    undo_->setEnabled(model_.CanUndo());
    redo_->setEnabled(model_.CanRedo());
}

// Editing.

bool GridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool isMeant = trigger == AllEditTriggers || (editTriggers() & trigger);
    if (!index.isValid() || !isMeant || model_.IsFixed(index.column())) return false;
    if (trigger == AnyKeyPressed) return OpenByKey(index, *static_cast<QKeyEvent*>(event));
    return Open(index, model_.ShownAt(index.row(), index.column()));
}

QString GridView::TextAheadOfTyping(const QModelIndex& index) const {
    const QString shown = model_.ShownAt(index.row(), index.column());
    // What can't be edited must not be replaced unseen.
    const bool staysThere = editStart_ == EditStart::ClickOrKey || shown.size() > LongestCell;
    return staysThere ? shown : QString();
}

bool GridView::OpenByKey(const QModelIndex& index, const QKeyEvent& event) {
    return IsTyped(event) && Open(index, TextAheadOfTyping(index) + event.text());
}

bool GridView::Open(const QModelIndex& index, const QString& text) {
    if (text.size() > LongestCell) {
        QApplication::beep();
        return false;
    }
    StoreEdit();
    setCurrentIndex(index);
    scrollTo(index);
    edited_ = index;
    editor_->setAccessibleName(model_.ColumnAt(index.column()).heading);
    editor_->setText(text);
    PlaceEditor();
    editor_->show();
    editor_->raise();
    editor_->setFocus();
    editor_->end(false);
    return true;
}

void GridView::Close() {
    if (!IsEditing()) return;
    edited_ = QPersistentModelIndex();
    // The focus first: hiding would send it to the control behind.
    if (editor_->hasFocus()) setFocus();
    editor_->hide();
}

void GridView::StoreEdit() {
    if (!IsEditing()) return;
    const int row = edited_.row();
    const int column = edited_.column();
    const QString text = editor_->text();
    Close();
    if (text == model_.ShownAt(row, column)) return;
    std::string typed = FromQt(text);
    // Further values of the field, which nobody has seen, are not what was edited; no text means no value.
    const std::string& whole = model_.TextAt(row, column);
    if (!typed.empty()) typed += whole.substr(ShownText(whole).size());
    model_.Change({{row, column, typed}});
}

void GridView::OnStored(CellMove move) {
    if (!IsEditing()) return;
    StoreEdit();
    Move(move);
}

void GridView::PlaceEditor() {
    if (!IsEditing()) return;
    // The lines of the grid stay in sight.
    editor_->setGeometry(visualRect(edited_).adjusted(0, 0, showGrid() ? -1 : 0, showGrid() ? -1 : 0));
}

// Keys.

QModelIndex GridView::CellBehind(CellMove move) const {
    const QModelIndex current = currentIndex();
    if (!current.isValid()) return {};
    if (move == CellMove::Down) return current.siblingAtRow(current.row() + 1);
    if (move == CellMove::Up) return current.siblingAtRow(current.row() - 1);
    const int columns = model_.columnCount();
    const int step = move == CellMove::Next ? 1 : -1;
    int place = current.row() * columns + current.column();
    do place += step;
    while (place >= 0 && place < model_.rowCount() * columns && model_.IsFixed(place % columns));
    return place < 0 ? QModelIndex() : model_.index(place / columns, place % columns);
}

bool GridView::Move(CellMove move) {
    const QModelIndex cell = move == CellMove::Stay ? QModelIndex() : CellBehind(move);
    if (!cell.isValid()) return false;
    SelectCell(cell.row(), cell.column());
    return true;
}

void GridView::LeaveBy(bool next) {
    // The base goes by the controls, and no longer by the cells.
    QAbstractScrollArea::focusNextPrevChild(next);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    const bool isShifted = event->modifiers() & Qt::ShiftModifier;
    const bool isBack = event->key() == Qt::Key_Backtab;
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Move(isShifted ? CellMove::Up : CellMove::Down);
            event->accept();
            break;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            if (event->modifiers() & Qt::ControlModifier) {
                LeaveBy(!isBack);
                event->accept();
            } else {
                // At the end of the grid the key goes on to the next control.
                event->setAccepted(Move(isBack ? CellMove::Previous : CellMove::Next));
            }
            break;
        default:
            QTableView::keyPressEvent(event);
    }
}

void GridView::inputMethodEvent(QInputMethodEvent* event) {
    const QModelIndex index = currentIndex();
    const bool hasText = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (hasText && index.isValid() && !model_.IsFixed(index.column()) &&
        Open(index, TextAheadOfTyping(index)))
        QApplication::sendEvent(editor_, event);
}

void GridView::mousePressEvent(QMouseEvent* event) {
    const bool isPlain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
    pressed_ = isPlain ? indexAt(event->position().toPoint()) : QModelIndex();
    QTableView::mousePressEvent(event);
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    // Whoever draws the mouse over cells selects them.
    const QModelIndex clicked = std::exchange(pressed_, QPersistentModelIndex());
    const bool isClick = clicked.isValid() && clicked == indexAt(event->position().toPoint()) && !IsEditing();
    if (editStart_ == EditStart::ClickOrKey && isClick) edit(clicked, AllEditTriggers, event);
}

// Selection.

void GridView::SelectCell(int row, int column) {
    const QModelIndex cell = model_.index(row, column);
    if (!cell.isValid()) return;
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
    scrollTo(cell);
}

QModelIndexList GridView::SelectedCells() const {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    if (!selected.isEmpty() || !currentIndex().isValid()) return selected;
    return {currentIndex()};
}

CellRange GridView::SelectedRange() const {
    const QItemSelection selection = selectionModel()->selection();
    const QModelIndex current = currentIndex();
    if (selection.isEmpty())
        return current.isValid() ? CellRange{current.row(), current.column(), current.row(), current.column()}
                                 : CellRange();
    const QItemSelectionRange& first = selection.constFirst();
    CellRange range = {first.top(), first.left(), first.bottom(), first.right()};
    for (const QItemSelectionRange& part : selection) {
        range.top = std::min(range.top, part.top());
        range.left = std::min(range.left, part.left());
        range.bottom = std::max(range.bottom, part.bottom());
        range.right = std::max(range.right, part.right());
    }
    return range;
}

void GridView::SelectRange(const CellRange& range) {
    if (range.IsEmpty()) return;
    const QModelIndex first = model_.index(range.top, range.left);
    const QModelIndex last = model_.index(range.bottom, range.right);
    selectionModel()->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
    selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
    scrollTo(first);
}

// Blocks and steps.

void GridView::Undo() {
    SelectRange(model_.Undo());
}

void GridView::Redo() {
    SelectRange(model_.Redo());
}

void GridView::Cut() {
    if (Copy()) Clear();
}

bool GridView::Copy() const {
    const QModelIndexList cells = SelectedCells();
    std::set<int> rows, columns;
    for (const QModelIndex& cell : cells) {
        rows.insert(cell.row());
        columns.insert(cell.column());
    }
    if (cells.isEmpty() || static_cast<std::size_t>(cells.size()) != rows.size() * columns.size()) {
        // Pasted elsewhere, the gaps would clear cells.
        QApplication::beep();
        return false;
    }
    CellBlock shown, whole;
    for (const int row : rows) {
        auto& shownCells = shown.emplace_back();
        auto& wholeCells = whole.emplace_back();
        for (const int column : columns) {
            wholeCells.push_back(model_.TextAt(row, column));
            shownCells.emplace_back(ShownText(wholeCells.back()));
        }
    }
    auto* copied = new QMimeData;
    copied->setText(ToQt(TextOfBlock(shown)));
    copied->setData(CellsFormat, QByteArray::fromStdString(TextOfBlock(whole)));
    QApplication::clipboard()->setMimeData(copied);
    return true;
}

void GridView::Paste() {
    const QMimeData& copied = *QApplication::clipboard()->mimeData();
    const CellBlock block = BlockOfText(copied.hasFormat(CellsFormat) ? copied.data(CellsFormat).toStdString()
                                                                      : FromQt(copied.text()));
    const QModelIndexList cells = SelectedCells();
    if (PastedBytes(block, static_cast<std::size_t>(cells.size())) > MostPasted) {
        QApplication::beep();
        return;
    }
    const CellRange target = SelectedRange();
    const bool hasGaps = cells.size() != qsizetype{target.RowCount()} * target.ColumnCount();
    if (hasGaps) {
        PasteOverGaps(block, cells);
        return;
    }
    const std::vector<CellChange> changes = PasteChanges(block, target, model_.Whole());
    if (changes.empty() || !model_.Change(changes)) return;
    SelectRange(BoundsOf(changes));
}

/// The cells between the selected ones stay as they are.
void GridView::PasteOverGaps(const CellBlock& block, const QModelIndexList& cells) {
    if (block.size() != 1 || block.front().size() != 1) {
        QApplication::beep();
        return;
    }
    std::vector<CellChange> changes;
    for (const QModelIndex& cell : cells) {
        const CellRange alone = {cell.row(), cell.column(), cell.row(), cell.column()};
        for (CellChange& change : PasteChanges(block, alone, model_.Whole()))
            changes.push_back(std::move(change));
    }
    model_.Change(changes);
}

void GridView::Clear() {
    std::vector<CellChange> changes;
    for (const QModelIndex& cell : SelectedCells()) changes.push_back({cell.row(), cell.column(), {}});
    model_.Change(changes);
}

// Columns.

int GridView::LeastWidth(int column) const {
    return horizontalHeader()->sectionSizeHint(column);
}

void GridView::FitColumns() {
    const QScopedValueRollback<bool> fitting(isFitting_, true);
    const double all = std::accumulate(shares_.begin(), shares_.end(), 0.0);
    int rest = viewport()->width();
    const int width = rest;
    const int last = model_.columnCount() - 1;
    for (int column = 0; column <= last; ++column) {
        const double share = shares_[static_cast<std::size_t>(column)] / all;
        const int wanted = column == last ? rest : static_cast<int>(std::floor(width * share));
        const int given = std::max(wanted, LeastWidth(column));
        setColumnWidth(column, given);
        rest -= given;
    }
}

void GridView::TakeShares() {
    for (int column = 0; column < model_.columnCount(); ++column)
        shares_[static_cast<std::size_t>(column)] = std::max(columnWidth(column), 1);
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitColumns();
}

void GridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    PlaceEditor();
}

void GridView::updateGeometries() {
    QTableView::updateGeometries();
    PlaceEditor();
}

}  // namespace zefta
