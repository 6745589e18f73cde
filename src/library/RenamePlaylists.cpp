#include "library/RenamePlaylists.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <vector>

#include "core/Steps.h"
#include "core/Strings.h"
#include "core/TextLines.h"
#include "library/RenamedLines.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "tags/TemporaryFile.h"

namespace zefta {

namespace {

/// What stands for each of the first lines of a list; nothing for one that is dropped.
using NewTexts = std::vector<std::optional<std::string>>;

/// Of a list that a run has done with.
constexpr std::size_t AllLines = std::numeric_limits<std::size_t>::max();

/// UTF-16 and lines that only carriage returns end are no lines to us: each would seem to name no file.
bool HasLines(const TextLines& list) {
    return std::all_of(list.lines.begin(), list.lines.end(), [](const TextLine& line) {
        return line.text.find_first_of(std::string_view("\0\r", 2)) == std::string::npos;
    });
}

std::size_t CountChanged(const TextLines& list, const NewTexts& texts) {
    std::size_t changed = 0;
    for (std::size_t i = 0; i < texts.size(); ++i) changed += texts[i] != list.lines[i].text ? 1U : 0U;
    return changed;
}

TextLines WithTexts(const TextLines& list, const NewTexts& texts) {
    TextLines result = {list.hasByteOrderMark, {}};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i]) result.lines.push_back({*texts[i], list.lines[i].end});
    }
    return result;
}

/// After a failure, or when the person ends the run: lines get their new names and nothing else happens to
/// the list.
void KeepWhatHasNoNewText(const TextLines& list, NewTexts& texts) {
    for (std::size_t i = 0; i < list.lines.size(); ++i) {
        if (i == texts.size()) texts.emplace_back();
        if (!texts[i]) texts[i] = list.lines[i].text;
    }
}

/// A file of that name was asked for, and none is there.
bool NamesNoFile(const TextLine& line, const std::optional<std::string>& text) {
    return !text && !line.text.empty() && !line.text.starts_with('#');
}

/// One playlist on its way through a run.
class ListRewriting {
  public:
    ListRewriting(RenameRun& run, const std::string& path, RenamedLines& lines)
        : run_(run), app_(run.app), path_(path), realPath_(app_.files.FollowLinks(path)), lines_(lines) {}

    void Run();

  private:
    void Rewrite(std::size_t finished);
    void MakeTexts(std::size_t finished);
    void Save();
    void SaveIfPossible();
    void TellNoText();
    void TellMissing();
    void TellChange();
    void Note(const std::string& text) {
        if (!IsPreview(app_)) app_.desktop.Note(app_.ansi.ToText(BelowRoot(run_, path_)) + text);
    }

    RenameRun& run_;
    App& app_;
    const std::string& path_;
    std::string realPath_;
    RenamedLines& lines_;
    TextLines list_;
    NewTexts texts_;
    /// The line at which the person ended the renaming.
    std::optional<std::size_t> endedAt_;
};

/// What a pass that renames has written is not looked up by a later one.
void ListRewriting::Run() {
    const auto known = run_.finishedLines.find(realPath_);
    const std::size_t finished = known == run_.finishedLines.end() ? 0 : known->second;
    if (finished == AllLines) return;
    list_ = ReadTextLines(app_.files, path_);
    HasLines(list_) ? Rewrite(finished) : TellNoText();
    if (lines_.RenamesFiles()) run_.finishedLines[realPath_] = endedAt_.value_or(AllLines);
}

void ListRewriting::Rewrite(std::size_t finished) {
    MakeTexts(finished);
    Save();
    TellMissing();
    TellChange();
}

void ListRewriting::MakeTexts(std::size_t finished) {
    if (lines_.RenamesFiles()) run_.batch.Expect(list_.lines.size());
    try {
        for (const TextLine& line : list_.lines) {
            if (lines_.RenamesFiles() && !run_.batch.Next()) {
                endedAt_ = texts_.size();
                return KeepWhatHasNoNewText(list_, texts_);
            }
            const bool isFinished = texts_.size() < finished;
            texts_.push_back(isFinished ? line.text : lines_.NewLine(line.text));
        }
    } catch (const RuntimeError&) {
        if (lines_.RenamesFiles()) run_.finishedLines[realPath_] = texts_.size();
        KeepWhatHasNoNewText(list_, texts_);
        SaveIfPossible();
        throw;
    }
}

void ListRewriting::Save() {
    if (CountChanged(list_, texts_) == 0) return;
    TemporaryFile fresh(app_.files, realPath_, TemporaryFile::OldFile::Keep);
    if (fresh.File() == nullptr) throw RuntimeError(ErrorNumber::PermissionDenied, path_);
    fresh.File()->Write(BytesOf(WithTexts(list_, texts_)));
    fresh.TakePlace();
}

void ListRewriting::SaveIfPossible() {
    try {
        Save();
    } catch (const RuntimeError&) {
        // The failure that brought us here is the one to tell.
    }
}

void ListRewriting::TellNoText() {
    TellFolder(run_, FolderPart(path_));
    TellStep(app_, "refused: " + NamePart(path_) + ": no text of lines");
    Note(": no text of lines; left as it is.");
}

void ListRewriting::TellMissing() {
    TellFolder(run_, FolderPart(path_));
    std::size_t count = 0;
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        if (!NamesNoFile(list_.lines[i], texts_[i])) continue;
        TellStep(app_, "refused: " + list_.lines[i].text + ": no such file");
        ++count;
    }
    if (count == 1) Note(": 1 line names no file and was left out.");
    if (count > 1) Note(": " + std::to_string(count) + " lines name no file and were left out.");
}

void ListRewriting::TellChange() {
    const std::size_t count = CountChanged(list_, texts_);
    const std::string name = NamePart(path_);
    TellStep(app_, count == 0 ? "unchanged: " + name
                              : "playlist: " + name + ": " + std::to_string(count) +
                                    (count == 1 ? " line changed" : " lines changed"));
}

/// A link that leads nowhere is no playlist.
bool IsPlaylist(const App& app, const std::string& folder, const std::string& name) {
    return MatchesMask(name, AllPlaylists) && app.files.FileExists(JoinPath(folder, name));
}

void RewriteFolder(RenameRun& run, const std::string& folder, bool renameFiles) {
    RenamedLines lines(run, folder, renameFiles);
    bool hasPlaylists = false;
    for (const std::string& name : FilesMeant(run.app, folder)) {
        if (!IsPlaylist(run.app, folder, name)) continue;
        hasPlaylists = true;
        if (renameFiles && run.batch.IsCancelled()) return;
        ListRewriting(run, JoinPath(folder, name), lines).Run();
    }
    // A mask such as "*.mp3" means the files themselves where there is no list of them.
    if (!hasPlaylists) RenameFolderFiles(run, folder);
    if (!run.app.state.ProcessSubfolders) return;
    for (const std::string& subfolder : Subfolders(run.app, folder)) {
        // Lists that only learn names do so to the end: what is renamed is renamed.
        if (!run.batch.Pause() && renameFiles) return;
        RewriteFolder(run, subfolder, renameFiles);
    }
}

void LearnNames(RenameRun& run, const std::string& folder) {
    run.app.state.FileSpec = AllPlaylists;
    RenamePlaylists(run, folder, false);
}

void LearnNamesIfPossible(RenameRun& run, const std::string& folder) {
    if (!run.map || run.map->Count() == 0) return;
    try {
        LearnNames(run, folder);
    } catch (const RuntimeError&) {
        // The failure of the renaming is the one to tell.
    }
}

}  // namespace

void RenamePlaylists(RenameRun& run, const std::string& folder, bool renameFiles) {
    if (run.app.state.RenameFormat == FormatWithFolder) run.app.state.ProcessSubfolders = false;
    std::string walked = TakeFolderOfFileSpec(run.app, folder);
    if (!run.app.files.FolderExists(walked)) walked = run.app.files.CurrentFolder();
    if (!run.map) NewRenameMap(run);
    RewriteFolder(run, walked, renameFiles);
}

void RenameAndLearn(RenameRun& run, const std::string& folder, const std::function<void()>& rename) {
    try {
        rename();
    } catch (const RuntimeError&) {
        LearnNamesIfPossible(run, folder);
        throw;
    }
    LearnNames(run, folder);
}

}  // namespace zefta
