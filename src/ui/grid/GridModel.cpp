#include "ui/grid/GridModel.h"

#include <algorithm>
#include <utility>

#include "core/Steps.h"
#include "tags/TagText.h"
#include "ui/QtText.h"

namespace zefta {

namespace {

/// More than any screen is wide; a text without end takes seconds to lay out.
constexpr std::size_t LongestShown = 2000;

/// The beginning of the text that is shown; whole characters.
std::string_view BeginningOf(std::string_view text) {
    const auto isInside = [&](std::size_t at) {
        return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
    };
    if (text.size() <= LongestShown) return text;
    std::size_t end = LongestShown;
    while (end > 0 && isInside(end)) --end;
    return text.substr(0, end);
}

}  // namespace

GridModel::GridModel(std::vector<GridColumn> columns, QObject* parent)
    : QAbstractTableModel(parent), columns_(std::move(columns)) {}

void GridModel::Load(std::vector<GridRow> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
    ForgetSteps();
}

void GridModel::ForgetSteps() {
    steps_.clear();
    done_ = 0;
    emit HistoryChanged();
}

void GridModel::ForgetRow(int row) {
    std::size_t stillDone = 0;
    std::vector<Step> left;
    for (std::size_t i = 0; i < steps_.size(); ++i) {
        Step& step = steps_[i];
        std::erase_if(step, [&](const CellChange& change) { return change.row == row; });
        for (CellChange& change : step) change.row -= change.row > row ? 1 : 0;
        if (step.empty()) continue;
        if (i < done_) ++stillDone;
        left.push_back(std::move(step));
    }
    steps_ = std::move(left);
    done_ = stillDone;
    emit HistoryChanged();
}

std::string& GridModel::CellAt(int row, int column) {
    return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

const std::string& GridModel::TextAt(int row, int column) const {
    return rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

QString GridModel::ShownAt(int row, int column) const {
    return ToQt(OneLine(ShownText(TextAt(row, column))));
}

CellRange GridModel::Whole() const {
    return {0, 0, rowCount() - 1, columnCount() - 1};
}

bool GridModel::IsChange(const CellChange& change) const {
    const bool isInside =
        change.row >= 0 && change.row < rowCount() && change.column >= 0 && change.column < columnCount();
    return isInside && !IsFixed(change.column) && TextAt(change.row, change.column) != change.text;
}

CellRange GridModel::Exchange(Step& step) {
    for (CellChange& change : step) std::swap(CellAt(change.row, change.column), change.text);
    // The way back goes from the last change to the first: one cell may be among them twice.
    std::reverse(step.begin(), step.end());
    const CellRange range = BoundsOf(step);
    emit dataChanged(index(range.top, range.left), index(range.bottom, range.right));
    emit HistoryChanged();
    return range;
}

bool GridModel::Change(const std::vector<CellChange>& changes) {
    Step step;
    std::copy_if(changes.begin(), changes.end(), std::back_inserter(step),
                 [&](const CellChange& change) { return IsChange(change); });
    if (step.empty()) return false;
    steps_.resize(done_);
    steps_.push_back(std::move(step));
    ++done_;
    Exchange(steps_.back());
    return true;
}

void GridModel::RemoveRow(int row) {
    beginRemoveRows({}, row, row);
    rows_.erase(rows_.begin() + row);
    endRemoveRows();
    ForgetRow(row);
}

CellRange GridModel::Undo() {
    if (!CanUndo()) return {};
    return Exchange(steps_[--done_]);
}

CellRange GridModel::Redo() {
    if (!CanRedo()) return {};
    return Exchange(steps_[done_++]);
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
    const std::string_view text = ShownText(TextAt(index.row(), index.column()));
    return ToQt(OneLine(BeginningOf(text)));
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    return orientation == Qt::Horizontal ? QVariant(ColumnAt(section).heading) : QVariant(section + 1);
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.isValid() && !IsFixed(index.column()) ? flags | Qt::ItemIsEditable : flags;
}

}  // namespace zefta
