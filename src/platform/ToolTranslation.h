#pragma once

#include <string>
#include <vector>

#include "platform/CommandText.h"

namespace zefta {

/// The names under which a tool is looked for on today's machines, in order, the documented name first.
/// "mppenc.exe" gives "mppenc.exe", "mppenc", "mpcenc".
std::vector<std::string> ToolNames(const std::string& program);

/// The arguments behind the program's name, as today's tool of that name wants them: where a tool differs
/// from the one that the command lines were made for, this is the one place that knows it.
std::vector<std::string> TranslateToolArguments(const std::vector<CommandArgument>& command);

}  // namespace zefta
