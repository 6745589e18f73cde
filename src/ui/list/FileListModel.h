#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QIcon>
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/App.h"
#include "library/ListColours.h"
#include "library/ListedFile.h"

namespace zefta {

/// The columns of the list, in their order.
enum class ListColumn { File, Size, Bitrate, Time, Artist, Title, Year, Album, SortOrder, Count };

inline constexpr int ListColumnCount = static_cast<int>(ListColumn::Count);

/// Rows that tell how wide a column has to be.
inline constexpr int SampleRows = 200;

/// The rows of lvFiles, in the order of the list. A row has its name and icon at once; the cells that tell
/// what the file contains are empty until it is filled.
class FileListModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    explicit FileListModel(const App& app, QObject* parent = nullptr);

    /// Takes the entries, in their order, in the place of all rows. Folders need no filling. `known`: what
    /// the first of the entries hold.
    void ShowEntries(std::vector<ListEntry> entries, bool withUpRow, std::span<const ListedFile> known = {});

    const ListEntry& EntryAt(int row) const { return rows_.at(static_cast<std::size_t>(row)).entry; }
    RowIcon IconAt(int row) const;
    bool IsUpRow(int row) const { return hasUpRow_ && row == 0; }
    /// -1 when there is none.
    int RowOfName(const std::string& name) const;

    /// The first row from there on that is not filled, the rows above it last; empty when all are.
    std::optional<int> NextUnfilled(int from) const;
    bool IsFilled(int row) const { return IsUpRow(row) || rows_.at(static_cast<std::size_t>(row)).isFilled; }
    /// Views learn of it from TellFilled.
    void Fill(int row, const ListedFile& file);
    void TellFilled(int first, int last);

    /// Gives the row another entry, unfilled, and brings it to its place in the order. The row it has now.
    int Replace(int row, const ListEntry& entry);
    void Remove(int row);

    /// The colour behind the texts, to which theirs are fitted.
    void SetBackground(const QColor& background);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    /// What a filled row shows.
    struct Content {
        ListRow row;
        RowColours colours;
    };

    struct Row {
        ListEntry entry;
        /// Null where there is nothing to show beside the name.
        std::unique_ptr<Content> content;
        bool isFilled = false;
    };

    std::string CellText(int row, ListColumn column) const;
    QVariant CellColour(int row, ListColumn column) const;
    QString CellWords(int row, ListColumn column) const;
    QVariant AccessibleCell(int row, ListColumn column) const;
    bool IsBold(int row, ListColumn column) const;
    void FillKnown(std::span<const ListedFile> known);
    /// Where the row belongs among the others, which are in order.
    int PlaceOf(int row) const;
    void Move(int row, int place);

    const App& app_;
    std::vector<Row> rows_;
    std::size_t filledRows_ = 0;
    /// The row that was asked for by its name last; no longer one when rows were removed.
    mutable std::ptrdiff_t lastFound_ = 0;
    bool hasUpRow_ = false;
    int currentYear_;
    QColor background_ = Qt::white;
    std::array<QIcon, 6> icons_;
};

}  // namespace zefta
