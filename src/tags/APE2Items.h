#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tags/ID3Tag.h"

namespace zefta {

/// An item of an APE tag that the program reads and writes.
struct APEItem {
    /// In the case in which it is written; it is read in any.
    std::string_view key;
    void (*read)(ID3Tag& tag, std::string value);
    std::string (*write)(const ID3Tag& tag);
};

/// The ten items in the order in which they are written.
std::span<const APEItem> APEItems();

/// The row of the key; null for an item that is carried through unread.
const APEItem* FindAPEItem(std::string_view key);

/// One item with its prefix; the value is trimmed of blanks. "" when nothing of it remains.
std::string WriteAPEItem(std::string_view key, std::string_view value);

}  // namespace zefta
