#include "support/Fakes.h"

#include <algorithm>
#include <filesystem>

#include "platform/RuntimeError.h"
#include "support/TempFolder.h"

namespace zefta::test {

namespace {

class RecordingProgress : public ProgressView {
  public:
    explicit RecordingProgress(ScriptedDesktop& desktop) : desktop_(desktop) {}
    void Show(const ProgressReport& report) override { desktop_.reports.push_back(report); }
    bool DrawsOutline() const override { return desktop_.drawsOutlines; }

  private:
    ScriptedDesktop& desktop_;
};

template <typename T>
T TakeFirst(std::deque<T>& script, T whenEmpty) {
    if (script.empty()) return whenEmpty;
    T first = script.front();
    script.pop_front();
    return first;
}

}  // namespace

void ScriptedDesktop::ShowBox(BoxKind kind, const std::string& text, const std::string& caption) {
    boxes.push_back({kind, text, caption});
}

bool ScriptedDesktop::AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) {
    questions.push_back({text, caption, noIsDefault});
    return TakeFirst(answers, false);
}

std::string ScriptedDesktop::AskInput(const std::string& prompt, const std::string& title,
                                      const std::string& defaultAnswer) {
    questions.push_back({prompt, title, false, defaultAnswer});
    return TakeFirst(inputs, std::string());
}

std::string ScriptedDesktop::ChooseFolder(const std::string& prompt, const std::string& title,
                                          const std::string& startFolder) {
    questions.push_back({prompt, title, false, startFolder});
    return TakeFirst(folders, std::string());
}

std::unique_ptr<ProgressView> ScriptedDesktop::OpenProgress() {
    ++progressViewsOpened;
    return std::make_unique<RecordingProgress>(*this);
}

bool ScriptedDesktop::OpenDocument(const std::string& address) {
    openedDocuments.push_back(address);
    return canOpenDocuments;
}

void ScriptedDesktop::ServeEvents() {
    ++servedEvents;
    if (whileServing) whileServing();
}

bool ScriptedDesktop::MoveToTrash(const std::string& path) {
    if (!hasTrash || !std::filesystem::exists(std::filesystem::symlink_status(path))) return false;
    std::filesystem::remove_all(path);
    trash.push_back(path);
    return true;
}

bool ScriptedDesktop::PlayPlaylist(const std::string& path, bool append) {
    played.push_back({path, std::filesystem::exists(path) ? ReadWholeFile(path) : "", append});
    return canPlay;
}

void ScriptedDesktop::ShowBatch(std::size_t item, std::size_t count) {
    batches.emplace_back(item, count);
    if (whenBatch) whenBatch(item, count);
}

bool ScriptedDesktop::IsCancelled() const {
    if (asksToCancel && asksToCancel()) return true;
    return cancelsFromItem > 0 && !batches.empty() && batches.back().first >= cancelsFromItem;
}

bool ScriptedDesktop::HasComplained() const {
    return std::any_of(boxes.begin(), boxes.end(), [](const Box& box) { return box.kind != BoxKind::Plain; });
}

void RecordingProcesses::RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) {
    runs.push_back({commandLine, showWindow, priorityClass});
    if (watch != nullptr && showWindow) watch->ToolStarts(commandLine);
    if (tool) tool(runs.back());
    if (watch == nullptr) return;
    watch->ToolRuns();
    if (watch->WantsToolEnded()) end = {ToolEnd::Way::Ended, 0};
}

void RecordingProcesses::StartProgram(const std::string& commandLine) {
    if (!canStartPrograms) throw RuntimeError(ErrorNumber::FileNotFound);
    started.push_back(commandLine);
}

std::optional<std::string> MemorySettingsStore::GetValue(const std::string& section,
                                                         const std::string& key) const {
    const auto found = values.find({section, key});
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

void MemorySettingsStore::Apply(const std::vector<SettingChange>& changes) {
    ++applied;
    for (const SettingChange& change : changes) {
        if (change.value) {
            values[{change.section, change.key}] = *change.value;
        } else {
            values.erase({change.section, change.key});
        }
    }
}

}  // namespace zefta::test
