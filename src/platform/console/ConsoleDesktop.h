#pragma once

#include <iosfwd>
#include <string>

#include "platform/Desktop.h"

namespace zefta {

/// The desktop of a terminal or a script: boxes, questions and progress are lines on the error stream,
/// answers are lines of the input.
class ConsoleDesktop : public Desktop {
  public:
    /// Progress is shown only when the error stream is read by a person.
    ConsoleDesktop(std::istream& input, std::ostream& error, bool errorIsTerminal);

    void ShowBox(BoxKind kind, const std::string& text, const std::string& caption) override;

    /// An empty line is the default, y or yes in any case is Yes, everything else and the end of input is No:
    /// what a script sends by mistake must not be taken for consent.
    bool AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) override;

    std::string AskInput(const std::string& prompt, const std::string& title,
                         const std::string& defaultAnswer) override;
    /// An input box with the folder as its default.
    std::string ChooseFolder(const std::string& prompt, const std::string& title,
                             const std::string& startFolder) override;
    /// Said to a terminal only: whoever keeps standard error wants complaints.
    void Note(const std::string& text) override;
    std::unique_ptr<ProgressView> OpenProgress() override;
    void ServeEvents() override {}
    bool OpenDocument(const std::string& address) override;
    bool HasComplained() const override { return hasComplained_; }

  private:
    /// A line of progress that stands there goes.
    void BeginLine();
    /// The text as the error stream takes it.
    std::string Shown(const std::string& text) const;

    std::istream& input_;
    std::ostream& error_;
    bool errorIsTerminal_;
    bool hasComplained_ = false;
};

}  // namespace zefta
