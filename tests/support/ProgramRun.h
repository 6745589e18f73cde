#pragma once

#include <map>
#include <string>
#include <vector>

namespace zefta::test {

/// One run of a program, as a person at a terminal would start it.
struct ProgramCall {
    std::string program;
    std::vector<std::string> arguments;
    std::string folder;
    std::string input;
    /// Set in front of the environment of the test; an empty value takes the variable away.
    std::map<std::string, std::string> environment;
};

struct ProgramResult {
    int status = -1;
    std::string output;
    std::string error;
};

/// Runs to the end, at most a minute; a program that takes longer is ended and has the status 124.
ProgramResult RunToEnd(const ProgramCall& call);

}  // namespace zefta::test
