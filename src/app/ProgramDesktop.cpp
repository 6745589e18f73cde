#include "app/ProgramDesktop.h"

#include <utility>

namespace zefta {

ProgramDesktop::ProgramDesktop(Desktop& console, bool prefersConsole, std::function<LoadedWindows()> load)
    : console_(console), prefersConsole_(prefersConsole), load_(std::move(load)) {}

OpenedWindows ProgramDesktop::OpenWindows() {
    if (load_) {
        loaded_ = load_();
        load_ = nullptr;
    }
    return {loaded_.windows.get(), loaded_.displayFails};
}

Desktop& ProgramDesktop::Shown() {
    if (!prefersConsole_) OpenWindows();
    return Current();
}

Desktop& ProgramDesktop::Current() const {
    return loaded_.windows ? loaded_.windows->WindowDesktop() : console_;
}

void ProgramDesktop::ShowBox(BoxKind kind, const std::string& text, const std::string& caption) {
    Desktop& shown = Shown();
    // What ends the run stands where scripts and logs look for it, too, and at once: nobody may be there to
    // close the window.
    if (kind == BoxKind::Critical && &shown != &console_) console_.ShowBox(kind, text, caption);
    shown.ShowBox(kind, text, caption);
}

bool ProgramDesktop::AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) {
    return Shown().AskQuestion(text, caption, noIsDefault);
}

std::string ProgramDesktop::AskInput(const std::string& prompt, const std::string& title,
                                     const std::string& defaultAnswer) {
    return Shown().AskInput(prompt, title, defaultAnswer);
}

std::string ProgramDesktop::ChooseFolder(const std::string& prompt, const std::string& title,
                                         const std::string& startFolder) {
    return Shown().ChooseFolder(prompt, title, startFolder);
}

std::string ProgramDesktop::ChooseFile(const FileChoice& choice) {
    return Shown().ChooseFile(choice);
}

void ProgramDesktop::Note(const std::string& text) {
    Current().Note(text);
}

std::unique_ptr<ProgressView> ProgramDesktop::OpenProgress() {
    return Shown().OpenProgress();
}

void ProgramDesktop::ServeEvents() {
    Current().ServeEvents();
}

bool ProgramDesktop::OpenDocument(const std::string& address) {
    return Current().OpenDocument(address);
}

bool ProgramDesktop::MoveToTrash(const std::string& path) {
    return Current().MoveToTrash(path);
}

bool ProgramDesktop::PlayPlaylist(const std::string& path, bool append) {
    return Current().PlayPlaylist(path, append);
}

void ProgramDesktop::ShowBatch(std::size_t item, std::size_t count) {
    Current().ShowBatch(item, count);
}

bool ProgramDesktop::IsCancelled() const {
    return Current().IsCancelled();
}

bool ProgramDesktop::HasComplained() const {
    return console_.HasComplained() || (loaded_.windows && loaded_.windows->WindowDesktop().HasComplained());
}

}  // namespace zefta
