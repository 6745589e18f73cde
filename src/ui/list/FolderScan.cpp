#include "ui/list/FolderScan.h"

#include <QElapsedTimer>
#include <algorithm>

#include "ui/list/FileListModel.h"
#include "ui/list/StatusPanels.h"

namespace zefta {

namespace {

constexpr std::int32_t ScanningMessage = 32015;

/// A slice ends with the file in which it has taken so long; one file takes much less than that.
constexpr qint64 SliceMilliseconds = 15;

}  // namespace

FolderScan::FolderScan(App& app, FileListModel& model, StatusPanels& panels, QObject* parent)
    : QObject(parent), app_(app), model_(model), panels_(panels) {
    connect(&timer_, &QTimer::timeout, this, &FolderScan::RunSlice);
}

void FolderScan::Start(const std::string& folder, const std::vector<std::string>& otherFiles,
                       std::span<const ListedFile> known) {
    folder_ = folder;
    count_ = {};
    next_ = 0;
    changed_.reset();
    viewIsFilled_ = false;
    firstRowsAreFilled_ = false;
    filledRows_ = static_cast<int>(known.size());
    CountNames(otherFiles);
    CountKnown(known);
    TellChanges();
    timer_.start(0);
}

void FolderScan::CountNames(const std::vector<std::string>& otherFiles) {
    nameAtHand_.clear();
    for (int row = 0; row < model_.rowCount() && model_.EntryAt(row).kind == ListKind::Folder; ++row) {
        if (model_.IsUpRow(row)) continue;
        count_.AddFolder();
        nameAtHand_ = model_.EntryAt(row).name;
    }
    for (const std::string& name : otherFiles) {
        count_.PassFile();
        nameAtHand_ = name;
    }
}

void FolderScan::CountKnown(std::span<const ListedFile> known) {
    int row = model_.IsUpRow(0) ? 1 : 0;
    for (const ListedFile& file : known) {
        const ListEntry& entry = model_.EntryAt(row++);
        if (entry.kind == ListKind::Folder) continue;
        count_.AddFile(file.bytes);
        nameAtHand_ = entry.name;
    }
}

std::optional<int> FolderScan::UnfilledInView() const {
    const auto seen = rowsInView_();
    if (!seen) return std::nullopt;
    const int last = std::min(seen->second, model_.rowCount() - 1);
    for (int row = std::max(seen->first, 0); row <= last; ++row) {
        if (!model_.IsFilled(row)) return row;
    }
    return std::nullopt;
}

std::optional<int> FolderScan::NextRow() const {
    if (const auto row = UnfilledInView()) return row;
    return model_.NextUnfilled(next_);
}

void FolderScan::FillRow(int row) {
    const ListEntry& entry = model_.EntryAt(row);
    nameAtHand_ = entry.name;
    const FileReading reading = {app_.files, app_.ansi, UnknownContent::PassOver};
    const ListedFile file = ReadListedFile(reading, folder_, entry);
    count_.AddFile(file.bytes);
    model_.Fill(row, file);
    ++filledRows_;
    changed_ = changed_ ? std::pair{std::min(changed_->first, row), std::max(changed_->second, row)}
                        : std::pair{row, row};
}

void FolderScan::TellChanges() {
    if (changed_) model_.TellFilled(changed_->first, changed_->second);
    changed_.reset();
    if (tellsName_ && !nameAtHand_.empty())
        panels_.SetStatusText(1, app_.messages.GetMessage(ScanningMessage, app_.ansi.ToText(nameAtHand_)));
    panels_.SetStatusText(2, count_.CountText(app_.messages));
    panels_.SetStatusText(3, count_.SizeText());
}

void FolderScan::FillWhile(const std::function<std::optional<int>()>& next) {
    QElapsedTimer sliceTime;
    sliceTime.start();
    auto row = next();
    while (row && sliceTime.elapsed() < SliceMilliseconds) {
        FillRow(*row);
        next_ = *row + 1;
        row = next();
    }
    TellChanges();
}

void FolderScan::RunSlice() {
    if (viewIsFilled_) {
        FillRest();
    } else {
        FillView();
    }
}

void FolderScan::FillView() {
    FillWhile([this] { return UnfilledInView(); });
    if (UnfilledInView()) return;
    if (!NextRow()) return End();
    viewIsFilled_ = true;
    timer_.start(patience_);
    emit RowsInViewFilled();
}

void FolderScan::GoOn() {
    if (timer_.isActive() && timer_.interval() != 0) timer_.start(0);
}

void FolderScan::FillRest() {
    GoOn();
    FillWhile([this] { return NextRow(); });
    if (filledRows_ >= SampleRows) TellFirstRows();
    if (!NextRow()) End();
}

void FolderScan::TellFirstRows() {
    if (!firstRowsAreFilled_) emit FirstRowsFilled();
    firstRowsAreFilled_ = true;
}

void FolderScan::Finish() {
    if (!IsRunning()) return;
    while (const auto row = model_.NextUnfilled(next_)) {
        FillRow(*row);
        next_ = *row + 1;
    }
    TellChanges();
    End();
}

void FolderScan::End() {
    timer_.stop();
    TellFirstRows();
    if (tellsName_) panels_.SetStatusText(1, {});
    emit Finished();
}

}  // namespace zefta
