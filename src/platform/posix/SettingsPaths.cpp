#include "platform/posix/SettingsPaths.h"

#include <cstdlib>
#include <string_view>
#include <unistd.h>

#include "platform/Paths.h"
#include "platform/posix/HomeFolder.h"

namespace zefta {

namespace {

std::string StoreBelow(const std::string& folder, const SettingsProduct& product) {
    return JoinPath(JoinPath(folder, product.company), product.title + " " + product.version + ".ini");
}

}  // namespace

std::string UserSettingsPath(const SettingsProduct& product) {
    return StoreBelow(ConfigFolder(), product);
}

std::string MachineSettingsPath(const SettingsProduct& product) {
    const char* variable = std::getenv("XDG_CONFIG_DIRS");
    const std::string folders = variable == nullptr || *variable == '\0' ? "/etc/xdg" : variable;
    for (std::string_view rest = folders; !rest.empty();) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        const std::string folder(rest.substr(0, end));
        if (access(folder.c_str(), W_OK) == 0) return StoreBelow(folder, product);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return StoreBelow(folders.substr(0, folders.find(':')), product);
}

}  // namespace zefta
