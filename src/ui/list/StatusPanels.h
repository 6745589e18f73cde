#pragma once

#include <QStatusBar>
#include <array>
#include <string>

#include "core/App.h"

class QLabel;

namespace zefta {

/// sbStatusBar: a line of four panels, counted from 1. Panel 1 tells what is at hand or the focused row,
/// panel 2 how many folders or files there are, panel 3 their size; panel 4 is free.
class StatusPanels : public QStatusBar {
    Q_OBJECT

  public:
    static constexpr int PanelCount = 4;

    explicit StatusPanels(const App& app, QWidget* parent = nullptr);

    /// A text that is too long for its panel ends in "..."; its tool tip tells the whole.
    void SetStatusText(int panel, const std::string& text);
    std::string StatusText(int panel) const;

  private:
    std::array<QLabel*, PanelCount> panels_;
};

}  // namespace zefta
