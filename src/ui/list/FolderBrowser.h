#pragma once

#include <QAbstractItemView>
#include <QItemSelection>
#include <QWidget>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/App.h"
#include "library/ListRow.h"

namespace zefta {

class FileListModel;
class FileListView;
class FolderAhead;
class FolderScan;
class PathBar;
class StatusPanels;
struct ListedFile;
struct ReadFolder;

/// A row as the commands see it.
struct BrowserRow {
    RowIcon icon = RowIcon::Folder;
    /// As the file system has it; ".." for the way up.
    std::string name;

    bool operator==(const BrowserRow&) const = default;
};

/// One folder: the path bar (cmbPath, drvBox, cmbBrowseFolder) above the list lvFiles. Reads what the files
/// contain bit by bit while the person works on.
class FolderBrowser : public QWidget {
    Q_OBJECT

  public:
    FolderBrowser(App& app, StatusPanels& panels, QWidget* parent = nullptr);

    /// The folder that is shown, absolute.
    std::string Folder() const { return folder_; }
    /// Scans the folder anew. The names stand when it returns; the rest comes later. A scan that is under way
    /// is abandoned.
    void RefreshContents();
    /// Fills all rows before it returns.
    void FinishScan();

    /// Shows the folder.
    void ShowFolder(const std::string& path);
    /// The first folder of the window. One that can't be entered is told, and the root shown in its place.
    /// `ahead`: what was read before the window was there.
    void ShowFirstFolder(const std::string& path, FolderAhead* ahead = nullptr);
    /// As typed into the path box, which remembers it. A relative path counts from the folder that is shown.
    void EnterTypedFolder(const std::string& path);
    /// Asks for a folder and enters it as if typed.
    void ChooseFolder();
    /// Shows the folder above and selects the one that was left. Nothing happens at the root.
    void GoUp();
    bool CanGoUp() const;

    /// In the order of the list, all of them and those that are selected.
    std::vector<BrowserRow> Rows() const;
    std::vector<BrowserRow> SelectedRows() const;
    /// The row of the keyboard, selected or not.
    std::optional<BrowserRow> FocusedRow() const;
    /// Selects and focuses the row of that name alone, where there is one.
    void SelectOnly(const std::string& name);
    /// Adds the row of that name to the selection or takes it out. The focus stays where it is.
    void SetRowSelected(const std::string& name, bool selected);
    /// Adds the rows of these names. The focus stays where it is.
    void AddToSelection(const std::vector<std::string>& names);
    /// Selects or deselects all rows of that icon.
    void SetIconSelected(RowIcon icon, bool selected);
    /// The way up is never among the selected then.
    void InvertSelection();
    void ClearSelection();
    /// Reads the row of the old name again under the new one and brings it to its place.
    void RefillRow(const std::string& oldName, const std::string& newName);

    /// Focuses drvBox and opens its list.
    void FocusDriveBox();
    /// While false the person can look, but neither change the folder nor start anything on a row, and a scan
    /// leaves panel 1 alone.
    void SetCommandsEnabled(bool enabled);
    /// The folders of the path box, newest first.
    std::vector<std::string> History() const;
    void SetHistory(const std::vector<std::string>& folders);

    /// Widths of the columns in logical pixels; empty as long as they follow the content.
    std::vector<int> ColumnWidths() const;
    void SetColumnWidths(const std::vector<int>& widths);

    /// lvFiles.
    QAbstractItemView* View() const;

  signals:
    /// Selection or focus have changed.
    void SelectionChanged();
    /// The names of the list are new.
    void ListChanged();
    /// All rows are full.
    void ScanFinished();
    void CanGoUpChanged(bool canGoUp);
    /// Double click.
    void RowActivated(const zefta::BrowserRow& row);
    /// Right button on a row, which is selected, or the key for the menu of the focused row.
    void MenuRequested(const QPoint& globalPosition);

  private:
    void ConnectPathBar();
    void ConnectList();
    /// False when the rows are to stay, since the folder could not be entered.
    bool EnterFolder();
    void Refresh(FolderAhead* ahead);
    void Show(ReadFolder read);
    void ShowRows(std::vector<ListEntry> entries, std::span<const ListedFile> known);
    void FitColumns();
    /// For the last time, once there are files.
    void SettleColumns();
    BrowserRow RowAt(int row) const;
    QItemSelection RowsWhere(const std::function<bool(int)>& isMeant) const;

    App& app_;
    StatusPanels& panels_;
    PathBar* pathBar_;
    FileListModel* model_;
    FileListView* view_;
    FolderScan* scan_;
    std::string folder_;
    /// What the list shows; differs from folder_ when that could not be entered.
    std::string listedFolder_;
    bool commandsEnabled_ = true;
    bool columnsAreFitted_ = false;
    /// While the list changes its rows, which is no choice of the person.
    bool selectionIsOwn_ = false;
};

}  // namespace zefta
