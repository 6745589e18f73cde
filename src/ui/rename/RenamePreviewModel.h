#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "app/RenamePreview.h"
#include "core/App.h"

namespace zefta {

/// The rows of the preview: old name, new name, note.
class RenamePreviewModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    enum Column { OldName, NewName, Note, ColumnCount };

    RenamePreviewModel(const App& app, QObject* parent);

    void Clear();
    void Append(std::vector<PreviewedRename> lines);
    /// As the list of the main window stands: the disk has an order of its own, in which they come and are
    /// numbered.
    void SortAsList();
    /// How many files get a new name, and how many keep theirs.
    int RenamedCount() const { return renamed_; }
    int KeptCount() const { return kept_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    void Count(const PreviewedRename& line);
    QString Text(const PreviewedRename& line, int column) const;
    QString NoteOf(const PreviewedRename& line) const;

    const App& app_;
    std::vector<PreviewedRename> lines_;
    int renamed_ = 0;
    int kept_ = 0;
};

}  // namespace zefta
