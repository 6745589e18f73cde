#include "ui/main/MainWindow.h"

#include "core/Version.h"
#include "ui/QtText.h"

namespace zefta {

MainWindow::MainWindow(App& app) : app_(app) {
    setObjectName("frmMain");
    setWindowTitle(ToQt(ApplicationTitle() + " " + VersionText()));
}

}  // namespace zefta
