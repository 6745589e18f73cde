#include "ui/QtWindows.h"

#include <QLayout>
#include <QStyle>

#include "platform/AudioDisc.h"
#include "platform/DiscDatabase.h"
#include "platform/Machine.h"
#include "ui/Beside.h"
#include "ui/OwnIconEngine.h"
#include "ui/Toolkit.h"
#include "ui/cd/CDBaseDialog.h"
#include "ui/desktop/ExitWindowsDialog.h"
#include "ui/desktop/OutputPane.h"
#include "ui/info/ShowFileInformation.h"
#include "ui/main/MainToolBar.h"
#include "ui/main/MainWindow.h"
#include "ui/setup/SetupDialog.h"

namespace zefta {

namespace {

/// Where the desktop shows how far work is and what tools write while a window is there.
class PlaceOfWork {
  public:
    PlaceOfWork(WindowDesktop& desktop, Processes& processes, BatchView& view)
        : desktop_(desktop), processes_(processes) {
        desktop_.ShowBatchesIn(&view);
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

/// The pictures of the bar, while menus and the rest of the window are made. The fonts go first: more waits
/// for them.
std::future<void> DrawBarAhead(const std::shared_future<void>& fonts) {
    const int side = QApplication::style()->pixelMetric(QStyle::PM_ToolBarIconSize);
    return Beside(
        [fonts, names = MainToolBar::OwnPictures(), pixels = qRound(side * qApp->devicePixelRatio())] {
            if (fonts.valid()) fonts.wait();
            for (const QString& name : names) OwnIconEngine::DrawAhead(name, pixels);
        });
}

}  // namespace

QtWindows::QtWindows() : language_(LanguageOfTag(ReadMachine().language)) {}

QtWindows::~QtWindows() = default;

Toolkit& QtWindows::Started() {
    if (!toolkit_) toolkit_ = std::make_unique<Toolkit>(language_);
    return *toolkit_;
}

Desktop& QtWindows::WindowDesktop() {
    return Started().Desktop();
}

void QtWindows::RunMainWindow(App& app, FolderAhead& ahead) {
    Toolkit& toolkit = Started();
    const std::future<void> pictures = DrawBarAhead(toolkit.Fonts());
    MainWindow window(app, &ahead);
    const PlaceOfWork placeOfWork(toolkit.Desktop(), app.processes, window);
    toolkit.Desktop().WriteIntoPaneOf([&] {
        auto* pane = new OutputPane(language_, &window);
        window.addDockWidget(Qt::BottomDockWidgetArea, pane);
        return pane;
    });
    window.show();
    QApplication::exec();
}

void QtWindows::RunFileInformation(App& app, const std::string& path) {
    Started();
    ShowFileInformation(app, path, nullptr);
}

void QtWindows::RunOptions(App& app) {
    Started();
    ShowSetup(app, nullptr);
}

void QtWindows::RunCompressCD(App& app) {
    Toolkit& toolkit = Started();
    const auto disc = MakeAudioDisc(app.processes.OwnPath());
    const auto database = MakeDiscDatabase(app.processes.OwnPath());
    CDBaseDialog dialog(app, {*disc, *database, [&] { zefta::RunPowerOffCountdown(app); }});
    auto* pane = new OutputPane(language_, &dialog);
    pane->setFeatures(QDockWidget::DockWidgetClosable);
    dialog.layout()->addWidget(pane);
    const PlaceOfWork placeOfWork(toolkit.Desktop(), app.processes, dialog);
    toolkit.Desktop().WriteInto(pane);
    dialog.exec();
}

void QtWindows::RunPowerOffCountdown(App& app) {
    Started();
    zefta::RunPowerOffCountdown(app);
}

}  // namespace zefta
