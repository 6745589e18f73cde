#include "platform/ToolTranslation.h"

#include <algorithm>
#include <string_view>

namespace zefta {

namespace {

using Command = std::vector<CommandArgument>;
using Arguments = std::vector<std::string>;

std::string Stem(const std::string& program) {
    constexpr std::string_view Extension = ".exe";
    const bool hasExtension = program.size() > Extension.size() && program.ends_with(Extension);
    return hasExtension ? program.substr(0, program.size() - Extension.size()) : program;
}

bool Holds(const Command& command, std::string_view option) {
    return std::any_of(command.begin(), command.end(),
                       [&](const CommandArgument& argument) { return argument.text == option; });
}

/// The tool of today names the output a.wav, where a.mp3.wav is looked for.
void NameDecodedOutput(const Command& command, Arguments& arguments) {
    if (Holds(command, "--decode") && Holds(command, "--mp3input"))
        arguments.push_back(command.back().text + ".wav");
}

/// '%' begins a place holder in the output name of today's tool.
void DoublePerCents(const Command& command, Arguments& arguments) {
    for (std::size_t i = 1; i < command.size(); ++i) {
        if (!command[i].quoted || !command[i].text.starts_with("-n")) continue;
        std::string& argument = arguments[i - 1];
        argument.clear();
        for (const char character : command[i].text) argument.append(character == '%' ? 2 : 1, character);
    }
}

struct ToolRow {
    /// Name in the command lines, without its extension.
    std::string_view tool;
    /// Name on today's machines when it is not found under its own; "" when it has no other.
    std::string_view todaysName;
    void (*translate)(const Command& command, Arguments& arguments);
};

constexpr ToolRow Tools[] = {
    {"lame", "", NameDecodedOutput}, {"oggenc", "", DoublePerCents}, {"oggdec", "", nullptr},
    {"mppenc", "mpcenc", nullptr},   {"mppdec", "mpcdec", nullptr},
};

const ToolRow* FindTool(const std::string& program) {
    const std::string stem = Stem(program);
    const auto row = std::find_if(std::begin(Tools), std::end(Tools),
                                  [&](const ToolRow& tool) { return tool.tool == stem; });
    return row == std::end(Tools) ? nullptr : row;
}

}  // namespace

std::vector<std::string> ToolNames(const std::string& program) {
    std::vector<std::string> names = {program};
    if (Stem(program) != program) names.push_back(Stem(program));
    const ToolRow* tool = FindTool(program);
    if (tool != nullptr && !tool->todaysName.empty()) names.emplace_back(tool->todaysName);
    return names;
}

std::vector<std::string> TranslateToolArguments(const std::vector<CommandArgument>& command) {
    std::vector<std::string> arguments;
    if (command.empty()) return arguments;
    std::transform(command.begin() + 1, command.end(), std::back_inserter(arguments),
                   [](const CommandArgument& argument) { return argument.text; });
    const ToolRow* tool = FindTool(command.front().text);
    if (tool != nullptr && tool->translate != nullptr) tool->translate(command, arguments);
    return arguments;
}

}  // namespace zefta
