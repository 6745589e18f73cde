#pragma once

#include <cstdint>
#include <string>

#include "library/FolderListing.h"
#include "tags/FileReading.h"
#include "tags/ID3Tag.h"

namespace zefta {

/// What the list needs to know of an entry.
struct ListedFile {
    /// As far as the reader came.
    ID3Tag tag;
    std::int64_t bytes = 0;
};

/// Reads the entry of the folder by the reader of its kind. Never fails: what can't be read stays empty, so
/// that one bad file never hides another.
ListedFile ReadListedFile(const FileReading& reading, const std::string& folder, const ListEntry& entry);

}  // namespace zefta
