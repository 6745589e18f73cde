#include "ui/list/FileListModel.h"

#include <QDate>
#include <QFont>
#include <algorithm>

#include "core/FileNames.h"
#include "library/ReadableColour.h"
#include "ui/QtColour.h"
#include "ui/Resources.h"
#include "ui/list/OneLineText.h"
#include "ui/list/RowWords.h"

namespace zefta {

namespace {

/// What the columns are called in every language.
constexpr std::array<const char*, ListColumnCount> Headers = {
    "File", "Size", "Bitrate", "Time", "Artist", "Title", "Year", "Album", "SortOrder"};

/// The members of a row that the columns show.
constexpr std::array<std::string ListRow::*, ListColumnCount> Cells = {
    &ListRow::File,  &ListRow::Size, &ListRow::Bitrate, &ListRow::Time,     &ListRow::Artist,
    &ListRow::Title, &ListRow::Year, &ListRow::Album,   &ListRow::SortOrder};

constexpr auto UpName = "..";

std::array<QIcon, 6> RowIcons() {
    return {QIcon(),           OwnIcon("row-compressed"), OwnIcon("row-folder"),
            OwnIcon("row-up"), OwnIcon("row-wave"),       OwnIcon("row-playlist")};
}

bool IsNumberColumn(ListColumn column) {
    return column == ListColumn::Size || column == ListColumn::Bitrate || column == ListColumn::Time;
}

/// A tag may hold megabytes, which would be laid out for each painting of another width.
void CutCell(std::string& text) {
    constexpr std::size_t MostBytes = 1000;
    text.resize(CutToBytes(text, MostBytes).size());
}

std::optional<Colour> ColourOfCell(const RowColours& colours, ListColumn column) {
    switch (column) {
        case ListColumn::Size:
            return colours.Size ? colours.Size : colours.Row;
        case ListColumn::Bitrate:
            return colours.Bitrate ? colours.Bitrate : colours.Row;
        case ListColumn::Year:
            return colours.Year ? colours.Year : colours.Row;
        default:
            return colours.Row;
    }
}

}  // namespace

FileListModel::FileListModel(const App& app, QObject* parent)
    : QAbstractTableModel(parent), app_(app), currentYear_(QDate::currentDate().year()), icons_(RowIcons()) {}

void FileListModel::ShowEntries(std::vector<ListEntry> entries, bool withUpRow,
                                std::span<const ListedFile> known) {
    beginResetModel();
    currentYear_ = QDate::currentDate().year();
    hasUpRow_ = withUpRow;
    rows_.clear();
    rows_.reserve(entries.size() + 1);
    if (withUpRow) rows_.push_back({{UpName, ListKind::Folder}, nullptr, true});
    for (ListEntry& entry : entries) {
        const bool isFolder = entry.kind == ListKind::Folder;
        rows_.push_back({std::move(entry), nullptr, isFolder});
    }
    filledRows_ = static_cast<std::size_t>(
        std::count_if(rows_.begin(), rows_.end(), [](const Row& row) { return row.isFilled; }));
    FillKnown(known);
    endResetModel();
}

void FileListModel::FillKnown(std::span<const ListedFile> known) {
    int row = hasUpRow_ ? 1 : 0;
    for (const ListedFile& file : known) {
        if (!IsFilled(row)) Fill(row, file);
        ++row;
    }
}

RowIcon FileListModel::IconAt(int row) const {
    return IsUpRow(row) ? RowIcon::Up : IconOf(EntryAt(row).kind);
}

int FileListModel::RowOfName(const std::string& name) const {
    const auto hasName = [&](const Row& one) { return one.entry.name == name; };
    // Batches ask in the order of the rows: the next one is near the last.
    const auto last = rows_.begin() + std::min<std::ptrdiff_t>(lastFound_, std::ssize(rows_));
    auto row = std::find_if(last, rows_.end(), hasName);
    if (row == rows_.end()) {
        row = std::find_if(rows_.begin(), last, hasName);
        if (row == last) return -1;
    }
    lastFound_ = row - rows_.begin();
    return static_cast<int>(lastFound_);
}

std::optional<int> FileListModel::NextUnfilled(int from) const {
    if (filledRows_ == rows_.size()) return std::nullopt;
    const auto isUnfilled = [](const Row& row) { return !row.isFilled; };
    const auto start = rows_.begin() + std::clamp(from, 0, rowCount());
    auto row = std::find_if(start, rows_.end(), isUnfilled);
    if (row == rows_.end()) row = std::find_if(rows_.begin(), start, isUnfilled);
    return static_cast<int>(row - rows_.begin());
}

void FileListModel::Fill(int row, const ListedFile& file) {
    Row& filled = rows_.at(static_cast<std::size_t>(row));
    auto content = std::make_unique<Content>();
    content->row = RowOf(filled.entry, file.bytes, file.tag, app_.ansi);
    content->colours = ColoursOf(filled.entry, content->row, file.tag, currentYear_);
    for (const auto cell : Cells) CutCell(content->row.*cell);
    filled.content = std::move(content);
    if (!filled.isFilled) ++filledRows_;
    filled.isFilled = true;
}

void FileListModel::TellFilled(int first, int last) {
    emit dataChanged(index(first, 0), index(last, ListColumnCount - 1));
}

int FileListModel::PlaceOf(int row) const {
    const auto standsAbove = [&](const Row& other) {
        return StandsAbove(other.entry, EntryAt(row), app_.ansi);
    };
    const auto at = rows_.begin() + row;
    const auto above = std::partition_point(rows_.begin() + (hasUpRow_ ? 1 : 0), at, standsAbove);
    const auto below = std::partition_point(at + 1, rows_.end(), standsAbove);
    return static_cast<int>((above != at ? above : below - 1) - rows_.begin());
}

void FileListModel::Move(int row, int place) {
    if (row == place) return;
    beginMoveRows({}, row, row, {}, place > row ? place + 1 : place);
    const auto from = rows_.begin() + row;
    const auto to = rows_.begin() + place;
    if (place > row) {
        std::rotate(from, from + 1, to + 1);
    } else {
        std::rotate(to, from, from + 1);
    }
    endMoveRows();
}

int FileListModel::Replace(int row, const ListEntry& entry) {
    Row& changed = rows_.at(static_cast<std::size_t>(row));
    if (changed.isFilled) --filledRows_;
    changed = {entry, nullptr, entry.kind == ListKind::Folder};
    if (changed.isFilled) ++filledRows_;
    const int place = PlaceOf(row);
    Move(row, place);
    TellFilled(place, place);
    return place;
}

void FileListModel::Remove(int row) {
    beginRemoveRows({}, row, row);
    if (IsFilled(row)) --filledRows_;
    rows_.erase(rows_.begin() + row);
    endRemoveRows();
}

void FileListModel::SetBackground(const QColor& background) {
    if (background == background_) return;
    background_ = background;
    if (!rows_.empty()) TellFilled(0, rowCount() - 1);
}

int FileListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int FileListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ListColumnCount;
}

std::string FileListModel::CellText(int row, ListColumn column) const {
    const Row& one = rows_.at(static_cast<std::size_t>(row));
    if (column == ListColumn::File) return app_.ansi.ToText(one.entry.name);
    if (column == ListColumn::SortOrder)
        return IsUpRow(row) ? std::string() : SortOrder(one.entry, app_.ansi);
    if (one.content) return one.content->row.*Cells.at(static_cast<std::size_t>(column));
    return column == ListColumn::Size && one.isFilled ? " " : "";
}

QVariant FileListModel::CellColour(int row, ListColumn column) const {
    if (column == ListColumn::SortOrder) return background_;
    const Row& one = rows_.at(static_cast<std::size_t>(row));
    const RowColours colours =
        one.content ? one.content->colours : ColoursOf(one.entry, {}, {}, currentYear_);
    const auto told = ColourOfCell(colours, column);
    if (!told) return {};
    const Colour shown = ReadableOn(FromQt(background_), *told);
    return ToQt(shown);
}

QString FileListModel::CellWords(int row, ListColumn column) const {
    const Row& one = rows_.at(static_cast<std::size_t>(row));
    if (column == ListColumn::File)
        return OwnText(app_, IsUpRow(row) ? WindowText::KindUp : KindWords(one.entry.kind));
    if (!one.content) return {};
    if (column == ListColumn::Bitrate) return BitrateWords(app_, one.entry.kind, one.content->colours);
    return column == ListColumn::Year ? YearWords(app_, one.content->colours) : QString();
}

QVariant FileListModel::AccessibleCell(int row, ListColumn column) const {
    const QString text = OneLineText(CellText(row, column));
    const QString words = CellWords(row, column);
    return words.isEmpty() || text.isEmpty() ? text : text + ", " + words;
}

bool FileListModel::IsBold(int row, ListColumn column) const {
    const auto& content = rows_.at(static_cast<std::size_t>(row)).content;
    return column == ListColumn::Bitrate && content && content->colours.BitrateIsBold;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int row = index.row();
    const auto column = static_cast<ListColumn>(index.column());
    switch (role) {
        case Qt::DisplayRole:
            return OneLineText(CellText(row, column));
        case Qt::DecorationRole:
            if (column != ListColumn::File) return {};
            return icons_.at(static_cast<std::size_t>(IconAt(row)));
        case Qt::ForegroundRole:
            return CellColour(row, column);
        case Qt::TextAlignmentRole:
            if (!IsNumberColumn(column)) return {};
            return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
        case Qt::ToolTipRole:
            return CellWords(row, column);
        case Qt::AccessibleTextRole:
            return AccessibleCell(row, column);
        case Qt::FontRole: {
            if (!IsBold(row, column)) return {};
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        default:
            return {};
    }
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= ListColumnCount) return {};
    if (role == Qt::DisplayRole) return QString::fromLatin1(Headers.at(static_cast<std::size_t>(section)));
    if (role == Qt::TextAlignmentRole && IsNumberColumn(static_cast<ListColumn>(section)))
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

}  // namespace zefta
