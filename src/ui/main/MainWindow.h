#pragma once

#include <QMainWindow>

#include "core/App.h"

namespace zefta {

/// frmMain: the list of one folder with its commands.
class MainWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit MainWindow(App& app);

  private:
    App& app_;
};

}  // namespace zefta
