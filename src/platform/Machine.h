#pragma once

#include <string>

namespace zefta {

/// What the program asks about the machine and the person's account. Read once, at the start.
struct Machine {
    /// Language tag of the person's messages, such as "ru_RU.UTF-8"; "" when none is set.
    std::string language;
    /// The person's music folder, or the home folder when there is none.
    std::string musicFolder;
    /// Where files go that nobody misses after the session; the person's own where the system has one.
    std::string temporaryFolder;
    std::string homeFolder;
    /// Whether windows can be opened.
    bool hasDisplay = false;
    /// Whether standard error is read by a person.
    bool errorIsTerminal = false;
};

Machine ReadMachine();

}  // namespace zefta
