#include "platform/Paths.h"

namespace zefta {

namespace {

bool IsLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
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

}  // namespace zefta
