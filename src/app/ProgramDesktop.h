#pragma once

#include <functional>
#include <memory>

#include "app/Windows.h"
#include "platform/Desktop.h"

namespace zefta {

/// The desktop of the process: the console where a person reads it or where no window can be opened, else
/// windows, whose toolkit is loaded when the first one is to be shown. A critical box, with which a run ends,
/// is told by the console in any case.
class ProgramDesktop : public Desktop {
  public:
    /// `load` is asked once. With `prefersConsole` windows serve only from OpenWindows on.
    ProgramDesktop(Desktop& console, bool prefersConsole, std::function<LoadedWindows()> load);

    /// All boxes are windows from now on. Where there are none the console goes on to serve.
    OpenedWindows OpenWindows();

    void ShowBox(BoxKind kind, const std::string& text, const std::string& caption) override;
    bool AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) override;
    std::string AskInput(const std::string& prompt, const std::string& title,
                         const std::string& defaultAnswer) override;
    std::string ChooseFolder(const std::string& prompt, const std::string& title,
                             const std::string& startFolder) override;
    std::string ChooseFile(const FileChoice& choice) override;
    void Note(const std::string& text) override;
    std::unique_ptr<ProgressView> OpenProgress() override;
    void ServeEvents() override;
    bool OpenDocument(const std::string& address) override;
    bool MoveToTrash(const std::string& path) override;
    bool PlayPlaylist(const std::string& path, bool append) override;
    void ShowBatch(std::size_t item, std::size_t count) override;
    bool IsCancelled() const override;
    bool HasComplained() const override;

  private:
    /// Where something is to be shown.
    Desktop& Shown();
    /// Where nothing has to be shown: loads nothing.
    Desktop& Current() const;

    Desktop& console_;
    bool prefersConsole_;
    std::function<LoadedWindows()> load_;
    LoadedWindows loaded_;
};

}  // namespace zefta
