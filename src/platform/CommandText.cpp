#include "platform/CommandText.h"

namespace zefta {

namespace {

/// Length of the run of backslashes at `from` when a double quote stands behind it, else 0.
std::size_t BackslashesBeforeQuote(std::string_view text, std::size_t from) {
    const std::size_t end = text.find_first_not_of('\\', from);
    return end != std::string_view::npos && text[end] == '"' ? end - from : 0;
}

}  // namespace

std::vector<CommandArgument> SplitCommandLine(std::string_view commandLine) {
    std::vector<CommandArgument> arguments;
    CommandArgument current;
    bool inQuotes = false;
    const auto finish = [&] {
        if (!current.text.empty() || current.quoted) arguments.push_back(current);
        current = {};
    };
    for (std::size_t i = 0; i < commandLine.size(); ++i) {
        const std::size_t backslashes = BackslashesBeforeQuote(commandLine, i);
        current.text.append(backslashes / 2, '\\');
        i += backslashes;
        const char character = commandLine[i];
        if (backslashes % 2 != 0) {
            current.text += character;
        } else if (character == '"') {
            inQuotes = !inQuotes;
            current.quoted = true;
        } else if (character == ' ' && !inQuotes) {
            finish();
        } else {
            current.text += character;
        }
    }
    finish();
    return arguments;
}

std::string QuotePath(std::string_view path) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char character : path) {
        if (character == '"') quoted.append(backslashes + 1, '\\');
        backslashes = character == '\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    quoted.append(backslashes, '\\');
    return quoted + '"';
}

}  // namespace zefta
