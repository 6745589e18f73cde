#include "platform/CommandText.h"

namespace zefta {

std::vector<CommandArgument> SplitCommandLine(std::string_view commandLine) {
    std::vector<CommandArgument> arguments;
    CommandArgument current;
    bool inQuotes = false;
    const auto finish = [&] {
        if (!current.text.empty() || current.quoted) arguments.push_back(current);
        current = {};
    };
    for (std::size_t i = 0; i < commandLine.size(); ++i) {
        const char character = commandLine[i];
        if (character == '\\' && i + 1 < commandLine.size() && commandLine[i + 1] == '"') {
            current.text += commandLine[++i];
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
    for (const char character : path) {
        if (character == '"') quoted += '\\';
        quoted += character;
    }
    return quoted + '"';
}

}  // namespace zefta
