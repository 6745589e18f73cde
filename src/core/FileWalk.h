#pragma once

#include <functional>
#include <string>

#include "core/App.h"

namespace zefta {

/// Takes each file of the folder that FileSpec names whose name matches its mask, in folder order; what is
/// made on the way is not taken. The folder becomes the current one. A run-time failure of one file is shown
/// and does not end the walk; the person may end it behind a file. RuntimeError 76 when the folder can't be
/// entered.
void WalkFiles(App& app, const std::function<void(const std::string& folder, const std::string& name)>& step);

}  // namespace zefta
