// The helper for discs: reads a disc or asks a database, tells on its output, and ends. A process of its own,
// since drives, damaged images and networks make the libraries for them wait or fall.

#include <cstdio>
#include <string>
#include <vector>

#include "disc/DiscHelper.h"

int main(int argc, char** argv) {
    const auto write = [](std::string_view bytes) {
        return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size() && std::fflush(stdout) == 0;
    };
    return zefta::RunDiscHelper(std::vector<std::string>(argv + 1, argv + argc), write);
}
