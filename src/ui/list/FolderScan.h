#pragma once

#include <QTimer>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "core/App.h"
#include "library/ListedFile.h"
#include "library/ScanCount.h"

namespace zefta {

class FileListModel;
class StatusPanels;

/// Fills the rows of a folder in slices between the events of the person: the rows in view first, then, when
/// those are painted, the rest in their order. Files that can't be read give rows with what could be read; no
/// box comes up. Tells in the panels how far it is.
class FolderScan : public QObject {
    Q_OBJECT

  public:
    using RowsInView = std::function<std::optional<std::pair<int, int>>()>;

    FolderScan(App& app, FileListModel& model, StatusPanels& panels, QObject* parent = nullptr);

    void SetRowsInView(RowsInView rowsInView) { rowsInView_ = std::move(rowsInView); }

    /// Whether panel 1 is the scan's; not while it tells how far a command is.
    void SetTellsName(bool tellsName) { tellsName_ = tellsName; }

    /// Begins with the rows that the model has now, in the place of a scan that is under way. The other files
    /// of the folder are told, but not read. `known`: what the first of the entries hold, which the
    /// model has already.
    void Start(const std::string& folder, const std::vector<std::string>& otherFiles,
               std::span<const ListedFile> known = {});
    /// What is in view has been painted: the scan does not wait for that any longer.
    void GoOn();
    /// How long it waits for that at most, in milliseconds; a window may be hidden.
    void SetPatience(int milliseconds) { patience_ = milliseconds; }
    /// Comes to the end before it returns.
    void Finish();
    bool IsRunning() const { return timer_.isActive(); }

  signals:
    /// At least the rows in view are full.
    void RowsInViewFilled();
    /// So are SampleRows, or all of them.
    void FirstRowsFilled();
    void Finished();

  private:
    void CountNames(const std::vector<std::string>& otherFiles);
    void CountKnown(std::span<const ListedFile> known);
    void RunSlice();
    void FillView();
    void FillRest();
    void FillWhile(const std::function<std::optional<int>()>& next);
    std::optional<int> NextRow() const;
    std::optional<int> UnfilledInView() const;
    void FillRow(int row);
    void TellChanges();
    void TellFirstRows();
    void End();

    App& app_;
    FileListModel& model_;
    StatusPanels& panels_;
    RowsInView rowsInView_ = [] { return std::nullopt; };
    QTimer timer_;
    std::string folder_;
    ScanCount count_;
    std::string nameAtHand_;
    /// Where the rows out of view go on.
    int next_ = 0;
    /// Rows that views have not been told of.
    std::optional<std::pair<int, int>> changed_;
    bool viewIsFilled_ = false;
    bool firstRowsAreFilled_ = false;
    int filledRows_ = 0;
    int patience_ = 50;
    bool tellsName_ = true;
};

}  // namespace zefta
