#include "ui/list/FolderBrowser.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <algorithm>
#include <unordered_set>

#include "core/Boxes.h"
#include "library/FolderAhead.h"
#include "library/FolderListing.h"
#include "library/FolderWay.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "ui/WindowTexts.h"
#include "ui/list/DriveBox.h"
#include "ui/list/FileListModel.h"
#include "ui/list/FileListView.h"
#include "ui/list/FolderScan.h"
#include "ui/list/PathBar.h"
#include "ui/list/PathBox.h"
#include "ui/list/StatusPanels.h"

namespace zefta {

namespace {

constexpr std::int32_t ChooseFolderMessage = 32001;
const std::string Root(1, PathSeparator);

/// The folder with none of its files; empty when it can't be read.
std::optional<ReadFolder> NamesOf(const App& app, const std::string& folder) {
    try {
        return ReadFolder{ContentsOf(app.files, folder, app.ansi), {}};
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

/// What stands in the place of the rows.
QString NoteOn(const App& app, const std::optional<ReadFolder>& read) {
    if (!read) return OwnText(app, WindowText::FolderIsUnreadable);
    return read->contents.entries.empty() ? OwnText(app, WindowText::FolderIsEmpty) : QString();
}

/// The folder of the process; the root when it is gone.
std::string ProcessFolder(App& app) {
    try {
        return app.files.CurrentFolder();
    } catch (const RuntimeError&) {
        app.files.SetCurrentFolder(Root);
        return Root;
    }
}

}  // namespace

FolderBrowser::FolderBrowser(App& app, StatusPanels& panels, QWidget* parent)
    : QWidget(parent),
      app_(app),
      panels_(panels),
      pathBar_(new PathBar(app)),
      model_(new FileListModel(app, this)),
      view_(new FileListView(app, *model_)),
      scan_(new FolderScan(app, *model_, panels, this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(pathBar_);
    column->addWidget(view_, 1);
    scan_->SetRowsInView([this] { return view_->RowsInView(); });
    ConnectPathBar();
    ConnectList();
}

void FolderBrowser::ConnectPathBar() {
    connect(pathBar_, &PathBar::BrowseRequested, this, &FolderBrowser::ChooseFolder);
    connect(&pathBar_->Path(), &PathBox::PathTyped, this, &FolderBrowser::EnterTypedFolder);
    connect(&pathBar_->Path(), &PathBox::PathChosen, this, &FolderBrowser::ShowFolder);
    connect(&pathBar_->Path(), &PathBox::Left, this, [this] { view_->setFocus(); });
    connect(&pathBar_->Drives(), &DriveBox::DriveChosen, this, [this](const std::string& drive) {
        ShowFolder(drive);
        view_->setFocus();
    });
}

void FolderBrowser::ConnectList() {
    const auto tellSelection = [this] {
        if (!selectionIsOwn_) emit SelectionChanged();
    };
    connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this, tellSelection);
    connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, tellSelection);
    connect(view_, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
        if (commandsEnabled_) emit RowActivated(RowAt(index.row()));
    });
    connect(view_, &FileListView::MenuRequested, this, [this](const QPoint& position) {
        if (commandsEnabled_) emit MenuRequested(position);
    });
    // Behind the drop: its source waits for the end of it, and a folder that can't be entered brings a box.
    connect(
        view_, &FileListView::FolderDropped, this,
        [this](const std::string& path) {
            if (commandsEnabled_) EnterTypedFolder(path);
        },
        Qt::QueuedConnection);
    connect(view_, &FileListView::DropRefused, this, [] { QApplication::beep(); });
    connect(view_, &FileListView::Painted, scan_, &FolderScan::GoOn);
    connect(scan_, &FolderScan::RowsInViewFilled, this, &FolderBrowser::FitColumns);
    connect(scan_, &FolderScan::FirstRowsFilled, this, &FolderBrowser::SettleColumns);
    connect(scan_, &FolderScan::Finished, this, [this] {
        if (view_->selectionModel()->hasSelection()) emit SelectionChanged();
        emit ScanFinished();
    });
}

void FolderBrowser::RefreshContents() {
    Refresh(nullptr);
}

void FolderBrowser::Refresh(FolderAhead* ahead) {
    pathBar_->Drives().Refresh();
    folder_ = WithoutDoubledSeparators(folder_);
    const bool showsNewFolder = EnterFolder();
    pathBar_->Drives().Follow(folder_);
    if (!showsNewFolder) {
        emit ListChanged();
        panels_.SetStatusText(1, {});
        return;
    }
    auto read = ahead != nullptr ? ahead->Take(folder_) : std::nullopt;
    if (!read) read = NamesOf(app_, folder_);
    view_->SetNote(NoteOn(app_, read));
    Show(std::move(read).value_or(ReadFolder()));
}

void FolderBrowser::Show(ReadFolder read) {
    ShowRows(std::move(read.contents.entries), read.files);
    for (const int panel : {2, 3, 4}) panels_.SetStatusText(panel, {});
    emit ListChanged();
    scan_->Start(folder_, read.contents.otherFiles, read.files);
}

bool FolderBrowser::EnterFolder() {
    pathBar_->Path().ShowPath(folder_);
    if (!CheckRuntimeError(app_, [&] { app_.files.SetCurrentFolder(folder_); })) return true;
    folder_ = ProcessFolder(app_);
    pathBar_->Path().ShowPath(folder_);
    // The rows stay, as long as they are those of the folder that is current again.
    return !listedFolder_.empty() && app_.files.FollowLinks(listedFolder_) != folder_;
}

void FolderBrowser::ShowRows(std::vector<ListEntry> entries, std::span<const ListedFile> known) {
    const QScopedValueRollback<bool> own(selectionIsOwn_, true);
    const auto focused = FocusedRow();
    const int focusedAt = view_->currentIndex().row();
    const bool isSameFolder = folder_ == listedFolder_;
    listedFolder_ = folder_;
    model_->ShowEntries(std::move(entries), CanGoUp(), known);
    emit CanGoUpChanged(CanGoUp());
    int row = 0;
    if (isSameFolder && focused) {
        const int sameName = model_->RowOfName(focused->name);
        row = sameName >= 0 ? sameName : std::min(focusedAt, model_->rowCount() - 1);
    }
    // The keyboard goes on where it was; nothing is selected.
    view_->selectionModel()->setCurrentIndex(model_->index(row, 0), QItemSelectionModel::NoUpdate);
    view_->scrollTo(view_->currentIndex());
}

void FolderBrowser::FitColumns() {
    if (!columnsAreFitted_ && !view_->HasOwnWidths()) view_->FitColumns();
}

void FolderBrowser::SettleColumns() {
    FitColumns();
    // Folders alone don't tell how wide the other columns have to be.
    const int last = model_->rowCount() - 1;
    if (last >= 0 && !model_->IsUpRow(last) && model_->IconAt(last) != RowIcon::Folder)
        columnsAreFitted_ = true;
}

void FolderBrowser::FinishScan() {
    scan_->Finish();
}

void FolderBrowser::ShowFolder(const std::string& path) {
    folder_ = TypedFolder(app_, folder_, path);
    RefreshContents();
}

void FolderBrowser::ShowFirstFolder(const std::string& path, FolderAhead* ahead) {
    const bool failed = CheckRuntimeError(app_, [&] { app_.files.SetCurrentFolder(path); });
    folder_ = failed ? Root : TypedFolder(app_, ProcessFolder(app_), path);
    Refresh(ahead);
}

void FolderBrowser::EnterTypedFolder(const std::string& path) {
    folder_ = TypedFolder(app_, folder_, path);
    pathBar_->Path().Remember(folder_);
    RefreshContents();
    view_->setFocus();
}

void FolderBrowser::ChooseFolder() {
    const std::string prompt = app_.messages.GetMessage(ChooseFolderMessage);
    const std::string chosen = app_.desktop.ChooseFolder(prompt, {}, folder_);
    if (!chosen.empty()) EnterTypedFolder(chosen);
}

bool FolderBrowser::CanGoUp() const {
    return !IsRoot(folder_);
}

void FolderBrowser::GoUp() {
    if (!CanGoUp()) return;
    const std::string left = NamePart(LexicalPath(folder_));
    ShowFolder(FolderAbove(folder_));
    SelectOnly(left);
}

BrowserRow FolderBrowser::RowAt(int row) const {
    return {model_->IconAt(row), model_->EntryAt(row).name};
}

std::vector<BrowserRow> FolderBrowser::Rows() const {
    std::vector<BrowserRow> rows;
    for (int row = 0; row < model_->rowCount(); ++row) rows.push_back(RowAt(row));
    return rows;
}

std::vector<BrowserRow> FolderBrowser::SelectedRows() const {
    std::vector<int> rows;
    for (const QItemSelectionRange& range : view_->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::vector<BrowserRow> selected;
    for (const int row : rows) selected.push_back(RowAt(row));
    return selected;
}

std::optional<BrowserRow> FolderBrowser::FocusedRow() const {
    const QModelIndex index = view_->currentIndex();
    return index.isValid() ? std::optional(RowAt(index.row())) : std::nullopt;
}

void FolderBrowser::SelectOnly(const std::string& name) {
    const int row = model_->RowOfName(name);
    if (row < 0) return;
    view_->selectionModel()->setCurrentIndex(model_->index(row, 0),
                                             QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    view_->scrollTo(model_->index(row, 0));
}

void FolderBrowser::SetRowSelected(const std::string& name, bool selected) {
    const int row = model_->RowOfName(name);
    if (row < 0) return;
    const auto change = selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect;
    view_->selectionModel()->select(model_->index(row, 0), change | QItemSelectionModel::Rows);
}

QItemSelection FolderBrowser::RowsWhere(const std::function<bool(int)>& isMeant) const {
    QItemSelection rows;
    const int count = model_->rowCount();
    for (int first = 0; first < count; ++first) {
        if (!isMeant(first)) continue;
        int last = first;
        while (last + 1 < count && isMeant(last + 1)) ++last;
        rows.append(QItemSelectionRange(model_->index(first, 0), model_->index(last, ListColumnCount - 1)));
        first = last;
    }
    return rows;
}

void FolderBrowser::SetIconSelected(RowIcon icon, bool selected) {
    const QItemSelection rows = RowsWhere([&](int row) { return model_->IconAt(row) == icon; });
    view_->selectionModel()->select(rows,
                                    selected ? QItemSelectionModel::Select : QItemSelectionModel::Deselect);
}

void FolderBrowser::AddToSelection(const std::vector<std::string>& names) {
    const std::unordered_set<std::string> meant(names.begin(), names.end());
    const QItemSelection rows = RowsWhere([&](int row) { return meant.contains(model_->EntryAt(row).name); });
    view_->selectionModel()->select(rows, QItemSelectionModel::Select);
}

void FolderBrowser::InvertSelection() {
    const QItemSelection rows = RowsWhere([&](int row) {
        return !model_->IsUpRow(row) && !view_->selectionModel()->isSelected(model_->index(row, 0));
    });
    view_->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

void FolderBrowser::ClearSelection() {
    view_->clearSelection();
}

void FolderBrowser::RefillRow(const std::string& oldName, const std::string& newName) {
    const int row = model_->RowOfName(oldName);
    if (row < 0) return;
    const bool isFolder = app_.files.FolderExists(JoinPath(listedFolder_, newName));
    const auto kind = isFolder ? ListKind::Folder : ListKindOf(newName);
    if (!kind) {
        model_->Remove(row);
        return;
    }
    const ListEntry entry = {newName, *kind};
    const bool scanIsYetToComeHere = !model_->IsFilled(row) && scan_->IsRunning();
    const int place = model_->Replace(row, entry);
    if (!isFolder && !scanIsYetToComeHere) {
        const FileReading reading = {app_.files, app_.ansi, UnknownContent::PassOver};
        model_->Fill(place, ReadListedFile(reading, listedFolder_, entry));
        model_->TellFilled(place, place);
    }
}

void FolderBrowser::FocusDriveBox() {
    pathBar_->Drives().setFocus();
    pathBar_->Drives().showPopup();
}

void FolderBrowser::SetCommandsEnabled(bool enabled) {
    commandsEnabled_ = enabled;
    pathBar_->setEnabled(enabled);
    view_->SetAcceptsFolders(enabled);
    scan_->SetTellsName(enabled);
}

std::vector<std::string> FolderBrowser::History() const {
    return pathBar_->Path().History();
}

void FolderBrowser::SetHistory(const std::vector<std::string>& folders) {
    pathBar_->Path().SetHistory(folders);
}

std::vector<int> FolderBrowser::ColumnWidths() const {
    return view_->HasOwnWidths() ? view_->ColumnWidths() : std::vector<int>();
}

void FolderBrowser::SetColumnWidths(const std::vector<int>& widths) {
    view_->SetColumnWidths(widths);
}

QAbstractItemView* FolderBrowser::View() const {
    return view_;
}

}  // namespace zefta
