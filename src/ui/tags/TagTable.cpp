#include "ui/tags/TagTable.h"

#include <algorithm>
#include <utility>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

/// Of the width of the grid.
int ShareOf(TagColumn column) {
    switch (column) {
        case TrackColumn:
            return 2;
        case YearColumn:
            return 3;
        case FileColumn:
            return 9;
        default:
            return 6;
    }
}

std::vector<GridColumn> ColumnsOf(App& app, const std::vector<TagColumn>& order) {
    std::vector<GridColumn> columns;
    for (const TagColumn column : order)
        columns.push_back({ToQt(HeadingOf(app, column)), column == FileColumn, ShareOf(column)});
    return columns;
}

}  // namespace

TagTable::TagTable(App& app, std::vector<TagColumn> order) : app_(app), order_(std::move(order)) {
    model_ = new GridModel(ColumnsOf(app, order_));
    view_ = new GridView(app, *model_);
    model_->setParent(view_);
    view_->setObjectName("flxFiles");
    view_->setAccessibleName(OwnText(app, WindowText::TagsGrid));
}

int TagTable::PlaceOf(TagColumn column) const {
    return static_cast<int>(std::find(order_.begin(), order_.end(), column) - order_.begin());
}

void TagTable::Load(const std::vector<TagRow>& rows) {
    loaded_ = rows;
    std::vector<GridRow> shown;
    for (const TagRow& row : rows) {
        GridRow& cells = shown.emplace_back();
        for (const TagColumn column : order_) {
            const std::string& cell = row.Cells[column];
            cells.push_back(column == FileColumn ? app_.ansi.ToText(cell) : cell);
        }
    }
    model_->Load(std::move(shown));
    if (!rows.empty()) SelectCell(0, ArtistColumn);
}

TagRow TagTable::RowAt(std::size_t row) const {
    TagRow shown = loaded_[row];
    for (const TagColumn column : order_) {
        if (column != FileColumn)
            shown.Cells[column] = model_->TextAt(static_cast<int>(row), PlaceOf(column));
    }
    return shown;
}

std::vector<TagRow> TagTable::Rows() const {
    std::vector<TagRow> rows;
    for (std::size_t row = 0; row < loaded_.size(); ++row) rows.push_back(RowAt(row));
    return rows;
}

void TagTable::ChangeRows(const std::function<void(std::vector<TagRow>& rows)>& work) {
    view_->StoreEdit();
    std::vector<TagRow> rows = Rows();
    work(rows);
    std::vector<CellChange> changes;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (const TagColumn column : order_)
            changes.push_back({static_cast<int>(row), PlaceOf(column), rows[row].Cells[column]});
    }
    model_->Change(changes);
}

std::vector<TagRow>::const_iterator TagTable::RowOf(const std::string& name) const {
    return std::find_if(loaded_.begin(), loaded_.end(),
                        [&](const TagRow& each) { return each.Cells[FileColumn] == name; });
}

bool TagTable::IsMeant(const std::string& name, bool hasDefaults) const {
    const auto row = RowOf(name);
    if (row == loaded_.end()) return false;
    const bool isChanged = RowAt(static_cast<std::size_t>(row - loaded_.begin())).Cells != row->Cells;
    return isChanged || (hasDefaults && row->IsRead);
}

void TagTable::MeanAllOf(const std::string& name) {
    const auto row = RowOf(name);
    if (row != loaded_.end()) loaded_[static_cast<std::size_t>(row - loaded_.begin())].Loaded.reset();
}

void TagTable::RemoveRow(const std::string& name) {
    const auto row = RowOf(name);
    if (row == loaded_.end()) return;
    model_->RemoveRow(static_cast<int>(row - loaded_.begin()));
    loaded_.erase(row);
}

std::optional<TagColumn> TagTable::CurrentColumn() const {
    const int column = view_->CurrentColumn();
    return column < 0 ? std::nullopt : std::optional(order_[static_cast<std::size_t>(column)]);
}

void TagTable::SelectCell(std::size_t row, TagColumn column) {
    view_->SelectCell(static_cast<int>(row), PlaceOf(column));
}

}  // namespace zefta
