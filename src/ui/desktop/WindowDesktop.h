#pragma once

#include <QDBusConnection>
#include <QElapsedTimer>
#include <QPointer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/MessageTable.h"
#include "platform/Desktop.h"
#include "platform/Processes.h"
#include "ui/desktop/BatchView.h"
#include "ui/desktop/OutputPane.h"

class QMessageBox;

namespace zefta {

class ProgressDialogView;

/// Boxes, questions, choosers and progress as windows of the toolkit. Needs a QApplication that lives as
/// long. Every window stands over the one that the person works in.
class WindowDesktop : public Desktop, public ToolWatch {
  public:
    /// Players are sought on `bus`, or on that of the session when there is none.
    explicit WindowDesktop(Language language, std::optional<QDBusConnection> bus = std::nullopt);

    /// Where batches show how far they are and are ended; null for nowhere.
    void ShowBatchesIn(BatchView* view) { batchView_ = view; }
    /// Where notes and the output of tools are shown; null for nowhere.
    void WriteInto(OutputPane* pane);
    /// The same, made when there is something to show.
    void WriteIntoPaneOf(std::function<OutputPane*()> makePane) { makePane_ = std::move(makePane); }

    /// Amid a batch boxes and questions offer to leave the rest of it; the answer is No then.
    void ShowBox(BoxKind kind, const std::string& text, const std::string& caption) override;
    bool AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) override;
    std::string AskInput(const std::string& prompt, const std::string& title,
                         const std::string& defaultAnswer) override;
    std::string ChooseFolder(const std::string& prompt, const std::string& title,
                             const std::string& startFolder) override;
    std::string ChooseFile(const FileChoice& choice) override;
    void Note(const std::string& text) override;
    std::unique_ptr<ProgressView> OpenProgress() override;
    /// At most every 10 milliseconds: jobs call it thousands of times a second.
    void ServeEvents() override;
    bool OpenDocument(const std::string& address) override;
    bool MoveToTrash(const std::string& path) override;
    bool PlayPlaylist(const std::string& path, bool append) override;
    void ShowBatch(std::size_t item, std::size_t count) override;
    bool IsCancelled() const override;
    bool HasComplained() const override { return hasComplained_; }

    void ToolStarts(const std::string& commandLine) override;
    void ToolRuns() override { ServeEvents(); }
    bool WantsToolEnded() override { return batchView_ != nullptr && batchView_->WantsToolEnded(); }
    void ToolWrites(std::string_view output) override;

  private:
    friend class ProgressDialogView;

    /// Null when nothing is to be shown.
    OutputPane* Pane();
    /// The button that was pressed.
    int RunBox(QMessageBox& box);

    Language language_;
    std::optional<QDBusConnection> bus_;
    BatchView* batchView_ = nullptr;
    /// Empty when it was called.
    std::function<OutputPane*()> makePane_;
    QPointer<OutputPane> pane_;
    /// Progress dialogs on show.
    std::vector<const ProgressDialogView*> progress_;
    QElapsedTimer sinceServed_;
    bool hasComplained_ = false;
    /// How far the batch is that runs.
    std::size_t batchItem_ = 0;
    std::size_t batchCount_ = 0;
    /// It was cancelled at a box: each further item might bring another one.
    bool isCancelledAtBox_ = false;
};

}  // namespace zefta
