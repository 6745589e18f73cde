// Stands for every outside tool in the whole-program tests: keeps its arguments and plays how a tool may end.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

struct Work {
    std::string output;
    std::string content;
};

std::string ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A decoder gives back what it is given: a test puts the audio that is to come out under a compressed name.
Work DecoderWork(const std::string& tool, const std::vector<std::string>& arguments) {
    const std::string& last = arguments.back();
    // The one that finds its output's name itself.
    if (tool == "oggdec") return {last.substr(0, last.rfind('.')) + ".wav", ReadFile(last)};
    return {last, ReadFile(arguments[arguments.size() - 2])};
}

/// An encoder's output stands behind -n or is the last argument. "MPCK" begins a stream that can be tagged.
Work EncoderWork(const std::string& tool, const std::vector<std::string>& arguments) {
    Work work = {arguments.back(), (tool == "mpcenc" ? "MPCK encoded by " : "encoded by ") + tool + "\n"};
    for (const std::string& argument : arguments) {
        if (argument.starts_with("-n")) work.output = argument.substr(2);
    }
    return work;
}

bool IsDecoder(const std::string& tool, const std::vector<std::string>& arguments) {
    if (tool.ends_with("dec")) return true;
    return std::find(arguments.begin(), arguments.end(), "--decode") != arguments.end();
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
    if (behaviour == "fail" || arguments.empty()) return 1;
    if (behaviour == "slow") std::this_thread::sleep_for(std::chrono::milliseconds(700));
    const Work work =
        IsDecoder(tool, arguments) ? DecoderWork(tool, arguments) : EncoderWork(tool, arguments);
    std::ofstream output(work.output, std::ios::binary);
    if (behaviour == "half" || behaviour == "killer") {
        output << work.content.substr(0, work.content.size() / 2);
    } else if (behaviour != "empty") {
        output << work.content;
    }
    output.close();
    if (behaviour == "killer") kill(getppid(), SIGKILL);
    std::cout << "noise of " << tool << "\n";
    return behaviour == "half" ? 1 : 0;
}
