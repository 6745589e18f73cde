#include "ui/main/MainCommands.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <algorithm>

#include "core/Agent.h"
#include "core/Boxes.h"
#include "core/FileKind.h"
#include "platform/CommandText.h"
#include "platform/Paths.h"
#include "ui/desktop/AboutDialog.h"
#include "ui/info/ShowFileInformation.h"
#include "ui/list/StatusPanels.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MainToolBar.h"
#include "ui/main/RowState.h"
#include "ui/setup/SetupDialog.h"

namespace zefta {

namespace {

constexpr std::int32_t LqtText = 32008;
constexpr std::int32_t DownloadAddress = 4;
constexpr std::int32_t KestrinAddress = 5;
constexpr std::int32_t ProgramAddress = 6;

std::optional<SelectedRow> RowOf(const std::optional<BrowserRow>& row) {
    if (!row) return std::nullopt;
    return SelectedRow{row->icon, row->name};
}

void UnloadWindows() {
    const auto windows = QApplication::topLevelWidgets();
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) (*window)->close();
}

}  // namespace

const MainCommands::Row MainCommands::Handlers[] = {
    {Command::GoUp, &MainCommands::OnGoUp},
    {Command::OpenFolder, &MainCommands::OnOpenFolder},
    {Command::Rename, &MainCommands::OnRename},
    {Command::Delete, &MainCommands::OnDelete},
    {Command::Refresh, &MainCommands::OnRefresh},
    {Command::Exit, &MainCommands::OnExit},
    {Command::Play, &MainCommands::OnPlay},
    {Command::Append, &MainCommands::OnAppend},
    {Command::Encode, &MainCommands::OnEncode},
    {Command::EncodeOgg, &MainCommands::OnEncodeOgg},
    {Command::EncodeMPEGplus, &MainCommands::OnEncodeMPEGplus},
    {Command::AdvancedEncoding, &MainCommands::OnAdvancedEncoding},
    {Command::ReEncodeMP3, &MainCommands::OnReEncodeMP3},
    {Command::ReEncodeOgg, &MainCommands::OnReEncodeOgg},
    {Command::ReEncodeMPEGplus, &MainCommands::OnReEncodeMPEGplus},
    {Command::RenameSelected, &MainCommands::OnRenameSelected},
    {Command::Decode, &MainCommands::OnDecode},
    {Command::Properties, &MainCommands::OnProperties},
    {Command::RenameByPlaylist, &MainCommands::OnRenameByPlaylist},
    {Command::CopyPlaylist, &MainCommands::OnCopyPlaylist},
    {Command::CompressCD, &MainCommands::OnCompressCD},
    {Command::MakeList, &MainCommands::OnMakeList},
    {Command::PlayFolder, &MainCommands::OnPlayFolder},
    {Command::AppendFolder, &MainCommands::OnAppendFolder},
    {Command::RenameAll, &MainCommands::OnRenameAll},
    {Command::RenameByAllPlaylists, &MainCommands::OnRenameByAllPlaylists},
    {Command::ExtendedRename, &MainCommands::OnExtendedRename},
    {Command::ChangeTags, &MainCommands::OnChangeTags},
    {Command::ChangeTagsEx, &MainCommands::OnChangeTagsEx},
    {Command::Options, &MainCommands::OnOptions},
    {Command::SysTray, &MainCommands::OnSysTray},
    {Command::HelpContents, &MainCommands::OnHelpContents},
    {Command::WebKestrin, &MainCommands::OnWebKestrin},
    {Command::WebProgram, &MainCommands::OnWebProgram},
    {Command::WebDownloads, &MainCommands::OnWebDownloads},
    {Command::About, &MainCommands::OnAbout},
    {Command::Enter, &MainCommands::OnEnter},
    {Command::PopUpMenu, &MainCommands::OnPopUpMenu},
    {Command::SelectKind, &MainCommands::OnSelectKind},
    {Command::DeselectKind, &MainCommands::OnDeselectKind},
    {Command::InvertSelection, &MainCommands::OnInvertSelection},
    {Command::FocusDrives, &MainCommands::OnFocusDrives},
};

MainCommands::MainCommands(App& app, const Parts& parts)
    : QObject(&parts.window),
      app_(app),
      window_(parts.window),
      browser_(parts.browser),
      panels_(parts.panels),
      menu_(parts.menu),
      toolBar_(parts.toolBar),
      putInFront_(parts.putInFront),
      player_(app) {}

void MainCommands::Run(Command command, int index) {
    const auto row = std::find_if(std::begin(Handlers), std::end(Handlers),
                                  [&](const Row& each) { return each.command == command; });
    if (isRunning_ || row == std::end(Handlers)) return;
    isRunning_ = true;
    CheckRuntimeError(app_, [&] { (this->*row->handler)(index); });
    tellsProgress_ = false;
    isRunning_ = false;
    emit Ended();
}

std::set<Command> MainCommands::Handled() {
    std::set<Command> commands;
    for (const Row& row : Handlers) commands.insert(row.command);
    return commands;
}

void MainCommands::UpdateMenuAndToolbar(bool force) {
    const auto focused = RowOf(browser_.FocusedRow());
    // A large selection is only looked at where it decides.
    const bool selectionDecides = force || !focused;
    const RowState state = RowStateOf(
        focused, selectionDecides ? CurrentSelection().rows : std::vector<SelectedRow>(), force, app_.ansi);
    menu_.SetMenuEnabled(RowIcon::Compressed, state.compressed);
    menu_.SetMenuEnabled(RowIcon::Playlist, state.playlist);
    menu_.SetMenuEnabled(RowIcon::Wave, state.wave);
    for (const char* key : {"Decode", "Properties"}) toolBar_.SetButtonEnabled(key, state.compressed);
    toolBar_.SetButtonEnabled("Encode", state.wave);
    toolBar_.SetButtonEnabled("CopyPlaylist", state.playlist);
    if (!tellsProgress_) panels_.SetStatusText(1, state.text);
}

void MainCommands::PopUpMenuAt(const QPoint& globalPosition) {
    const auto row = browser_.FocusedRow();
    QMenu* menu = row ? menu_.MenuOf(row->icon) : nullptr;
    if (isRunning_ || menu == nullptr || menu->isVisible()) return;
    UpdateMenuAndToolbar(false);
    menu->popup(globalPosition);
}

Command MainCommands::CommandOfDoubleClick(const BrowserRow& row) const {
    const bool wantsProperties = row.icon == RowIcon::Compressed && app_.state.FilePropertiesOnDblClick;
    return wantsProperties ? Command::Properties : Command::Enter;
}

Selection MainCommands::CurrentSelection() const {
    Selection selection{browser_.Folder(), {}};
    for (const BrowserRow& row : browser_.SelectedRows()) selection.rows.push_back({row.icon, row.name});
    return selection;
}

std::string MainCommands::PathOf(const std::string& name) const {
    return JoinPath(browser_.Folder(), name);
}

SelectionWatch MainCommands::WatchOfRun() {
    return {[this](const std::string& text) {
                tellsProgress_ = true;
                panels_.SetStatusText(1, text);
            },
            [this](const std::string& name) { browser_.SetRowSelected(name, false); }};
}

void MainCommands::RestoreStatus(const std::string& status) {
    tellsProgress_ = false;
    panels_.SetStatusText(1, status);
}

void MainCommands::WorkAndReload(const std::function<bool()>& work) {
    const auto focused = browser_.FocusedRow();
    if (!work()) return;
    browser_.RefreshContents();
    browser_.ClearSelection();
    if (focused) browser_.SelectOnly(focused->name);
}

// Folders.

void MainCommands::OnGoUp(int) {
    browser_.GoUp();
}

void MainCommands::OnOpenFolder(int) {
    browser_.ChooseFolder();
}

void MainCommands::OnRefresh(int) {
    browser_.RefreshContents();
    UpdateMenuAndToolbar(true);
}

void MainCommands::OnEnter(int) {
    const auto row = browser_.FocusedRow();
    if (!row) return;
    if (row->icon == RowIcon::Up) {
        browser_.GoUp();
    } else if (row->icon == RowIcon::Folder) {
        browser_.ShowFolder(PathOf(row->name));
    } else {
        app_.desktop.OpenDocument(PathOf(row->name));
    }
}

void MainCommands::OnFocusDrives(int) {
    browser_.FocusDriveBox();
}

// Selection.

void MainCommands::SetKindSelected(bool selected) {
    if (const auto row = browser_.FocusedRow()) browser_.SetIconSelected(row->icon, selected);
}

void MainCommands::OnSelectKind(int) {
    SetKindSelected(true);
}

void MainCommands::OnDeselectKind(int) {
    SetKindSelected(false);
}

void MainCommands::OnInvertSelection(int) {
    browser_.InvertSelection();
}

void MainCommands::OnPopUpMenu(int) {
    QAbstractItemView& view = *browser_.View();
    view.scrollTo(view.currentIndex());
    const QRect row = view.visualRect(view.currentIndex());
    const QPoint below = view.viewport()->mapToGlobal(row.bottomLeft());
    // The menu has to find the command at its end.
    QMetaObject::invokeMethod(
        this, [this, below] { PopUpMenuAt(below); }, Qt::QueuedConnection);
}

// The program.

void MainCommands::OnExit(int) {
    ExitApplication(app_, UnloadWindows);
}

void MainCommands::OnCompressCD(int) {
    app_.processes.StartProgram(QuotePath(app_.processes.OwnPath()) + " /compress_audio_cd");
}

void MainCommands::OnSysTray(int) {
    QAction& item = *menu_.Item("mnuToolsSysTray");
    if (!item.isChecked()) return CloseAgent(app_);
    if (CheckRuntimeError(app_, [&] { StartAgent(app_); })) item.setChecked(false);
}

void MainCommands::OnOptions(int) {
    ShowSetup(app_, &window_);
    menu_.LoadCaptions();
    toolBar_.LoadCaptions();
}

void MainCommands::OnHelpContents(int) {
    app_.desktop.ShowBox(BoxKind::Plain, "HELP Contents", "Debug");
}

void MainCommands::OpenAddress(std::int32_t message) {
    app_.desktop.OpenDocument("http://" + app_.messages.GetMessage(message));
}

void MainCommands::OnWebKestrin(int) {
    OpenAddress(KestrinAddress);
}

void MainCommands::OnWebProgram(int) {
    OpenAddress(ProgramAddress);
}

void MainCommands::OnWebDownloads(int) {
    OpenAddress(DownloadAddress);
}

void MainCommands::OnAbout(int) {
    ShowAbout(app_, &window_);
}

void MainCommands::OnProperties(int) {
    const auto row = browser_.FocusedRow();
    if (!row || row->icon != RowIcon::Compressed) return;
    if (!IsCompressedFile(row->name)) return ShowWarning(app_, app_.messages.GetMessage(LqtText));
    ShowFileInformation(app_, PathOf(row->name), &window_);
    browser_.RefillRow(row->name, row->name);
    UpdateMenuAndToolbar(false);
}

}  // namespace zefta
