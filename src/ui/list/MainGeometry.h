#pragma once

#include <QRect>
#include <QWidget>

#include "core/App.h"

namespace zefta {

class FolderBrowser;

/// Place and size of a window in logical pixels, as the settings keep them.
struct WindowGeometry {
    QRect place;
    bool isMaximised = false;

    bool operator==(const WindowGeometry&) const = default;
};

/// Reads MainLeft, MainTop, MainWidth, MainHeight and MainWindowState of the user's store. A size that is too
/// small to be meant, or no number, gives the size of a first start.
WindowGeometry LoadGeometry(const SettingsStore& store);
/// Writes them in one step.
void SaveGeometry(SettingsStore& store, const WindowGeometry& geometry);

/// The place, moved and cut as far as is needed for the window to be reached on one of the screens.
QRect OnScreens(const QRect& place, const QList<QRect>& screens);

/// The window takes its stored place, the path box its stored folders, and the list shows the folder that
/// the state names.
void LoadMainWindow(App& app, QWidget& window, FolderBrowser& browser);

/// Stores what LoadMainWindow loads, and the main settings with it.
void UnloadMainWindow(App& app, QWidget& window, const FolderBrowser& browser);

}  // namespace zefta
