#include "ui/QtWindows.h"

#include <clocale>

#include "core/Version.h"
#include "ui/QtText.h"
#include "ui/desktop/ExitWindowsDialog.h"
#include "ui/info/ShowFileInformation.h"
#include "ui/main/MainWindow.h"

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
    QApplication::setApplicationDisplayName(ToQt(ApplicationTitle()));
    QApplication::setDesktopFileName("zefta");
    return application;
}

}  // namespace

QtWindows::QtWindows() : application_(MakeApplication()) {}

void QtWindows::RunMainWindow(App& app) {
    MainWindow window(app);
    window.show();
    QApplication::exec();
}

void QtWindows::RunFileInformation(App& app, const std::string& path) {
    ShowFileInformation(app, path, nullptr);
}

void QtWindows::RunPowerOffCountdown(App& app) {
    zefta::RunPowerOffCountdown(app);
}

}  // namespace zefta
