#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace zefta::test {

/// One run of the whole program, as a folder of data:
///   arguments     one a line; @FOLDER@ stands for the folder in which the program runs
///   environment   NAME=value lines
///   typed         what the person types
///   input/        the files before, in subfolders too
///   input.wavs    WAV files as "name silence tone silence" in bytes
///   expected/, expected.wavs   the files after, all of them
///   tools         the command lines that reached outside tools, one a line
///   stdout, stderr, status   what came out (nothing, nothing and 0 when absent)
struct JobCase {
    std::string name;
    std::vector<std::string> arguments;
    std::map<std::string, std::string> environment;
    std::string typed;
    std::map<std::string, std::string> input;
    std::map<std::string, std::string> expected;
    std::string tools;
    std::string output;
    std::string error;
    int status = 0;
};

/// The files of the folder and all below it, by their paths in it.
std::map<std::string, std::string> ReadTree(const std::filesystem::path& folder);

JobCase ReadJobCase(const std::filesystem::path& folder);

}  // namespace zefta::test
