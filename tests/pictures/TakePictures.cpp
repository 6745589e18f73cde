// Takes the pictures of the documents: opens the real windows on the display at hand, on the files of the
// demo folder, and stores what the display shows of them.
//
//   zefta_take_pictures DEMO_FOLDER PICTURE_FOLDER SUFFIX [dark]

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QScreen>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <clocale>
#include <functional>
#include <iostream>
#include <string>

#include "core/App.h"
#include "core/Settings.h"
#include "library/CopyPlaylist.h"
#include "platform/Paths.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"
#include "ui/OwnStyle.h"
#include "ui/QtText.h"
#include "ui/cd/CDBaseDialog.h"
#include "ui/cd/MatchDialog.h"
#include "ui/desktop/AboutDialog.h"
#include "ui/desktop/ExitWindowsDialog.h"
#include "ui/desktop/WindowDesktop.h"
#include "ui/encode/EncodeDialog.h"
#include "ui/grid/GridView.h"
#include "ui/info/MP3FileInfo.h"
#include "ui/info/MPEGplusFileInfo.h"
#include "ui/info/OggEditTag.h"
#include "ui/info/OggFileInfo.h"
#include "ui/list/FolderBrowser.h"
#include "ui/main/MainWindow.h"
#include "ui/rename/RenameDialog.h"
#include "ui/setup/SetupDialog.h"
#include "ui/tags/ChangeTagsDialog.h"
#include "ui/tags/ChangeTagsExDialog.h"
#include "wave/WaveFile.h"
#include "wave/WaveTrim.h"

namespace zefta {
namespace {

/// Where pictures go.
struct Album {
    std::string folder;
    std::string suffix;

    void Take(QWidget& window, const std::string& name) const {
        if (!QTest::qWaitForWindowExposed(&window)) throw std::runtime_error(name + " was never shown");
        QTest::qWait(200);
        const QPixmap picture = window.screen()->grabWindow(window.winId());
        const std::string path = JoinPath(folder, name + "-" + suffix + ".png");
        if (picture.isNull() || !picture.save(ToQt(path))) throw std::runtime_error("no picture " + path);
        std::cout << path << " " << picture.width() << "x" << picture.height() << std::endl;
    }
};

QPalette DarkPalette() {
    QPalette palette;
    const QColor window(45, 45, 48);
    const QColor base(30, 30, 32);
    const QColor text(230, 230, 230);
    const QColor faint(128, 128, 130);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Button, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(38, 38, 40));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Link, QColor(110, 170, 255));
    palette.setColor(QPalette::Highlight, QColor(53, 103, 170));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

/// Refuses, and is never asked.
class NoPowerOff : public PowerOff {
  public:
    std::string ExitSystem(int) override { return "refused"; }
};

/// A disc that is always there.
class DemoDisc : public AudioDisc {
  public:
    std::vector<std::string> Drives() const override { return {"/dev/sr0"}; }
    std::optional<DiscContents> ReadContents(const std::string&, const WaitStep&) override {
        return DiscContents{
            1, {{true, 150, 16800}, {true, 16950, 13650}, {true, 30600, 19125}, {false, 49725, 9000}}, 58725};
    }
    TrackReading ReadTrack(const std::string&, std::int32_t,
                           const std::function<void(std::span<const std::byte>)>&, const WaitStep&) override {
        return TrackReading::Failed;
    }
};

class DemoDatabase : public DiscDatabase {
  public:
    DatabaseReply<std::vector<DatabaseMatch>> Query(const DatabaseAccess&, const DiscContents&,
                                                    const WaitStep&) override {
        return {DatabaseEnd::Answered, {}, {{"rock", "1", "Northern Line", "Paper Boats"}}};
    }
    DatabaseReply<DatabaseAlbum> Read(const DatabaseAccess&, const DatabaseMatch&, const WaitStep&) override {
        return {DatabaseEnd::Answered,
                {},
                {"Northern Line",
                 "Paper Boats",
                 {"Harbour Lights / Demo", "Paper Boats", "Long Way Down / Live in Leith", "Video"}}};
    }
};

void TakeMainWindow(App& app, const Album& album) {
    MainWindow window(app);
    window.resize(880, 480);
    bool isFull = false;
    QObject::connect(&window.Browser(), &FolderBrowser::ScanFinished, &window, [&] { isFull = true; });
    window.show();
    if (!QTest::qWaitFor([&] { return isFull; }, 10000)) throw std::runtime_error("the list was never full");
    window.Browser().SelectOnly("02 Paper Boats.MP3");
    album.Take(window, "main");
    for (QAction* action : window.menuBar()->actions()) {
        QMenu* menu = action->menu();
        if (menu == nullptr || !action->isEnabled()) continue;
        menu->popup(window.mapToGlobal(QPoint(60, 60)));
        album.Take(*menu, "menu-" + FromQt(menu->objectName()));
        menu->close();
    }
}

void TakeDialog(QDialog& dialog, const Album& album, const std::string& name) {
    dialog.show();
    album.Take(dialog, name);
    dialog.close();
}

void TakeDialogs(App& app, const Album& album, const std::string& demo) {
    MP3FileInfo mp3(app, JoinPath(demo, "02 Paper Boats.MP3"), nullptr);
    TakeDialog(mp3, album, "info-mp3");
    OggFileInfo ogg(app, JoinPath(demo, "05 Harbour Lights.ogg"), nullptr);
    TakeDialog(ogg, album, "info-ogg");
    OggEditTag comment(app, "LOCATION=Leith docks", nullptr);
    TakeDialog(comment, album, "info-ogg-comment");
    MPEGplusFileInfo mpc(app, JoinPath(demo, "06 Long Way Down.mpc"), nullptr);
    TakeDialog(mpc, album, "info-mpc");
    DemoDisc disc;
    DemoDatabase database;
    app.state.CompressCD_SourceFolder = "/home/ann/Rips";
    app.state.CompressCD_TargetFolder = "/home/ann/Music";
    CDBaseDialog cd(app, {disc, database, {}});
    cd.findChild<QPushButton*>("cmdImportData")->click();
    TakeDialog(cd, album, "audio-cd");
    MatchDialog matches(
        app,
        {{"rock", "1", "Northern Line", "Paper Boats"}, {"misc", "2", "Northern Line", "Paper Boats (Live)"}},
        nullptr);
    TakeDialog(matches, album, "audio-cd-entries");
    NoPowerOff powerOff;
    ExitWindowsDialog exit(app, powerOff);
    TakeDialog(exit, album, "power-off");
    AboutDialog about(app);
    TakeDialog(about, album, "about");
}

void TakeOptions(App& app, const Album& album) {
    const auto desktops = OpenDesktopEntries();
    SetupDialog options(app, *desktops, nullptr);
    options.show();
    auto* tabs = options.findChild<QTabWidget*>("SSTab1");
    for (int page = 0; page < tabs->count(); ++page) {
        tabs->setCurrentIndex(page);
        album.Take(options, "options-" + std::to_string(page + 1));
    }
    options.close();
}

void TakeExtendedRename(App& app, const Album& album, const std::string& demo) {
    RenameDialog rename(app, {demo, {}}, nullptr);
    rename.show();
    // The preview comes a moment later.
    QTest::qWait(1500);
    album.Take(rename, "rename");
    rename.close();
}

/// The dialogs over a grid of tags, with a cell that is being edited.
void TakeGrids(App& app, const Album& album, const std::string& demo) {
    const std::vector<std::string> songs = {"01 Morning Train.MP3", "02 Paper Boats.MP3",
                                            "05 Harbour Lights.ogg", "06 Long Way Down.mpc"};
    const auto edit = [](QDialog& dialog) {
        auto& grid = *dialog.findChild<GridView*>("flxFiles");
        dialog.show();
        grid.SelectCell(0, 3);
        QTest::keyClick(&grid, Qt::Key_F2);
    };
    ChangeTagsDialog massive(
        app, {demo, songs, songs}, [](const std::string&) {}, nullptr);
    TakeDialog(massive, album, "change-tags");
    ChangeTagsExDialog advanced(
        app, demo, *LoadTagRows(app, demo, songs), [](const std::string&) {}, nullptr);
    edit(advanced);
    TakeDialog(advanced, album, "change-tags-ex");
    EncodeDialog encode(app, demo, {"Field recording.wav", "Band - Song (Live).wav"}, {}, nullptr);
    edit(encode);
    TakeDialog(encode, album, "encode");
}

/// Takes one picture of the progress dialog in the midst of the work.
class PictureDesktop : public WindowDesktop {
  public:
    PictureDesktop(const Machine& machine, const Album& album)
        : WindowDesktop(LanguageOfTag(machine.language)), album_(album) {}

    void TakeProgressAs(const std::string& name, int step) {
        name_ = name;
        stepsToGo_ = step;
    }

    void ServeEvents() override {
        WindowDesktop::ServeEvents();
        if (name_.empty() || --stepsToGo_ > 0) return;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && qobject_cast<QDialog*>(window) != nullptr) {
                album_.Take(*window, name_);
                name_.clear();
                return;
            }
        }
    }

    bool IsDone() const { return name_.empty(); }

  private:
    const Album& album_;
    std::string name_;
    int stepsToGo_ = 0;
};

void TakeProgress(App& app, PictureDesktop& desktop, const std::string& demo) {
    desktop.TakeProgressAs("trim", 60);
    app.files.SetCurrentFolder(demo);
    app.state.FileSpec = "Field recording.wav";
    app.state.RenameFormat = 1;
    // The silence of the demo has the noise of its dither in it.
    app.state.SilenceMin = 7;
    app.state.SilenceMax = 65528;
    app.state.ShowExecuteWindows = true;
    WaveTrimJob(app);
    if (!desktop.IsDone()) throw std::runtime_error("the trim dialog was never shown");
    desktop.TakeProgressAs("copy", 36);
    const std::string target = JoinPath(demo, "copies");
    app.files.CreateFolder(target);
    CopyPlaylist(app, JoinPath(demo, "Northern Line.m3u"), target);
    if (!desktop.IsDone()) throw std::runtime_error("the copy dialog was never shown");
}

void TakeAll(const std::string& demo, const Album& album) {
    const Machine machine = ReadMachine();
    PosixFileSystem files;
    PosixProcesses processes;
    PictureDesktop desktop(machine, album);
    IniSettingsStore userSettings("");
    IniSettingsStore machineSettings("");
    App app(machine, files, desktop, processes, userSettings, machineSettings);
    WaveFile waveFile(app);
    app.defaultWaveFile = &waveFile;
    LoadSettings(app);
    app.state.CurrentFolder = demo;
    TakeMainWindow(app, album);
    TakeDialogs(app, album, demo);
    TakeOptions(app, album);
    TakeExtendedRename(app, album, demo);
    TakeGrids(app, album, demo);
    TakeProgress(app, desktop, demo);
}

}  // namespace
}  // namespace zefta

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    if (argc < 4) return 2;
    QApplication::setStyle(new zefta::OwnStyle);
    if (argc > 4 && std::string(argv[4]) == "dark") QApplication::setPalette(zefta::DarkPalette());
    try {
        zefta::TakeAll(argv[1], {argv[2], argv[3]});
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return 1;
    }
    return 0;
}
