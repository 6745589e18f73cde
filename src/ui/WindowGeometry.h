#pragma once

#include <QList>
#include <QRect>
#include <QWidget>
#include <string>

#include "platform/SettingsStore.h"

namespace zefta {

/// Place and size of a window in logical pixels, as the settings keep them.
struct WindowGeometry {
    QRect place;
    bool isMaximised = false;

    bool operator==(const WindowGeometry&) const = default;
};

/// Reads Left, Top, Width, Height and WindowState with the window's name in front ("MainLeft") of the user's
/// store. A size that is too small to be meant, or no number, gives the size of a first start.
WindowGeometry LoadGeometry(const SettingsStore& store, const std::string& window);
/// Writes them in one step.
void SaveGeometry(SettingsStore& store, const std::string& window, const WindowGeometry& geometry);

/// The place, moved and cut as far as is needed for the window to be reached on one of the screens.
QRect OnScreens(const QRect& place, const QList<QRect>& screens);

/// The widget takes the stored place of the window, or stores its own.
void TakeStoredPlace(const SettingsStore& store, const std::string& window, QWidget& widget);
void StorePlace(SettingsStore& store, const std::string& window, const QWidget& widget);

}  // namespace zefta
