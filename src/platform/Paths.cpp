#include "platform/Paths.h"

#include <algorithm>
#include <vector>

namespace zefta {

namespace {

bool IsLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

using Names = std::vector<std::string_view>;

/// One name less for each ".." that has one to take back.
Names LexicalNames(std::string_view path) {
    Names names;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find(PathSeparator, start), path.size());
        const std::string_view name = path.substr(start, end - start);
        start = end + 1;
        if (name.empty() || name == ".") continue;
        const bool takesBack = name == ".." && !names.empty() && names.back() != "..";
        if (takesBack) {
            names.pop_back();
        } else if (name != ".." || !path.starts_with(PathSeparator)) {
            names.push_back(name);
        }
    }
    return names;
}

std::string Joined(const Names& names) {
    std::string path;
    for (const std::string_view name : names) path = JoinPath(path, name);
    return path.empty() ? "." : path;
}

}  // namespace

bool IsAbsolutePath(std::string_view path) {
    if (path.starts_with(PathSeparator)) return true;
    // Also once it was brought to native form.
    return path.size() >= 3 && IsLetter(path[0]) && path[1] == ':' &&
           (path[2] == '\\' || path[2] == PathSeparator);
}

std::string FolderPart(std::string_view path) {
    const std::size_t separator = path.rfind(PathSeparator);
    if (separator == std::string_view::npos) return {};
    return std::string(path.substr(0, separator == 0 ? 1 : separator));
}

std::string NamePart(std::string_view path) {
    const std::size_t separator = path.rfind(PathSeparator);
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string WithClosingSeparator(std::string_view folder) {
    std::string closed(folder);
    if (!closed.empty() && closed.back() != PathSeparator) closed += PathSeparator;
    return closed;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    return WithClosingSeparator(folder).append(name);
}

std::string LexicalPath(std::string_view path) {
    const std::string joined = Joined(LexicalNames(path));
    if (!path.starts_with(PathSeparator)) return joined;
    return PathSeparator + (joined == "." ? std::string() : joined);
}

std::string PathFrom(std::string_view folder, std::string_view path) {
    const Names from = LexicalNames(folder);
    const Names to = LexicalNames(path);
    const auto [leftFrom, leftTo] = std::mismatch(from.begin(), from.end(), to.begin(), to.end());
    Names way(static_cast<std::size_t>(from.end() - leftFrom), "..");
    way.insert(way.end(), leftTo, to.end());
    return Joined(way);
}

}  // namespace zefta
