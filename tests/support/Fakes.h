#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/Desktop.h"
#include "platform/Processes.h"
#include "platform/SettingsStore.h"

namespace zefta::test {

/// A desktop without a person: keeps what it was shown and answers from a script.
class ScriptedDesktop : public Desktop {
  public:
    struct Box {
        BoxKind kind;
        std::string text;
        std::string caption;
    };

    /// A question with Yes and No, or one for a text or a folder.
    struct Question {
        std::string text;
        std::string caption;
        bool noIsDefault = false;
        std::string defaultAnswer = {};
    };

    std::vector<Box> boxes;
    std::vector<Question> questions;
    std::vector<std::string> notes;
    std::vector<std::string> openedDocuments;
    std::vector<ProgressReport> reports;
    int progressViewsOpened = 0;
    /// Whether its progress views ask for outlines.
    bool drawsOutlines = false;
    int servedEvents = 0;
    /// What ServeEvents does beside being counted: the person acts while a job works.
    std::function<void()> whileServing;
    /// Item and count of each ShowBatch.
    std::vector<std::pair<std::size_t, std::size_t>> batches;
    std::function<void(std::size_t item, std::size_t count)> whenBatch;
    /// The person cancels when a batch comes to that item; 0 for never.
    std::size_t cancelsFromItem = 0;
    std::function<bool()> asksToCancel;
    struct Played {
        std::string path;
        std::string text;
        bool append;
    };
    /// Playlists that were played, with their content at that moment.
    std::vector<Played> played;
    bool canPlay = true;
    /// What was moved to the trash, which takes everything when there is one.
    std::vector<std::string> trash;
    bool hasTrash = false;
    bool canOpenDocuments = true;

    /// Taken one by one; when none is left a question is answered No, an input or chooser cancelled.
    std::deque<bool> answers;
    std::deque<std::string> inputs;
    std::deque<std::string> folders;

    void ShowBox(BoxKind kind, const std::string& text, const std::string& caption) override;
    bool AskQuestion(const std::string& text, const std::string& caption, bool noIsDefault) override;
    std::string AskInput(const std::string& prompt, const std::string& title,
                         const std::string& defaultAnswer) override;
    std::string ChooseFolder(const std::string& prompt, const std::string& title,
                             const std::string& startFolder) override;
    void Note(const std::string& text) override { notes.push_back(text); }
    std::unique_ptr<ProgressView> OpenProgress() override;
    void ServeEvents() override;
    bool OpenDocument(const std::string& address) override;
    bool MoveToTrash(const std::string& path) override;
    bool PlayPlaylist(const std::string& path, bool append) override;
    void ShowBatch(std::size_t item, std::size_t count) override;
    bool IsCancelled() const override;
    bool HasComplained() const override;
};

/// Starts nothing: keeps the command lines and lets the test play the tool.
class RecordingProcesses : public Processes {
  public:
    struct Run {
        std::string commandLine;
        bool showWindow;
        int priorityClass;

        bool operator==(const Run&) const = default;
    };

    std::vector<Run> runs;
    std::function<void(const Run&)> tool;
    /// Programs that were started and not waited for.
    std::vector<std::string> started;
    /// Whether there is such a program; RuntimeError 53 otherwise.
    bool canStartPrograms = true;
    ToolWatch* watch = nullptr;
    std::string ownPath = "/opt/zefta/zefta";
    /// What LastToolEnd tells; a run changes it only when the watch wants the tool ended.
    ToolEnd end;

    /// The watch is told that a shown tool starts, and once that it runs, behind what `tool` does. It may
    /// want the tool ended then.
    void RunProgram(const std::string& commandLine, bool showWindow, int priorityClass) override;
    void StartProgram(const std::string& commandLine) override;
    void FollowTools(ToolWatch* follower) override { watch = follower; }
    ToolEnd LastToolEnd() const override { return end; }
    std::string OwnPath() const override { return ownPath; }
};

/// A settings store that lives in memory and counts how often it was written.
class MemorySettingsStore : public SettingsStore {
  public:
    std::map<std::pair<std::string, std::string>, std::string> values;
    int applied = 0;

    std::optional<std::string> GetValue(const std::string& section, const std::string& key) const override;
    void Apply(const std::vector<SettingChange>& changes) override;
};

}  // namespace zefta::test
