#pragma once

#include <iosfwd>

#include "platform/Desktop.h"

namespace zefta {

/// The desktop of a preview: boxes and questions are steps too, one line each, and every question has the
/// answer of a person who only presses Enter.
class PreviewDesktop : public Desktop {
  public:
    explicit PreviewDesktop(std::ostream& output) : output_(output) {}

    void ShowBox(BoxKind kind, const std::string& text, const std::string& caption) override;
    bool AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) override;
    std::string AskInput(const std::string& prompt, const std::string& title,
                         const std::string& defaultAnswer) override;
    std::string ChooseFolder(const std::string& prompt, const std::string& title,
                             const std::string& startFolder) override;
    void Note(const std::string&) override {}
    std::unique_ptr<ProgressView> OpenProgress() override;
    void ServeEvents() override {}
    bool OpenDocument(const std::string&) override { return false; }
    bool HasComplained() const override { return hasComplained_; }

  private:
    std::ostream& output_;
    bool hasComplained_ = false;
};

}  // namespace zefta
