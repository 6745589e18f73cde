#pragma once

#include <functional>
#include <string>

#include "core/App.h"

namespace zefta {

/// Critical box with message 1005.
void ShowParamsError(App& app);

void ShowWarning(App& app, const std::string& text);

/// A box without a sign of warning.
void ShowPlainBox(App& app, const std::string& text);

/// Runs the step. A run-time failure in it is shown in a warning box (message 1000) and taken as dealt with;
/// true when there was one.
bool CheckRuntimeError(App& app, const std::function<void()>& step);

/// The title of the application stands when `title` is empty. `defaultSecond` makes No the default button.
/// True for Yes only.
bool AskYesNo(App& app, const std::string& text, const std::string& title = {}, bool defaultSecond = false);

}  // namespace zefta
