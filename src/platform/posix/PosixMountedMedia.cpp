#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <sstream>

#include "platform/MountedMedia.h"

namespace zefta {

namespace {

/// Where people mount what they put in for a moment.
constexpr std::string_view MountFolder = "/mnt";
constexpr std::array<std::string_view, 3> MediaFolders = {"/media/", "/run/media/", "/mnt/"};
constexpr std::array<std::string_view, 2> DiscFormats = {"iso9660", "udf"};
constexpr std::string_view DiscDrives = "/dev/sr";

constexpr std::size_t OctalDigits = 3;

bool IsOctal(std::string_view digits) {
    return digits.size() == OctalDigits &&
           std::all_of(digits.begin(), digits.end(), [](char digit) { return digit >= '0' && digit <= '7'; });
}

std::string Unescaped(std::string_view text) {
    std::string path;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view digits = text.substr(std::min(at + 1, text.size()), OctalDigits);
        if (text[at] == '\\' && IsOctal(digits)) {
            path += static_cast<char>(std::stoi(std::string(digits), nullptr, 8));
            at += OctalDigits;
        } else {
            path += text[at];
        }
    }
    return path;
}

struct Mount {
    std::string device;
    std::string folder;
    std::string format;
};

bool IsRemovable(const Mount& mount) {
    const bool isDisc = std::find(DiscFormats.begin(), DiscFormats.end(), mount.format) != DiscFormats.end();
    return isDisc || mount.device.starts_with(DiscDrives) || mount.folder == MountFolder ||
           std::any_of(MediaFolders.begin(), MediaFolders.end(),
                       [&](std::string_view folder) { return mount.folder.starts_with(folder); });
}

}  // namespace

std::vector<std::string> MediaOf(std::string_view mountTable) {
    std::vector<std::string> media;
    std::istringstream lines{std::string(mountTable)};
    for (std::string line; std::getline(lines, line);) {
        std::istringstream columns(line);
        Mount mount;
        columns >> mount.device >> mount.folder >> mount.format;
        mount.folder = Unescaped(mount.folder);
        if (IsRemovable(mount)) media.push_back(mount.folder);
    }
    std::sort(media.begin(), media.end());
    media.erase(std::unique(media.begin(), media.end()), media.end());
    return media;
}

std::vector<std::string> MountedMedia() {
    std::ifstream table("/proc/self/mounts");
    return MediaOf(std::string(std::istreambuf_iterator<char>(table), {}));
}

}  // namespace zefta
