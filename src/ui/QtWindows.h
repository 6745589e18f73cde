#pragma once

#include <memory>

#include "app/Windows.h"
#include "core/MessageTable.h"

namespace zefta {

class Toolkit;

/// The windows of the toolkit, and its application object with them.
class QtWindows : public Windows {
  public:
    QtWindows();
    ~QtWindows() override;

    Desktop& WindowDesktop() override;
    void RunMainWindow(App& app, FolderAhead& ahead) override;
    void RunFileInformation(App& app, const std::string& path) override;
    void RunCompressCD(App& app) override;
    void RunOptions(App& app) override;
    void RunPowerOffCountdown(App& app) override;

  private:
    /// Starts it at the first call.
    Toolkit& Started();

    Language language_;
    std::unique_ptr<Toolkit> toolkit_;
};

}  // namespace zefta
