#pragma once

#include <QWidget>

#include "core/App.h"

namespace zefta {

class FolderBrowser;

/// The window takes its stored place, the path box its stored folders, and the list shows the folder that
/// the state names.
void LoadMainWindow(App& app, QWidget& window, FolderBrowser& browser);

/// Stores what LoadMainWindow loads, and the main settings with it.
void UnloadMainWindow(App& app, QWidget& window, const FolderBrowser& browser);

}  // namespace zefta
