// Stands for every outside tool in the whole-program tests: keeps its arguments and plays how a tool may end.

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

/// The output name behind -n, or the last argument.
std::string OutputName(const std::vector<std::string>& arguments) {
    for (const std::string& argument : arguments) {
        if (argument.starts_with("-n")) return argument.substr(2);
    }
    return arguments.empty() ? "" : arguments.back();
}

}  // namespace

int main(int argc, char** argv) {
    const std::string tool = std::filesystem::path(argv[0]).filename().string();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    std::ofstream log(Variable("FAKE_TOOL_LOG"), std::ios::app);
    log << tool;
    for (const std::string& argument : arguments) log << " [" << argument << "]";
    log << "\n" << std::flush;

    const std::string behaviour = Variable("FAKE_TOOL");
    if (behaviour == "fail") return 1;
    if (behaviour == "slow") std::this_thread::sleep_for(std::chrono::milliseconds(700));
    const std::string whole = "encoded by " + tool + "\n";
    std::ofstream output(OutputName(arguments), std::ios::binary);
    if (behaviour != "empty") output << (behaviour == "half" ? whole.substr(0, whole.size() / 2) : whole);
    std::cout << "noise of " << tool << "\n";
    return behaviour == "half" ? 1 : 0;
}
