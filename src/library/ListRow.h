#pragma once

#include <cstdint>
#include <string>

#include "library/FolderListing.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// The numbers by which the file list tells its rows apart.
enum class RowIcon : std::uint8_t { Compressed = 1, Folder = 2, Up = 3, Wave = 4, Playlist = 5 };

RowIcon IconOf(ListKind kind);

/// The texts of one row of the file list, in the order of its columns.
struct ListRow {
    std::string File;
    std::string Size;
    std::string Bitrate;
    std::string Time;
    std::string Artist;
    std::string Title;
    std::string Year;
    std::string Album;
    /// Not seen; what the list is sorted by.
    std::string SortOrder;
    RowIcon Icon = RowIcon::Folder;
};

/// Whole mebibytes above 99, else whole kibibytes from 11 on, else bytes; a single blank for nothing.
std::string SizeText(std::int64_t bytes);

/// The row of an entry of that many bytes; `tag` is what the reader of its kind left. Tags of version 2 go
/// before the ones of the record, and a value ends at its first NUL; for a file without them the Lyrics3
/// names go before all.
ListRow RowOf(const ListEntry& entry, std::int64_t bytes, const ID3Tag& tag, const CodePage& ansi);

}  // namespace zefta
