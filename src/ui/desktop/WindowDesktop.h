#pragma once

#include <memory>
#include <string>

#include "platform/Desktop.h"

namespace zefta {

/// Boxes, questions, choosers and progress as windows of the toolkit. Needs a QApplication that lives as
/// long.
class WindowDesktop : public Desktop {
  public:
    void ShowBox(BoxKind kind, const std::string& text, const std::string& caption) override;
    bool AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) override;
    std::string AskInput(const std::string& prompt, const std::string& title,
                         const std::string& defaultAnswer) override;
    std::string ChooseFolder(const std::string& prompt, const std::string& title,
                             const std::string& startFolder) override;
    void Note(const std::string& text) override;
    std::unique_ptr<ProgressView> OpenProgress() override;
    void ServeEvents() override;
    bool OpenDocument(const std::string& address) override;
    bool HasComplained() const override { return hasComplained_; }

  private:
    bool hasComplained_ = false;
};

}  // namespace zefta
