#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zefta {

/// One argument of a command line.
struct CommandArgument {
    std::string text;
    /// Whether any of it stood in double quotes: such arguments are, or hold, paths.
    bool quoted = false;

    bool operator==(const CommandArgument&) const = default;
};

/// Splits at blanks. A stretch in double quotes belongs to one argument, \" stands for a double quote, and
/// nothing else is escaped. A quote that is never closed runs to the end.
std::vector<CommandArgument> SplitCommandLine(std::string_view commandLine);

/// The path in double quotes, in the form that SplitCommandLine reads back.
std::string QuotePath(std::string_view path);

}  // namespace zefta
