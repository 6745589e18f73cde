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

/// Splits at blanks. A stretch in double quotes belongs to one argument, and \" stands for a double quote.
/// Backslashes count in pairs where they stand in front of a double quote, so that a quoted path may end in
/// one; everywhere else they are nothing special. A quote that is never closed runs to the end.
std::vector<CommandArgument> SplitCommandLine(std::string_view commandLine);

/// The path in double quotes, in the form that SplitCommandLine reads back: only a double quote, and what
/// backslashes stand in front of one or at the end, is written differently.
std::string QuotePath(std::string_view path);

}  // namespace zefta
