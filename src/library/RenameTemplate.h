#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tags/ID3Tag.h"

namespace zefta {

/// The values that names are made of. "" is an absent one.
struct RenameFields {
    std::string Artist;
    std::string Title;
    std::string Mix;
    std::string Year;
    std::string Album;
    /// Text of the track number.
    std::string Track;

    bool operator==(const RenameFields&) const = default;
};

// What a record holds for names, by the kind of its file.

/// The values of ID3v2, each replaced by the one of ID3v1 where it is empty. A track of ID3v2 outside 0 to
/// 255 counts as none; RuntimeError 13 when it is no number as a whole, such as "3/12".
RenameFields FieldsOfMP3(const ID3Tag& tag);
RenameFields FieldsOfOgg(const ID3Tag& tag);
RenameFields FieldsOfMPEGplus(const ID3Tag& tag);

/// What names are made by.
struct RenameRule {
    /// RenameFormat: 1 "Artist - Title", 2 "Artist - Title (Mix)", 3 "Title (Mix)", 4 "Title (Mix)" in a
    /// folder of the artist, 5 "Artist_-_Title_(Mix)" in plain letters, 6 the template.
    std::int32_t mode = 0;
    std::string customTemplate;
    /// All values but the track pass StrictFileName first.
    bool translateNames = false;
};

/// A name without extension. Empty when the rule makes nothing of the values.
struct NewFileName {
    /// Rule 4 only; "" for none.
    std::string folder;
    std::string name;

    /// Both as a path.
    std::string Path() const;
};

/// The name by the rule. Any other mode gives the old name, its extension included.
NewFileName NameByRule(const RenameRule& rule, RenameFields fields, const std::string& oldName);

/// Expands a template of rule 6: %A artist, %T title, %M mix, %Y year, %L album, each put in for the whole
/// text in this order, so that a token inside a value is served too; empty pairs of brackets go; then %N3 and
/// %N, the track with three and two digits at least. What is left passes MakeFileName, or StrictFileName when
/// %R stands anywhere; %W wants StrictFileName with '_' for blanks.
std::string ExpandTemplate(std::string_view customTemplate, const RenameFields& fields);

/// The digits at the start of a track's text with zeros in front up to `digits`; "" for no text.
std::string TrackDigits(std::string_view track, std::size_t digits);

}  // namespace zefta
