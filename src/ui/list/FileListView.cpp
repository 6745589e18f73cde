#include "ui/list/FileListView.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QUrl>
#include <algorithm>
#include <array>
#include <functional>
#include <numeric>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/list/FileListModel.h"
#include "ui/list/KindDelegate.h"
#include "ui/list/RowDelegate.h"

namespace zefta {

namespace {

constexpr int SeenColumns = ListColumnCount - 1;
/// A column gets at most the room of so many letters by itself; the person may give it more.
constexpr int WidestFit = 45;
/// The letters that a column has room for at least: what it holds in one folder may be short by chance.
constexpr std::array<int, SeenColumns> NarrowestFit = {20, 0, 0, 0, 12, 18, 0, 12};

/// Keeps numbers, which stand at the right, off the column behind them.
class NumberDelegate : public RowDelegate {
  public:
    using RowDelegate::RowDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override {
        // Blanks at the end of a line take no room, these do.
        return value.toString() + QChar(QChar::Nbsp);
    }
};

/// Measures its captions as they are painted: in a header that marks no section they are never bold, and the
/// toolkit would load the bold font for nothing but their room.
class PlainHeader : public QHeaderView {
  public:
    explicit PlainHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
        setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        setSectionsMovable(false);
        setStretchLastSection(false);
    }

  protected:
    QSize sectionSizeFromContents(int section) const override {
        QStyleOptionHeader option;
        initStyleOption(&option);
        option.section = section;
        option.text = model()->headerData(section, orientation()).toString();
        return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), this);
    }
};

/// The one folder that was dropped; "" for anything else.
std::string DroppedFolder(const App& app, const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    if (urls.size() != 1 || !urls.first().isLocalFile()) return {};
    // Names are bytes; a name that is no text in Unicode keeps them only this way.
    const QByteArray encoded = urls.first().path(QUrl::FullyEncoded).toLatin1();
    const std::string path = QByteArray::fromPercentEncoding(encoded).toStdString();
    return app.files.FolderExists(path) ? path : std::string();
}

/// What the source is told of: the folder is looked at and stays where it is, and a source that hears of a
/// move deletes what it gave.
Qt::DropAction ActionFor(const QDropEvent& event) {
    const Qt::DropActions possible = event.possibleActions();
    if (possible.testFlag(Qt::CopyAction)) return Qt::CopyAction;
    return possible.testFlag(Qt::LinkAction) ? Qt::LinkAction : Qt::IgnoreAction;
}

/// A source that only knows moves would not drop anything where nothing is to be done with it.
void OfferToTake(QDropEvent& event) {
    const Qt::DropAction action = ActionFor(event);
    event.setDropAction(action == Qt::IgnoreAction ? event.proposedAction() : action);
    event.accept();
}

}  // namespace

FileListView::FileListView(App& app, FileListModel& model, QWidget* parent)
    : QTreeView(parent), app_(app), model_(model) {
    setObjectName("lvFiles");
    setAccessibleName(OwnText(app, WindowText::FileList));
    setModel(&model);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setAcceptDrops(true);
    SetUpHeader();
    setItemDelegate(new RowDelegate(this));
    setItemDelegateForColumn(static_cast<int>(ListColumn::File), new KindDelegate(this));
    auto* numbers = new NumberDelegate(this);
    for (const ListColumn column : {ListColumn::Size, ListColumn::Bitrate, ListColumn::Time})
        setItemDelegateForColumn(static_cast<int>(column), numbers);
    model.SetBackground(palette().color(QPalette::Base));
}

void FileListView::SetUpHeader() {
    setHeader(new PlainHeader(this));
    setColumnHidden(static_cast<int>(ListColumn::SortOrder), true);
    connect(header(), &QHeaderView::sectionResized, this, [this] {
        if (!isFitting_) hasOwnWidths_ = true;
    });
}

void FileListView::SetNote(const QString& note) {
    note_ = note;
    setAccessibleDescription(note);
    viewport()->update();
}

std::optional<std::pair<int, int>> FileListView::RowsInView() const {
    if (model_.rowCount() == 0) return std::nullopt;
    const QModelIndex first = indexAt(QPoint(0, 0));
    const QModelIndex last = indexAt(QPoint(0, viewport()->height() - 1));
    return std::pair{first.isValid() ? first.row() : 0, last.isValid() ? last.row() : model_.rowCount() - 1};
}

/// Measuring every text takes longer than reading the files; adding up its letters finds the ones that count.
QList<int> FileListView::WidestRows(int column) const {
    constexpr qsizetype Measured = 3;
    const auto inView = RowsInView();
    if (!inView) return {};
    const int end = std::min(inView->first + SampleRows, model_.rowCount());
    QList<std::pair<int, int>> widths;
    for (int row = inView->first; row < end; ++row) {
        const QString text = model_.index(row, column).data().toString();
        const int width = std::accumulate(text.begin(), text.end(), 0,
                                          [&](int sum, QChar letter) { return sum + WidthOfLetter(letter); });
        widths.append({width, row});
    }
    const qsizetype count = std::min(Measured, widths.size());
    std::partial_sort(widths.begin(), widths.begin() + count, widths.end(), std::greater<>());
    QList<int> rows;
    for (const auto& [width, row] : widths.first(count)) rows.append(row);
    return rows;
}

int FileListView::WidthOfLetter(QChar letter) const {
    auto found = letterWidths_.find(letter);
    if (found == letterWidths_.end())
        found = letterWidths_.insert(letter, fontMetrics().horizontalAdvance(letter));
    return *found;
}

int FileListView::WidthOfTexts(int column) const {
    int widest = 0;
    for (const int row : WidestRows(column))
        widest = std::max(widest, sizeHintForIndex(model_.index(row, column)).width());
    return widest;
}

void FileListView::FitColumns() {
    // The font may have changed since.
    letterWidths_.clear();
    const int letter = fontMetrics().averageCharWidth();
    isFitting_ = true;
    for (int column = 0; column < SeenColumns; ++column) {
        const int asked = std::max(WidthOfTexts(column), header()->sectionSizeHint(column)) + letter;
        const int narrowest = NarrowestFit.at(static_cast<std::size_t>(column)) * letter;
        setColumnWidth(column, std::clamp(asked, narrowest, WidestFit * letter));
    }
    isFitting_ = false;
}

std::vector<int> FileListView::ColumnWidths() const {
    std::vector<int> widths;
    for (int column = 0; column < SeenColumns; ++column) widths.push_back(columnWidth(column));
    return widths;
}

void FileListView::SetColumnWidths(const std::vector<int>& widths) {
    if (widths.size() != SeenColumns) return;
    for (int column = 0; column < SeenColumns; ++column)
        setColumnWidth(column, std::max(widths.at(static_cast<std::size_t>(column)), 0));
    hasOwnWidths_ = true;
}

void FileListView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::RightButton) {
        QTreeView::mousePressEvent(event);
        return;
    }
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid()) return;
    const bool isSelected = selectionModel()->isSelected(index);
    const auto change = isSelected ? QItemSelectionModel::NoUpdate : QItemSelectionModel::ClearAndSelect;
    selectionModel()->setCurrentIndex(index, change | QItemSelectionModel::Rows);
    emit MenuRequested(event->globalPosition().toPoint());
}

void FileListView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        QTreeView::mouseDoubleClickEvent(event);
    } else {
        mousePressEvent(event);
    }
}

void FileListView::contextMenuEvent(QContextMenuEvent* event) {
    // The right button was answered when it went down.
    if (event->reason() != QContextMenuEvent::Keyboard || !currentIndex().isValid()) return;
    scrollTo(currentIndex());
    emit MenuRequested(viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft()));
}

void FileListView::dragEnterEvent(QDragEnterEvent* event) {
    if (acceptsFolders_ && event->mimeData()->hasUrls()) OfferToTake(*event);
}

void FileListView::dragMoveEvent(QDragMoveEvent* event) {
    if (acceptsFolders_ && event->mimeData()->hasUrls()) OfferToTake(*event);
}

void FileListView::dropEvent(QDropEvent* event) {
    const std::string folder = acceptsFolders_ ? DroppedFolder(app_, *event->mimeData()) : std::string();
    if (folder.empty()) {
        emit DropRefused();
        return;
    }
    event->setDropAction(ActionFor(*event));
    event->accept();
    emit FolderDropped(folder);
}

void FileListView::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (!note_.isEmpty()) PaintNote();
    emit Painted();
}

void FileListView::PaintNote() {
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int margin = fontMetrics().height();
    const QRect place = viewport()->rect().adjusted(margin, margin, -margin, -margin);
    painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, note_);
}

bool FileListView::IsElided(const QModelIndex& index) const {
    return sizeHintForIndex(index).width() > visualRect(index).width();
}

QString FileListView::ToolTipOf(const QModelIndex& index) const {
    const QString words = index.data(Qt::ToolTipRole).toString();
    if (!IsElided(index)) return words;
    const QString text = index.data(Qt::DisplayRole).toString();
    return words.isEmpty() ? text : text + '\n' + words;
}

bool FileListView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QTreeView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const QString tip = index.isValid() ? ToolTipOf(index) : QString();
    // Names and tags are no markup.
    QToolTip::showText(help->globalPos(),
                       tip.isEmpty() ? tip : "<p style='white-space:pre'>" + tip.toHtmlEscaped() + "</p>",
                       viewport(), visualRect(index));
    return true;
}

void FileListView::changeEvent(QEvent* event) {
    QTreeView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) model_.SetBackground(palette().color(QPalette::Base));
}

}  // namespace zefta
