#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/CodePage.h"
#include "platform/FileSystem.h"

namespace zefta {

/// What the file list shows. Other files are passed over.
enum class ListKind : std::uint8_t { Folder, Playlist, Wave, MP3, Ogg, MPEGplus, Lqt };

struct ListEntry {
    /// As the file system has it.
    std::string name;
    ListKind kind = ListKind::Folder;
};

/// The kind of a file by its extension in any case; empty for a file that is not listed.
std::optional<ListKind> ListKindOf(std::string_view fileName);

/// What the list is sorted by, in the case of the name: folders, then playlists, then all other files, each
/// by name; the extension of files doesn't count.
std::string SortOrder(const ListEntry& entry, const CodePage& ansi);

/// Sorts into the order of the list: by SortOrder without regard to case, equal ones by their exact bytes.
void SortEntries(std::vector<ListEntry>& entries, const CodePage& ansi);

/// Whether the one stands above the other in that order.
bool StandsAbove(const ListEntry& one, const ListEntry& other, const CodePage& ansi);

/// What a folder holds.
struct FolderContents {
    /// In the order of the list.
    std::vector<ListEntry> entries;
    /// Files that are not listed, in the order of the folder.
    std::vector<std::string> otherFiles;
};

/// Asks the folder once. Pipes and devices count for nothing.
FolderContents ContentsOf(const FileSystem& files, const std::string& folder, const CodePage& ansi);

/// The folders and listed files of the folder whose names match the mask, in the order of the list. Holds the
/// names only: what a file contains is read when its row is made.
std::vector<ListEntry> ListFolder(const FileSystem& files, const std::string& folder, std::string_view mask,
                                  const CodePage& ansi);

}  // namespace zefta
