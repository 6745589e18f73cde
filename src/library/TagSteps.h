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

/// The same of an MP3 file, and behind that the fields that ID3v2 did not have and takes over from ID3v1:
/// `Title in ID3v2 "" -> "T"`.
std::string ChangesOfMP3(const ID3Tag& before, const ID3Tag& after);

}  // namespace zefta
