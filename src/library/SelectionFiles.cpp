#include "library/SelectionFiles.h"

#include <algorithm>

#include "core/Batch.h"
#include "core/Boxes.h"
#include "core/FileNames.h"
#include "core/Strings.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

constexpr std::int32_t DeleteOneQuestion = 32002;
constexpr std::int32_t FileOperationTitle = 32003;
constexpr std::int32_t RenamingText = 32004;
constexpr std::int32_t RenameQuestion = 32009;
constexpr std::int32_t DeleteManyQuestion = 32018;
constexpr std::int32_t DeleteFullFolderQuestion = 32019;
constexpr std::int32_t RenameByTagsQuestion = 32023;

bool AskFileOperation(App& app, const std::string& text) {
    return AskYesNo(app, text, app.messages.GetMessage(FileOperationTitle));
}

/// Whether the entry itself leads elsewhere.
bool IsLink(const FileSystem& files, const std::string& path) {
    return files.FollowLinks(path) != JoinPath(files.FollowLinks(FolderPart(path)), NamePart(path));
}

void DeleteFileOrLink(App& app, const std::string& path) {
    // The trash would take it; but what is read-only is not deleted, on any desktop.
    const bool isProtected =
        app.files.FileExists(path) && !IsLink(app.files, path) && app.files.IsReadOnly(path);
    if (isProtected || !app.desktop.MoveToTrash(path)) app.files.DeleteFile(path, Force::No);
}

void DeleteFolderWithAll(App& app, const std::string& path) {
    const bool isEmpty = app.files.List(path).empty();
    const std::string question = app.messages.GetMessage(DeleteFullFolderQuestion, app.ansi.ToText(path));
    if (!isEmpty && !AskFileOperation(app, question)) return;
    if (!app.desktop.MoveToTrash(path)) app.files.DeleteFolder(path, Force::No);
}

void DeleteRow(App& app, const std::string& folder, const SelectedRow& row) {
    const std::string path = JoinPath(folder, row.name);
    // The list may be older than the disk: what is a folder by now is asked about.
    if (app.files.FolderExists(path) && !IsLink(app.files, path)) {
        DeleteFolderWithAll(app, path);
    } else {
        DeleteFileOrLink(app, path);
    }
}

/// Behind the last dot, without it.
std::string ExtensionOf(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string WithExtensionOf(const SelectedRow& row, const std::string& answer) {
    const std::string extension = ExtensionOf(row.name);
    return row.icon == RowIcon::Folder || extension.empty() ? answer : answer + "." + extension;
}

bool IsControl(char character) {
    constexpr char Delete = 0x7F;
    return static_cast<unsigned char>(character) < ' ' || character == Delete;
}

/// What was pasted may end in a line end, and a name that holds one is two lines of every playlist.
std::string OnOneLine(std::string text) {
    text.erase(std::find_if_not(text.rbegin(), text.rend(), IsControl).base(), text.end());
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), IsControl));
    std::replace_if(text.begin(), text.end(), IsControl, ' ');
    return text;
}

bool AskRename(App& app, const std::string& text) {
    return AskYesNo(app, text, app.messages.GetMessage(RenamingText));
}

bool AskRenameAll(App& app) {
    return AskRename(app, app.messages.GetMessage(RenameQuestion));
}

}  // namespace

bool DeleteSelected(App& app, const Selection& selection) {
    std::vector<SelectedRow> rows = selection.rows;
    std::erase_if(rows, [](const SelectedRow& row) { return row.icon == RowIcon::Up; });
    if (rows.empty()) return false;
    const std::string question =
        rows.size() == 1 ? app.messages.GetMessage(DeleteOneQuestion, app.ansi.ToText(rows.front().name))
                         : app.messages.GetMessage(DeleteManyQuestion);
    if (!AskFileOperation(app, question)) return false;
    Batch batch(app, rows.size());
    for (const SelectedRow& row : rows) {
        if (!batch.Next()) return true;
        CheckRuntimeError(app, [&] { DeleteRow(app, selection.folder, row); });
    }
    return true;
}

std::string EditableName(const SelectedRow& row) {
    const std::string extension = ExtensionOf(row.name);
    if (row.icon == RowIcon::Folder || extension.empty()) return row.name;
    return ReplaceAllIgnoringCase(row.name, "." + extension, "");
}

std::optional<std::string> RenameEntry(App& app, const std::string& folder, const SelectedRow& row) {
    if (row.icon == RowIcon::Up) return std::nullopt;
    const std::string offered = app.ansi.ToText(EditableName(row));
    const std::string answer = app.desktop.AskInput(app.messages.GetMessage(RenamingText),
                                                    app.messages.GetMessage(FileOperationTitle), offered);
    const std::string typed = OnOneLine(answer);
    if (typed.empty() || typed == offered || answer == offered) return std::nullopt;
    const std::string newName = WithExtensionOf(row, typed);
    const bool hasFailed = CheckRuntimeError(
        app, [&] { app.files.MoveFile(JoinPath(folder, row.name), JoinPath(folder, newName)); });
    return hasFailed ? std::nullopt : std::optional(newName);
}

bool RenameSelected(App& app, const Selection& selection, const RenameByRule& rule,
                    const RenamedFile& renamed) {
    if (!AskRename(app, app.messages.GetMessage(RenameByTagsQuestion, rule.shownTemplate))) return false;
    app.state.RenameFormat = rule.format;
    RenameSelectedFiles(app, selection.folder, NamesOf(selection, {RowIcon::Compressed}), renamed);
    return true;
}

bool RenameAllInFolder(App& app, const std::string& folder, std::int16_t format) {
    if (!AskRenameAll(app)) return false;
    app.state.RenameFormat = format;
    RenameAllFiles(app, folder);
    return true;
}

bool RenameByAllPlaylists(App& app, const std::string& folder, std::int16_t format) {
    if (!AskRenameAll(app)) return false;
    app.state.RenameFormat = format;
    RenameFilesOfAllPlaylists(app, folder);
    return true;
}

bool RenameBySelectedPlaylists(App& app, const Selection& selection, std::int16_t format) {
    if (!AskRenameAll(app)) return false;
    app.state.RenameFormat = format;
    RenameFilesOfPlaylists(app, selection.folder, NamesOf(selection, {RowIcon::Playlist}));
    return true;
}

}  // namespace zefta
