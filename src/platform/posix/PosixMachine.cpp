#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Machine.h"
#include "platform/Paths.h"
#include "platform/SmallFile.h"
#include "platform/posix/HomeFolder.h"
#include "platform/posix/PosixFileSystem.h"

namespace zefta {

namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::string FirstSet(std::initializer_list<const char*> names) {
    for (const char* name : names) {
        if (std::string value = Variable(name); !value.empty()) return value;
    }
    return {};
}

/// The music folder as user-dirs.dirs has it: XDG_MUSIC_DIR="$HOME/Music".
std::string MusicFolderOf(const std::string& userDirs, const std::string& home) {
    constexpr std::string_view Key = "XDG_MUSIC_DIR=\"";
    constexpr std::string_view Home = "$HOME";
    std::size_t start = userDirs.starts_with(Key) ? 0 : userDirs.find("\n" + std::string(Key));
    if (start == std::string::npos) return {};
    start = userDirs.find('"', start) + 1;
    std::string folder = userDirs.substr(start, userDirs.find('"', start) - start);
    if (folder.starts_with(Home)) folder = home + folder.substr(Home.size());
    return folder;
}

std::string MusicFolder() {
    PosixFileSystem files;
    const std::string home = HomeFolder();
    const std::string path = JoinPath(ConfigFolder(), "user-dirs.dirs");
    constexpr std::size_t LargestList = 1 << 16;
    const std::string folder = MusicFolderOf(ReadSmallFile(files, path, LargestList).value_or(""), home);
    return !folder.empty() && files.FolderExists(folder) ? folder : home;
}

std::string TemporaryFolder() {
    for (const char* name : {"TMPDIR", "XDG_RUNTIME_DIR"}) {
        const std::string folder = Variable(name);
        if (IsAbsolutePath(folder) && access(folder.c_str(), W_OK | X_OK) == 0) return folder;
    }
    return "/tmp";
}

}  // namespace

Machine ReadMachine() {
    Machine machine;
    machine.language = FirstSet({"LC_ALL", "LC_MESSAGES", "LANG"});
    machine.musicFolder = MusicFolder();
    machine.temporaryFolder = TemporaryFolder();
    machine.homeFolder = HomeFolder();
    machine.hasDisplay = !FirstSet({"DISPLAY", "WAYLAND_DISPLAY"}).empty();
    machine.errorIsTerminal = isatty(STDERR_FILENO) == 1;
    return machine;
}

}  // namespace zefta
