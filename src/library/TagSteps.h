#pragma once

#include <string>

#include "tags/ID3Tag.h"

namespace zefta {

/// The best value that the record has of each field, trimmed: the extended one, else the one of the record
/// itself. "" for none.
struct ShownTags {
    explicit ShownTags(const ID3Tag& tag);

    std::string Artist;
    std::string Title;
    std::string Mix;
    std::string Album;
    std::string Year;
    std::string Track;
    std::string Genre;
};

/// What a preview tells of a changed file: `Artist "old" -> "new", Year "" -> "1999"`, the fields that change
/// alone.
std::string ChangesBetween(const ShownTags& before, const ShownTags& after);

}  // namespace zefta
