#include "library/RenamePlaylists.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "core/OptionTable.h"
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

/// After a failure: lines get their new names and nothing else happens to the list.
void KeepWhatHasNoNewText(const TextLines& list, NewTexts& texts) {
    for (std::size_t i = 0; i < list.lines.size(); ++i) {
        if (i == texts.size()) texts.emplace_back();
        if (!texts[i]) texts[i] = list.lines[i].text;
    }
}

void Save(App& app, const std::string& path, const TextLines& list, const NewTexts& texts) {
    if (CountChanged(list, texts) == 0) return;
    TemporaryFile fresh(app.files, app.files.FollowLinks(path), TemporaryFile::OldFile::Keep);
    if (fresh.File() == nullptr) throw RuntimeError(ErrorNumber::PermissionDenied, path);
    fresh.File()->Write(BytesOf(WithTexts(list, texts)));
    fresh.TakePlace();
}

void SaveIfPossible(App& app, const std::string& path, const TextLines& list, const NewTexts& texts) {
    try {
        Save(app, path, list, texts);
    } catch (const RuntimeError&) {
        // The failure that brought us here is the one to tell.
    }
}

NewTexts TextsOf(App& app, const std::string& path, const TextLines& list, RenamedLines& lines) {
    NewTexts texts;
    try {
        for (const TextLine& line : list.lines) texts.push_back(lines.NewLine(line.text));
    } catch (const RuntimeError&) {
        KeepWhatHasNoNewText(list, texts);
        SaveIfPossible(app, path, list, texts);
        throw;
    }
    return texts;
}

void TellChange(RenameRun& run, const std::string& path, std::size_t count) {
    const std::string shown = BelowRoot(run, path);
    TellStep(run.app, count == 0 ? "unchanged: " + shown
                                 : "playlist: " + shown + ": " + std::to_string(count) +
                                       (count == 1 ? " line changed" : " lines changed"));
}

void RewritePlaylist(RenameRun& run, const std::string& path, RenamedLines& lines) {
    const TextLines list = ReadTextLines(run.app.files, path);
    if (!HasLines(list)) {
        const std::string shown = BelowRoot(run, path);
        TellStep(run.app, "refused: " + shown + ": no text of lines");
        if (!IsPreview(run.app))
            run.app.desktop.Note(run.app.ansi.ToText(shown) + ": no text of lines; left as it is.");
        return;
    }
    const NewTexts texts = TextsOf(run.app, path, list, lines);
    Save(run.app, path, list, texts);
    TellChange(run, path, CountChanged(list, texts));
}

bool IsNameOfFile(const App& app, const std::string& folder, const std::string& text) {
    return text.find(PathSeparator) == std::string::npos && app.files.FileExists(JoinPath(folder, text));
}

/// Takes the folder out of FileSpec, if it has one. An unknown word that begins with "/" is no path here
/// either.
std::string FolderOfWalk(App& app, const std::string& folder) {
    const std::string& given = app.state.FileSpec;
    if (BeginsWithSlash(app.files, given) || IsNameOfFile(app, folder, given)) return folder;
    const std::string native = app.files.ToNativePath(given);
    const std::string named = FolderPart(native);
    if (named.empty()) return folder;
    app.state.FileSpec = NamePart(native);
    return named;
}

/// A link that leads nowhere is no playlist.
bool IsPlaylist(const App& app, const std::string& folder, const std::string& name) {
    return MatchesFileSpec(app, name) && MatchesMask(name, AllPlaylists) &&
           app.files.FileExists(JoinPath(folder, name));
}

void RewriteFolder(RenameRun& run, const std::string& folder, bool renameFiles) {
    RenamedLines lines(run, folder, renameFiles);
    bool hasPlaylists = false;
    for (const std::string& name : NamesOfFiles(run.app, folder)) {
        if (!IsPlaylist(run.app, folder, name)) continue;
        hasPlaylists = true;
        RewritePlaylist(run, JoinPath(folder, name), lines);
    }
    // A mask such as "*.mp3" means the files themselves where there is no list of them.
    if (!hasPlaylists) RenameFolderFiles(run, folder);
    if (!run.app.state.ProcessSubfolders) return;
    for (const std::string& subfolder : Subfolders(run.app, folder))
        RewriteFolder(run, subfolder, renameFiles);
}

}  // namespace

void RenamePlaylists(RenameRun& run, const std::string& folder, bool renameFiles) {
    if (run.app.state.RenameFormat == FormatWithFolder) run.app.state.ProcessSubfolders = false;
    std::string walked = FolderOfWalk(run.app, folder);
    if (!run.app.files.FolderExists(walked)) walked = run.app.files.CurrentFolder();
    if (!run.map) NewRenameMap(run);
    RewriteFolder(run, walked, renameFiles);
}

}  // namespace zefta
