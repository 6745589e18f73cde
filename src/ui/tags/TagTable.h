#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/App.h"
#include "library/TagGrid.h"
#include "ui/grid/GridView.h"

namespace zefta {

/// flxFiles: rows of tags in a grid, in an order of the columns that its dialog has. Names of files are shown
/// and fixed.
class TagTable {
  public:
    /// Its view is for a dialog to put into a layout, which owns it then.
    TagTable(App& app, std::vector<TagColumn> order);

    GridView& View() const { return *view_; }

    void Load(const std::vector<TagRow>& rows);
    /// As they stand in the grid now.
    std::vector<TagRow> Rows() const;
    /// Runs the work over the rows: one step to undo.
    void ChangeRows(const std::function<void(std::vector<TagRow>& rows)>& work);
    void RemoveRow(const std::string& name);
    /// All its cells are meant from now on: after a write the file may hold others than at the beginning.
    void MeanAllOf(const std::string& name);
    bool IsChanged() const { return model_->CanUndo(); }
    /// Whether something was entered for the row: in its cells, or as defaults of files that could be read.
    bool IsMeant(const std::string& name, bool hasDefaults) const;

    /// Of the current cell; nothing when there is none.
    std::optional<TagColumn> CurrentColumn() const;
    void SelectCell(std::size_t row, TagColumn column);

  private:
    TagRow RowAt(std::size_t row) const;
    std::vector<TagRow>::const_iterator RowOf(const std::string& name) const;
    int PlaceOf(TagColumn column) const;

    App& app_;
    std::vector<TagColumn> order_;
    GridModel* model_;
    GridView* view_;
    /// With the names as the file system has them; the other cells are those of the beginning.
    std::vector<TagRow> loaded_;
};

}  // namespace zefta
