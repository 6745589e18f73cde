#pragma once

#include <string>

#include "core/App.h"
#include "core/CommandLine.h"

namespace zefta {

/// Puts the command line into the job fields of the state and overrides settings for this run. False when
/// there is no token at all. Never complains: an unknown token becomes FileSpec, a value out of range is
/// dropped. RuntimeError 13 when a value that has to be a whole number is none, 6 when a number is too large
/// for its field.
///
/// A token that begins with "/" is an option or a path, told apart in this order: one that equals an option
/// is that option; "/f" and one digit is the rename format; one that names an existing file or folder, or
/// holds a second "/", is a path and counts as a token that does not begin with "/".
bool ParseCommandLine(App& app, const CommandLine& commandLine);

/// The text of --help: every option, by groups, and the exit statuses.
std::string HelpText();

}  // namespace zefta
