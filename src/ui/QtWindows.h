#pragma once

#include <QApplication>
#include <memory>

#include "app/Windows.h"
#include "ui/desktop/WindowDesktop.h"

namespace zefta {

/// The windows of the toolkit, and its application object with them.
class QtWindows : public Windows {
  public:
    QtWindows();

    Desktop& WindowDesktop() override { return desktop_; }
    void RunMainWindow(App& app) override;
    void RunFileInformation(App& app, const std::string& path) override;
    void RunCompressCD(App& app) override;
    void RunOptions(App& app) override;
    void RunPowerOffCountdown(App& app) override;

  private:
    std::unique_ptr<QApplication> application_;
    Language language_;
    zefta::WindowDesktop desktop_;
};

}  // namespace zefta
