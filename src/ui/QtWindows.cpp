#include "ui/QtWindows.h"

#include <QLayout>
#include <QLibraryInfo>
#include <QTranslator>
#include <clocale>

#include "platform/AudioDisc.h"
#include "platform/DiscDatabase.h"
#include "platform/Machine.h"
#include "ui/QtText.h"
#include "ui/Resources.h"
#include "ui/cd/CDBaseDialog.h"
#include "ui/desktop/ExitWindowsDialog.h"
#include "ui/desktop/OutputPane.h"
#include "ui/info/ShowFileInformation.h"
#include "ui/main/MainWindow.h"
#include "ui/setup/SetupDialog.h"

namespace zefta {

namespace {

std::unique_ptr<QApplication> MakeApplication() {
    // The toolkit keeps both for as long as it lives.
    static int count = 1;
    static char name[] = "zefta";
    static char* arguments[] = {name, nullptr};
    auto application = std::make_unique<QApplication>(count, arguments);
    // The toolkit takes over the locale; numbers of our formats have a point in every language.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setDesktopFileName("zefta");
    // For the windows of jobs, which have no main window behind them.
    QApplication::setWindowIcon(OwnIcon("zefta"));
    return application;
}

/// The toolkit's own texts, such as those of its chooser of folders. Without a translation they stay English.
void TranslateToolkit(QApplication& application, Language language) {
    if (language != Language::Russian) return;
    auto* texts = new QTranslator(&application);
    if (texts->load("qtbase_ru", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(texts);
}

/// Where the desktop shows how far work is and what tools write while a window is there.
class PlaceOfWork {
  public:
    PlaceOfWork(WindowDesktop& desktop, Processes& processes, BatchView& view, OutputPane* pane)
        : desktop_(desktop), processes_(processes) {
        desktop_.ShowBatchesIn(&view);
        desktop_.WriteInto(pane);
        processes_.FollowTools(&desktop_);
    }
    ~PlaceOfWork() {
        processes_.FollowTools(nullptr);
        desktop_.WriteInto(nullptr);
        desktop_.ShowBatchesIn(nullptr);
    }
    PlaceOfWork(const PlaceOfWork&) = delete;
    PlaceOfWork& operator=(const PlaceOfWork&) = delete;

  private:
    WindowDesktop& desktop_;
    Processes& processes_;
};

}  // namespace

QtWindows::QtWindows()
    : application_(MakeApplication()), language_(LanguageOfTag(ReadMachine().language)), desktop_(language_) {
    TranslateToolkit(*application_, language_);
}

void QtWindows::RunMainWindow(App& app) {
    MainWindow window(app);
    auto* pane = new OutputPane(language_, &window);
    window.addDockWidget(Qt::BottomDockWidgetArea, pane);
    const PlaceOfWork placeOfWork(desktop_, app.processes, window, pane);
    window.show();
    QApplication::exec();
}

void QtWindows::RunFileInformation(App& app, const std::string& path) {
    ShowFileInformation(app, path, nullptr);
}

void QtWindows::RunOptions(App& app) {
    ShowSetup(app, nullptr);
}

void QtWindows::RunCompressCD(App& app) {
    const auto disc = MakeAudioDisc(app.processes.OwnPath());
    const auto database = MakeDiscDatabase(app.processes.OwnPath());
    CDBaseDialog dialog(app, {*disc, *database, [&] { zefta::RunPowerOffCountdown(app); }});
    auto* pane = new OutputPane(language_, &dialog);
    pane->setFeatures(QDockWidget::DockWidgetClosable);
    dialog.layout()->addWidget(pane);
    const PlaceOfWork placeOfWork(desktop_, app.processes, dialog, pane);
    dialog.exec();
}

void QtWindows::RunPowerOffCountdown(App& app) {
    zefta::RunPowerOffCountdown(app);
}

}  // namespace zefta
