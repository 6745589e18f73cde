#include "app/PreviewDesktop.h"

#include <ostream>

#include "core/Steps.h"
#include "platform/NoProgress.h"

namespace zefta {

void PreviewDesktop::ShowBox(BoxKind kind, const std::string& text, const std::string&) {
    if (kind != BoxKind::Plain) hasComplained_ = true;
    output_ << "says: " << OneLine(text) << '\n';
}

bool PreviewDesktop::AskQuestion(const std::string& text, const std::string&, bool noIsDefault) {
    output_ << "asks: " << OneLine(text) << (noIsDefault ? " -> No" : " -> Yes") << '\n';
    return !noIsDefault;
}

std::string PreviewDesktop::AskInput(const std::string& prompt, const std::string&,
                                     const std::string& defaultAnswer) {
    output_ << "asks: " << OneLine(prompt) << " -> " << OneLine(defaultAnswer) << '\n';
    return defaultAnswer;
}

std::string PreviewDesktop::ChooseFolder(const std::string& prompt, const std::string& title,
                                         const std::string& startFolder) {
    return AskInput(prompt, title, startFolder);
}

std::unique_ptr<ProgressView> PreviewDesktop::OpenProgress() {
    return std::make_unique<NoProgress>();
}

}  // namespace zefta
