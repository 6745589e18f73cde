#include "platform/posix/HomeFolder.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

#include "platform/Paths.h"

namespace zefta {

namespace {

/// "" for a path that would count from the current folder.
std::string AbsoluteOrNothing(const char* path) {
    return path != nullptr && path[0] == PathSeparator ? path : "";
}

}  // namespace

std::string HomeFolder() {
    if (std::string home = AbsoluteOrNothing(std::getenv("HOME")); !home.empty()) return home;
    const passwd* account = getpwuid(getuid());
    const std::string home = AbsoluteOrNothing(account != nullptr ? account->pw_dir : nullptr);
    return home.empty() ? std::string(1, PathSeparator) : home;
}

std::string ConfigFolder() {
    const std::string folder = AbsoluteOrNothing(std::getenv("XDG_CONFIG_HOME"));
    return folder.empty() ? JoinPath(HomeFolder(), ".config") : folder;
}

std::string DataFolder() {
    const std::string folder = AbsoluteOrNothing(std::getenv("XDG_DATA_HOME"));
    return folder.empty() ? JoinPath(HomeFolder(), ".local/share") : folder;
}

}  // namespace zefta
