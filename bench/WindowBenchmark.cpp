// Opens windows for script/bench:
//
//   zefta_window_benchmark empty         a window of the toolkit with nothing in it, until it is painted, and
//                                        prints when that was
//   zefta_window_benchmark open FOLDER   enters the folder in an open window and prints, in milliseconds,
//                                        how long the first rows and all rows took, and the longest time
//                                        without an event served
//   zefta_window_benchmark scroll FOLDER  turns over the pages of the folder in an open window and prints, in
//                                        milliseconds, how long one takes to be painted
//
// How long the program takes to show a folder from its start on is seen by watch/WindowWatch.cpp.

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QScrollBar>
#include <QTimer>
#include <QWidget>
#include <clocale>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>

#include "EndOfPainting.h"
#include "core/App.h"
#include "core/Settings.h"
#include "platform/posix/IniSettingsStore.h"
#include "platform/posix/PosixFileSystem.h"
#include "platform/posix/PosixProcesses.h"
#include "ui/desktop/WindowDesktop.h"
#include "ui/list/FolderBrowser.h"
#include "ui/main/MainWindow.h"
#include "wave/WaveFile.h"

namespace zefta {
namespace {

/// Calls `painted` behind each painting of the widget.
class PaintWatch : public QObject {
  public:
    PaintWatch(QWidget* widget, std::function<void()> painted)
        : QObject(widget), painted_(std::move(painted)) {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) QTimer::singleShot(0, this, painted_);
        return false;
    }

  private:
    std::function<void()> painted_;
};

int RunEmpty() {
    QWidget window;
    window.resize(667, 533);
    const PaintWatch watch(&window, EndPainted);
    window.show();
    return QApplication::exec();
}

/// What happens from the order to enter a folder on.
struct Opening {
    QElapsedTimer clock;
    qint64 firstRows = -1;
    qint64 lastTick = 0;
    qint64 longestGap = 0;
};

int RunOpen(MainWindow& window, const std::string& folder) {
    Opening opening;
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, &window, [&] {
        const qint64 now = opening.clock.elapsed();
        opening.longestGap = std::max(opening.longestGap, now - opening.lastTick);
        opening.lastTick = now;
    });
    const PaintWatch watch(window.Browser().View()->viewport(), [&] {
        if (opening.clock.isValid() && opening.firstRows < 0) opening.firstRows = opening.clock.elapsed();
    });
    window.show();
    QTimer::singleShot(500, &window, [&] {
        QObject::connect(&window.Browser(), &FolderBrowser::ScanFinished, &window, [&] {
            std::cout << "first " << opening.firstRows << " all " << opening.clock.elapsed() << " gap "
                      << opening.longestGap << std::endl;
            std::_Exit(0);
        });
        opening.clock.start();
        ticks.start(1);
        window.Browser().EnterTypedFolder(folder);
    });
    return QApplication::exec();
}

/// Page by page, each painted at once.
void TurnPages(QAbstractItemView& view) {
    constexpr int MostPages = 500;
    QScrollBar& bar = *view.verticalScrollBar();
    QElapsedTimer clock;
    clock.start();
    int pages = 0;
    for (; pages < MostPages && bar.value() < bar.maximum(); ++pages) {
        bar.setValue(bar.value() + bar.pageStep());
        view.viewport()->repaint();
    }
    std::cout << "pages " << pages << " milliseconds a page "
              << static_cast<double>(clock.elapsed()) / std::max(pages, 1) << std::endl;
}

int RunScroll(MainWindow& window, const std::string& folder) {
    window.show();
    QObject::connect(&window.Browser(), &FolderBrowser::ScanFinished, &window, [&] {
        if (window.Browser().Folder() != folder) return;
        TurnPages(*window.Browser().View());
        std::_Exit(0);
    });
    window.Browser().EnterTypedFolder(folder);
    return QApplication::exec();
}

int RunOnFolder(const std::string& what, const std::string& folder) {
    const Machine machine = ReadMachine();
    PosixFileSystem files;
    PosixProcesses processes;
    WindowDesktop desktop(LanguageOfTag(machine.language));
    IniSettingsStore userSettings("");
    IniSettingsStore machineSettings("");
    App app(machine, files, desktop, processes, userSettings, machineSettings);
    WaveFile waveFile(app);
    app.defaultWaveFile = &waveFile;
    LoadSettings(app);
    app.state.CurrentFolder = "/";
    MainWindow window(app);
    return what == "scroll" ? RunScroll(window, folder) : RunOpen(window, folder);
}

}  // namespace
}  // namespace zefta

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const std::string what = argc > 1 ? argv[1] : "empty";
    return what == "empty" ? zefta::RunEmpty() : zefta::RunOnFolder(what, argc > 2 ? argv[2] : "/");
}
