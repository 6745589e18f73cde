#pragma once

#include <QHash>
#include <QList>
#include <QTreeView>
#include <optional>
#include <utility>

#include "core/App.h"

namespace zefta {

class FileListModel;

/// Shows the rows of lvFiles, and what stands in the place of rows where there are none.
class FileListView : public QTreeView {
    Q_OBJECT

  public:
    FileListView(App& app, FileListModel& model, QWidget* parent = nullptr);

    /// What to say below the rows; "" for nothing.
    void SetNote(const QString& note);
    const QString& Note() const { return note_; }

    /// First and last row that the person sees; empty when there are none.
    std::optional<std::pair<int, int>> RowsInView() const;

    /// Gives each column the room that its rows ask for, within limits.
    void FitColumns();
    /// Whether the person has changed a width, or widths were set.
    bool HasOwnWidths() const { return hasOwnWidths_; }
    std::vector<int> ColumnWidths() const;
    /// A width for each column that is seen; any other number of them is ignored.
    void SetColumnWidths(const std::vector<int>& widths);

    /// While false, folders that are dropped are refused.
    void SetAcceptsFolders(bool accepts) { acceptsFolders_ = accepts; }

  signals:
    void Painted();
    void FolderDropped(const std::string& path);
    /// Something else was dropped.
    void DropRefused();
    /// At that place of the screen, for the row that has the focus now.
    void MenuRequested(const QPoint& globalPosition);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void SetUpHeader();
    void PaintNote();
    /// Some of the rows from the first in view on, among them the one that asks for the most room.
    QList<int> WidestRows(int column) const;
    int WidthOfLetter(QChar letter) const;
    int WidthOfTexts(int column) const;
    QString ToolTipOf(const QModelIndex& index) const;
    bool IsElided(const QModelIndex& index) const;

    App& app_;
    FileListModel& model_;
    QString note_;
    mutable QHash<QChar, int> letterWidths_;
    bool hasOwnWidths_ = false;
    bool isFitting_ = false;
    bool acceptsFolders_ = true;
};

}  // namespace zefta
