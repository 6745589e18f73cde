#include "library/FolderListing.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "core/Strings.h"
#include "library/SortWithoutCase.h"
#include "platform/Text.h"

namespace zefta {

namespace {

struct ListedExtension {
    std::string_view extension;
    ListKind kind;
};

constexpr std::array<ListedExtension, 7> ListedExtensions = {{
    {"mp3", ListKind::MP3},
    {"wav", ListKind::Wave},
    {"m3u", ListKind::Playlist},
    {"ogg", ListKind::Ogg},
    {"lqt", ListKind::Lqt},
    {"mpc", ListKind::MPEGplus},
    {"mp+", ListKind::MPEGplus},
}};

/// Of an extension with its dot.
constexpr std::size_t ExtensionLength = 4;

char GroupOf(ListKind kind) {
    return kind == ListKind::Folder ? '0' : kind == ListKind::Playlist ? '1' : '2';
}

}  // namespace

std::optional<ListKind> ListKindOf(std::string_view fileName) {
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos) return std::nullopt;
    const std::string_view extension = fileName.substr(dot + 1);
    const auto row = std::find_if(
        ListedExtensions.begin(), ListedExtensions.end(),
        [&](const ListedExtension& listed) { return EqualsIgnoringAsciiCase(extension, listed.extension); });
    if (row == ListedExtensions.end()) return std::nullopt;
    return row->kind;
}

std::string SortOrder(const ListEntry& entry, const CodePage& ansi) {
    std::string_view name = entry.name;
    if (entry.kind != ListKind::Folder) name.remove_suffix(std::min(ExtensionLength, name.size()));
    return std::string{GroupOf(entry.kind), '-'} + ansi.ToText(name);
}

void SortEntries(std::vector<ListEntry>& entries, const CodePage& ansi) {
    SortWithoutCase(entries, [&](const ListEntry& entry) { return SortOrder(entry, ansi); });
}

bool StandsAbove(const ListEntry& one, const ListEntry& other, const CodePage& ansi) {
    const std::string oneKey = ToLower(SortOrder(one, ansi));
    const std::string otherKey = ToLower(SortOrder(other, ansi));
    return std::tie(oneKey, one.name) < std::tie(otherKey, other.name);
}

FolderContents ContentsOf(const FileSystem& files, const std::string& folder, const CodePage& ansi) {
    FolderContents contents;
    for (FolderEntry& entry : files.List(folder)) {
        if (entry.isSpecial) continue;
        const auto kind = entry.isFolder ? ListKind::Folder : ListKindOf(entry.name);
        if (kind) {
            contents.entries.push_back({std::move(entry.name), *kind});
        } else {
            contents.otherFiles.push_back(std::move(entry.name));
        }
    }
    SortEntries(contents.entries, ansi);
    return contents;
}

std::vector<ListEntry> ListFolder(const FileSystem& files, const std::string& folder, std::string_view mask,
                                  const CodePage& ansi) {
    const bool takesAll = mask == "*";
    std::vector<ListEntry> entries;
    for (FolderEntry& entry : files.List(folder)) {
        if (entry.isSpecial || (!takesAll && !MatchesMask(entry.name, mask))) continue;
        const auto kind = entry.isFolder ? ListKind::Folder : ListKindOf(entry.name);
        if (kind) entries.push_back({std::move(entry.name), *kind});
    }
    SortEntries(entries, ansi);
    return entries;
}

}  // namespace zefta
