// The commands of the main window that work on files. What they do lies in library/; here they meet the list.

#include <algorithm>

#include "core/Boxes.h"
#include "library/CopyPlaylist.h"
#include "library/Playlist.h"
#include "library/RenameForm.h"
#include "library/SelectionFiles.h"
#include "platform/Paths.h"
#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/list/StatusPanels.h"
#include "ui/main/MainCommands.h"
#include "ui/main/MainMenu.h"
#include "ui/rename/RenameDialog.h"

namespace zefta {

// One entry, or those that are selected.

void MainCommands::OnRename(int) {
    const auto row = browser_.FocusedRow();
    if (!row) return;
    const auto newName = RenameEntry(app_, browser_.Folder(), {row->icon, row->name});
    if (!newName) return;
    // Another folder's name in front of it has taken the entry out of the list.
    if (newName->find(PathSeparator) != std::string::npos) return browser_.RefreshContents();
    browser_.RefillRow(row->name, *newName);
    UpdateMenuAndToolbar(false);
}

void MainCommands::OnDelete(int) {
    if (DeleteSelected(app_, CurrentSelection())) browser_.RefreshContents();
}

void MainCommands::OnRenameSelected(int rule) {
    std::vector<std::string> failed = NamesOf(CurrentSelection(), {RowIcon::Compressed});
    WorkAndReload([&] {
        const RenameByRule by = {static_cast<std::int16_t>(rule), menu_.ShownTemplate(rule)};
        return RenameSelected(app_, CurrentSelection(), by,
                              [&](const std::string& oldName, const std::string& newName) {
                                  browser_.RefillRow(oldName, newName);
                                  browser_.SetRowSelected(newName, false);
                                  std::erase(failed, oldName);
                              });
    });
    browser_.AddToSelection(failed);
}

void MainCommands::OnRenameAll(int rule) {
    WorkAndReload(
        [&] { return RenameAllInFolder(app_, browser_.Folder(), static_cast<std::int16_t>(rule)); });
}

void MainCommands::OnRenameByAllPlaylists(int rule) {
    WorkAndReload(
        [&] { return RenameByAllPlaylists(app_, browser_.Folder(), static_cast<std::int16_t>(rule)); });
}

void MainCommands::OnExtendedRename(int) {
    const auto files = NamesOf(CurrentSelection(), {RowIcon::Compressed, RowIcon::Wave, RowIcon::Playlist});
    WorkAndReload([&] {
        RenameDialog dialog(app_, {browser_.Folder(), files}, &window_);
        if (dialog.exec() != QDialog::Accepted) return true;
        const auto renamed = [&](const std::string& oldName, const std::string& newName) {
            browser_.RefillRow(oldName, newName);
            browser_.SetRowSelected(newName, false);
        };
        CheckRuntimeError(app_, [&] { RunRenameForm(app_, dialog.Form(), renamed); });
        return true;
    });
}

void MainCommands::OnRenameByPlaylist(int rule) {
    WorkAndReload(
        [&] { return RenameBySelectedPlaylists(app_, CurrentSelection(), static_cast<std::int16_t>(rule)); });
}

// Encoding.

void MainCommands::EncodeBy(const ModeOfCommand& mode) {
    const std::string status = panels_.StatusText(1);
    if (!EncodeSelected(app_, CurrentSelection(), mode, WatchOfRun())) return;
    RestoreStatus(status);
    browser_.RefreshContents();
}

void MainCommands::ReEncodeBy(const ModeOfCommand& mode) {
    const std::string status = panels_.StatusText(1);
    if (!ReEncodeSelected(app_, CurrentSelection(), mode, WatchOfRun())) return;
    RestoreStatus(status);
    browser_.RefreshContents();
}

void MainCommands::OnEncode(int code) {
    EncodeBy({TargetKind::MP3, code});
}

void MainCommands::OnEncodeOgg(int mode) {
    EncodeBy({TargetKind::OggVorbis, mode});
}

void MainCommands::OnEncodeMPEGplus(int mode) {
    EncodeBy({TargetKind::MPEGplus, mode});
}

void MainCommands::OnReEncodeMP3(int code) {
    ReEncodeBy({TargetKind::MP3, code});
}

void MainCommands::OnReEncodeOgg(int mode) {
    ReEncodeBy({TargetKind::OggVorbis, mode});
}

void MainCommands::OnReEncodeMPEGplus(int mode) {
    ReEncodeBy({TargetKind::MPEGplus, mode});
}

void MainCommands::OnDecode(int) {
    const std::string status = panels_.StatusText(1);
    if (!DecodeSelected(app_, CurrentSelection(), WatchOfRun())) return;
    RestoreStatus(status);
    browser_.RefreshContents();
}

// Playing and lists.

void MainCommands::TellIfNothingPlays(bool hasStarted) {
    if (!hasStarted) ShowWarning(app_, FromQt(OwnText(app_, WindowText::NoPlayer)));
}

void MainCommands::PlaySelection(bool append) {
    const std::string status = panels_.StatusText(1);
    const bool hasStarted = player_.PlaySelected(CurrentSelection(), append, WatchOfRun());
    RestoreStatus(status);
    TellIfNothingPlays(hasStarted);
}

void MainCommands::OnPlay(int) {
    PlaySelection(false);
}

void MainCommands::OnAppend(int) {
    PlaySelection(true);
}

void MainCommands::PlayAll(bool append) {
    TellIfNothingPlays(player_.PlayFolder(browser_.Folder(), append));
}

void MainCommands::OnPlayFolder(int) {
    PlayAll(false);
}

void MainCommands::OnAppendFolder(int) {
    PlayAll(true);
}

void MainCommands::OnMakeList(int) {
    MakePlaylistOfFolder(app_, browser_.Folder());
    browser_.RefreshContents();
    browser_.ClearSelection();
    browser_.SelectOnly(std::string(UsualPlaylistName));
}

void MainCommands::OnCopyPlaylist(int) {
    const auto row = browser_.FocusedRow();
    if (!row || row->icon != RowIcon::Playlist) return;
    // The copy may lie in the folder that is shown.
    WorkAndReload([&] { return !CopyPlaylist(app_, PathOf(row->name), "").empty(); });
}

}  // namespace zefta
