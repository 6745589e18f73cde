#include "ui/rename/RenamePreviewModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "library/FolderListing.h"
#include "platform/Text.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

/// What steps say in words of their own, for the windows.
struct Reason {
    const char* told;
    WindowText text;
};

constexpr Reason Reasons[] = {
    {"holds neither artist nor title", WindowText::RenameNoTags},
    {"can't be read", WindowText::RenameUnreadable},
    {"no kind of file that has tags", WindowText::RenameNoKind},
    {"no such file", WindowText::RenameNoFile},
    {"no text of lines", WindowText::RenameNoText},
};

constexpr WindowText Headings[] = {WindowText::RenameOldName, WindowText::RenameNewName,
                                   WindowText::RenameNote};

}  // namespace

RenamePreviewModel::RenamePreviewModel(const App& app, QObject* parent)
    : QAbstractTableModel(parent), app_(app) {}

void RenamePreviewModel::Clear() {
    beginResetModel();
    lines_.clear();
    renamed_ = 0;
    kept_ = 0;
    endResetModel();
}

void RenamePreviewModel::Count(const PreviewedRename& line) {
    using Kind = PreviewedRename::Kind;
    if (line.kind == Kind::Renamed || line.kind == Kind::Numbered) ++renamed_;
    if (line.kind == Kind::Refused || line.kind == Kind::Unchanged) ++kept_;
}

void RenamePreviewModel::Append(std::vector<PreviewedRename> lines) {
    if (lines.empty()) return;
    const int first = static_cast<int>(lines_.size());
    beginInsertRows({}, first, first + static_cast<int>(lines.size()) - 1);
    for (const PreviewedRename& line : lines) Count(line);
    std::move(lines.begin(), lines.end(), std::back_inserter(lines_));
    endInsertRows();
}

void RenamePreviewModel::SortAsList() {
    struct Place {
        std::string order;
        std::string name;
        std::size_t row;
        auto operator<=>(const Place&) const = default;
    };
    std::vector<Place> places;
    for (std::size_t row = 0; row < lines_.size(); ++row) {
        const std::string& name = lines_[row].oldName;
        const ListEntry entry = {name, ListKindOf(name).value_or(ListKind::MP3)};
        places.push_back({ToLower(SortOrder(entry, app_.ansi)), name, row});
    }
    std::sort(places.begin(), places.end());
    emit layoutAboutToBeChanged();
    std::vector<PreviewedRename> sorted;
    std::vector<int> newRows(lines_.size());
    for (const Place& place : places) {
        newRows[place.row] = static_cast<int>(sorted.size());
        sorted.push_back(std::move(lines_[place.row]));
    }
    lines_ = std::move(sorted);
    for (const QModelIndex& former : persistentIndexList())
        changePersistentIndex(former,
                              index(newRows.at(static_cast<std::size_t>(former.row())), former.column()));
    emit layoutChanged();
}

int RenamePreviewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

int RenamePreviewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QString RenamePreviewModel::NoteOf(const PreviewedRename& line) const {
    using Kind = PreviewedRename::Kind;
    if (line.kind == Kind::Numbered) return OwnText(app_, WindowText::RenameTaken);
    if (line.kind == Kind::Unchanged) return OwnText(app_, WindowText::RenameUnchanged);
    if (line.kind == Kind::Playlist)
        return OwnText(app_, WindowText::RenameLines) + " " + ToQt(line.reason).section(' ', 0, 0);
    const auto reason = std::find_if(std::begin(Reasons), std::end(Reasons),
                                     [&](const Reason& each) { return line.reason == each.told; });
    return reason == std::end(Reasons) ? ToQt(app_.ansi.ToText(line.reason)) : OwnText(app_, reason->text);
}

QString RenamePreviewModel::Text(const PreviewedRename& line, int column) const {
    if (column == OldName) return ToQt(app_.ansi.ToText(line.oldName));
    if (column == NewName) return ToQt(app_.ansi.ToText(line.newName));
    return NoteOf(line);
}

QVariant RenamePreviewModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    const QString text = Text(lines_.at(static_cast<std::size_t>(index.row())), index.column());
    // A name that looks like markup is none.
    return role == Qt::ToolTipRole && !text.isEmpty() ? QVariant("<p>" + text.toHtmlEscaped() + "</p>")
                                                      : QVariant(text);
}

QVariant RenamePreviewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= ColumnCount) return {};
    return OwnText(app_, Headings[section]);
}

}  // namespace zefta
