#pragma once

#include <QWidget>
#include <string>

#include "core/App.h"

namespace zefta {

/// The dialog with the information of a compressed file, by the kind that its name tells; returns when it is
/// closed. True when its OK has been pressed, so that the file may be another one now. A file of no such kind
/// does nothing.
bool ShowFileInformation(App& app, const std::string& path, QWidget* parent);

}  // namespace zefta
