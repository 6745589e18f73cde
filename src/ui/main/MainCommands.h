#pragma once

#include <QObject>
#include <functional>
#include <set>
#include <string>

#include "core/App.h"
#include "library/Selection.h"
#include "library/SelectionEncoding.h"
#include "library/SelectionPlayer.h"
#include "ui/list/FolderBrowser.h"
#include "ui/main/MenuTable.h"

namespace zefta {

class BatchDialog;
class BatchView;
class MainMenu;
class MainToolBar;
class StatusPanels;

/// What the main window does when a menu, a button, a key or a row asks for it. One command runs at a time:
/// what is asked for meanwhile is not heard. A run-time failure of a command is shown.
class MainCommands : public QObject {
    Q_OBJECT

  public:
    /// The window and its parts, which all have to live as long.
    struct Parts {
        QWidget& window;
        FolderBrowser& browser;
        StatusPanels& panels;
        MainMenu& menu;
        MainToolBar& toolBar;
        /// A dialog that works on files is shown in front of the window, which asks it about the end; null
        /// behind it.
        std::function<void(BatchView* front)> putInFront;
    };

    MainCommands(App& app, const Parts& parts);

    /// `index`: of the item in an indexed list.
    void Run(Command command, int index = 0);
    bool IsRunning() const { return isRunning_; }

    /// All that Run knows how to do.
    static std::set<Command> Handled();

    /// Makes menus, toolbar and panel 1 follow the focused row; with `force`, as after a change of the list,
    /// the selected rows.
    void UpdateMenuAndToolbar(bool force);

    /// Shows the menu of the focused row, if its kind has one.
    void PopUpMenuAt(const QPoint& globalPosition);

    /// What a double click on the row asks for.
    Command CommandOfDoubleClick(const BrowserRow& row) const;

  signals:
    /// A command has ended.
    void Ended();

  private:
    using Handler = void (MainCommands::*)(int index);
    struct Row {
        Command command;
        Handler handler;
    };
    static const Row Handlers[];

    void OnGoUp(int);
    void OnOpenFolder(int);
    void OnRename(int);
    void OnDelete(int);
    void OnRefresh(int);
    void OnExit(int);
    void OnPlay(int);
    void OnAppend(int);
    void OnEncode(int code);
    void OnEncodeOgg(int mode);
    void OnEncodeMPEGplus(int mode);
    void OnAdvancedEncoding(int);
    void OnChangeTags(int);
    void OnChangeTagsEx(int);
    void OnReEncodeMP3(int code);
    void OnReEncodeOgg(int mode);
    void OnReEncodeMPEGplus(int mode);
    void OnRenameSelected(int rule);
    void OnDecode(int);
    void OnProperties(int);
    void OnRenameByPlaylist(int rule);
    void OnCopyPlaylist(int);
    void OnCompressCD(int);
    void OnMakeList(int);
    void OnPlayFolder(int);
    void OnAppendFolder(int);
    void OnRenameAll(int rule);
    void OnRenameByAllPlaylists(int rule);
    void OnExtendedRename(int);
    void OnOptions(int);
    void OnSysTray(int);
    void OnHelpContents(int);
    void OnWebKestrin(int);
    void OnWebProgram(int);
    void OnWebDownloads(int);
    void OnAbout(int);
    void OnEnter(int);
    void OnPopUpMenu(int);
    void OnSelectKind(int);
    void OnDeselectKind(int);
    void OnInvertSelection(int);
    void OnFocusDrives(int);

    Selection CurrentSelection() const;
    std::string PathOf(const std::string& name) const;
    /// Panel 1 is the run's from its first text on.
    SelectionWatch WatchOfRun();
    /// Gives panel 1 back.
    void RestoreStatus(const std::string& status);
    void EncodeBy(const ModeOfCommand& mode);
    void ReEncodeBy(const ModeOfCommand& mode);
    void PlaySelection(bool append);
    void PlayAll(bool append);
    void TellIfNothingPlays(bool hasStarted);
    /// Runs the work; when that has done anything the list is made anew and what was focused selected, if it
    /// is still there.
    void WorkAndReload(const std::function<bool()>& work);
    /// What the dialog was closed with. Its work asks it, and not the window behind, about the end.
    int RunInFront(BatchDialog& dialog);
    void OpenAddress(std::int32_t message);
    void SetKindSelected(bool selected);

    App& app_;
    QWidget& window_;
    FolderBrowser& browser_;
    StatusPanels& panels_;
    MainMenu& menu_;
    MainToolBar& toolBar_;
    std::function<void(BatchView* front)> putInFront_;
    SelectionPlayer player_;
    bool isRunning_ = false;
    bool tellsProgress_ = false;
};

}  // namespace zefta
