#pragma once

#include <QApplication>
#include <future>
#include <memory>

#include "core/MessageTable.h"
#include "ui/desktop/WindowDesktop.h"

namespace zefta {

/// The toolkit while it runs: its application object, with texts in the language, and the boxes over it.
class Toolkit {
  public:
    explicit Toolkit(Language language);

    WindowDesktop& Desktop() { return desktop_; }

    /// Ready when all fonts are known, for which the first text waits. Copies go before the toolkit does.
    std::shared_future<void> Fonts() const { return fonts_; }

  private:
    std::unique_ptr<QApplication> application_;
    WindowDesktop desktop_;
    /// What a second thread does for the first text; ends before the application does.
    std::shared_future<void> fonts_;
};

}  // namespace zefta
