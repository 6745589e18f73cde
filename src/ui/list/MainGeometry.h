#pragma once

#include <QWidget>

#include "core/App.h"

namespace zefta {

class FolderAhead;
class FolderBrowser;

/// The window takes its stored place, the path box its stored folders, and the list shows the folder that
/// the state names, by what was read of it `ahead`.
void LoadMainWindow(App& app, QWidget& window, FolderBrowser& browser, FolderAhead* ahead = nullptr);

/// Stores what LoadMainWindow loads, and the main settings with it.
void UnloadMainWindow(App& app, QWidget& window, const FolderBrowser& browser);

}  // namespace zefta
