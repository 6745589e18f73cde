#pragma once

#include <QWidget>

#include "ui/setup/SetupBinding.h"

namespace zefta {

// The pages of the options dialog. What a page shows goes with the binding's options.

QWidget* MakeGeneralPage(SetupBinding& binding);

/// The verbs on the context menus.
QWidget* MakeShellPage(SetupBinding& binding);

/// Which encoding modes the menus and lists offer.
QWidget* MakeModesPage(SetupBinding& binding);

/// Three custom presets of one encoder.
struct PresetGroup {
    std::array<CustomPreset, 3> SetupOptions::*presets;
    /// Of the first control, which are counted over all encoders.
    int firstNumber;
};

QWidget* MakePresetPage(SetupBinding& binding, const PresetGroup& group);

}  // namespace zefta
