#include "cd/TrackName.h"

#include <vector>

#include "core/Strings.h"

namespace zefta {

namespace {

constexpr std::string_view Divider = " / ";

/// A name that was made with an empty part at its end lost the blank behind the slash when it was trimmed.
std::string WithOuterBlanks(const std::string& name) {
    const bool isSlash = name == "/";
    const std::string front = isSlash || name.starts_with("/ ") ? " " : "";
    return front + name + (isSlash || name.ends_with(" /") ? " " : "");
}

std::vector<std::string> PartsOf(const std::string& name) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t end = name.find(Divider); end != std::string::npos; end = name.find(Divider, start)) {
        parts.push_back(name.substr(start, end - start));
        start = end + Divider.size();
    }
    parts.push_back(name.substr(start));
    return parts;
}

bool IsDivided(const std::vector<std::string>& parts) {
    return parts.size() == 2 || parts.size() == 3;
}

std::string WithoutBrackets(std::string_view part) {
    const std::string trimmed = Trim(part);
    const bool hasBrackets = trimmed.size() >= 2 && trimmed.front() == '(' && trimmed.back() == ')';
    return hasBrackets ? Trim(trimmed.substr(1, trimmed.size() - 2)) : trimmed;
}

TrackParts AssignParts(const std::vector<std::string>& parts, bool isCompilation) {
    if (parts.size() == 3)
        return {WithoutBrackets(parts[0]), WithoutBrackets(parts[1]), WithoutBrackets(parts[2])};
    if (parts.size() != 2) return {};
    if (isCompilation) return {WithoutBrackets(parts[0]), WithoutBrackets(parts[1]), {}};
    return {{}, WithoutBrackets(parts[0]), WithoutBrackets(parts[1])};
}

void TakeMixOfTitle(TrackParts& parts) {
    const std::size_t bracket = parts.Title.rfind('(');
    if (!parts.Title.ends_with(')') || bracket == std::string::npos || !parts.Mix.empty()) return;
    parts.Mix = Trim(std::string_view(parts.Title).substr(bracket + 1, parts.Title.size() - bracket - 2));
    parts.Title = Trim(parts.Title.substr(0, bracket));
}

}  // namespace

TrackParts SplitTrackName(std::string_view name, const TrackAlbum& album) {
    const std::string trimmed = Trim(name);
    const auto divided = PartsOf(album.NamesAreFree ? WithOuterBlanks(trimmed) : trimmed);
    TrackParts parts = AssignParts(divided, album.IsCompilation);
    if (album.NamesAreFree && !IsDivided(divided)) parts.Title = WithoutBrackets(trimmed);
    if (parts.Artist.empty()) parts.Artist = album.Artist;
    TakeMixOfTitle(parts);
    return parts;
}

bool IsFreeName(std::string_view name, TrackAlbum album) {
    album.NamesAreFree = false;
    const TrackParts usual = SplitTrackName(name, album);
    album.NamesAreFree = true;
    return SplitTrackName(name, album) != usual;
}

}  // namespace zefta
