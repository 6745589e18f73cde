#include "platform/console/ConsoleDesktop.h"

#include <istream>
#include <ostream>

#include "platform/NoProgress.h"
#include "platform/OpenDocument.h"
#include "platform/Text.h"
#include "platform/console/ConsoleProgress.h"
#include "platform/console/TerminalText.h"

namespace zefta {

namespace {

/// Messages end their lines as windows want them.
std::string TerminalLines(const std::string& text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') lines += text[i];
    }
    return lines;
}

}  // namespace

ConsoleDesktop::ConsoleDesktop(std::istream& input, std::ostream& error, bool errorIsTerminal)
    : input_(input), error_(error), errorIsTerminal_(errorIsTerminal) {}

void ConsoleDesktop::BeginLine() {
    if (errorIsTerminal_) error_ << ClearLine;
}

std::string ConsoleDesktop::Shown(const std::string& text) const {
    const std::string lines = TerminalLines(text);
    return errorIsTerminal_ ? WithoutControls(lines) : lines;
}

void ConsoleDesktop::ShowBox(BoxKind kind, const std::string& text, const std::string& caption) {
    if (kind != BoxKind::Plain) hasComplained_ = true;
    BeginLine();
    error_ << caption << ": " << Shown(text) << std::endl;
}

bool ConsoleDesktop::AskQuestion(const std::string& text, const std::string&, bool noIsDefault) {
    BeginLine();
    error_ << Shown(text) << (noIsDefault ? " [y/N] " : " [Y/n] ") << std::flush;
    std::string answer;
    if (!std::getline(input_, answer)) return false;
    if (answer.ends_with('\r')) answer.pop_back();
    if (answer.empty()) return !noIsDefault;
    const std::string word = ToLower(answer);
    return word == "y" || word == "yes";
}

std::string ConsoleDesktop::AskInput(const std::string& prompt, const std::string& title,
                                     const std::string& defaultAnswer) {
    BeginLine();
    error_ << title << ": " << Shown(prompt) << " [" << Shown(defaultAnswer) << "] " << std::flush;
    std::string answer;
    if (!std::getline(input_, answer)) return {};
    if (answer.ends_with('\r')) answer.pop_back();
    return answer.empty() ? defaultAnswer : answer;
}

std::string ConsoleDesktop::ChooseFolder(const std::string& prompt, const std::string& title,
                                         const std::string& startFolder) {
    return AskInput(prompt, title, startFolder);
}

void ConsoleDesktop::Note(const std::string& text) {
    if (!errorIsTerminal_) return;
    BeginLine();
    error_ << Shown(text) << std::endl;
}

std::unique_ptr<ProgressView> ConsoleDesktop::OpenProgress() {
    if (errorIsTerminal_) return std::make_unique<ConsoleProgress>(error_);
    return std::make_unique<NoProgress>();
}

bool ConsoleDesktop::OpenDocument(const std::string& address) {
    return zefta::OpenDocument(address);
}

}  // namespace zefta
