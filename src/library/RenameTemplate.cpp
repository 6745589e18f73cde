#include "library/RenameTemplate.h"

#include <algorithm>
#include <utility>

#include "core/FileNames.h"
#include "core/Numbers.h"
#include "core/StrictFileName.h"
#include "core/Strings.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

/// Bytes that a template may expand to: names are far shorter, but values that hold tokens multiply.
constexpr std::size_t LongestExpansion = 65536;

struct Token {
    std::string_view text;
    std::string RenameFields::*value;
};

/// In the order in which they are replaced.
constexpr Token ValueTokens[] = {{"%A", &RenameFields::Artist},
                                 {"%T", &RenameFields::Title},
                                 {"%M", &RenameFields::Mix},
                                 {"%Y", &RenameFields::Year},
                                 {"%L", &RenameFields::Album}};

constexpr std::string_view EmptyPairs[] = {"[]", "()", "{}"};

struct TrackToken {
    std::string_view text;
    std::size_t digits;
};

constexpr TrackToken TrackTokens[] = {{"%N3", 3}, {"%N", 2}};

const std::string& FirstFilled(const std::string& first, const std::string& second) {
    return first.empty() ? second : first;
}

/// Too large a number is one outside the range, no failure.
bool IsByte(std::string_view track) {
    try {
        return WholeNumber(track) <= 255 && LeadingNumber(track) >= 0;
    } catch (const RuntimeError& error) {
        if (error.Kind() != ErrorNumber::Overflow) throw;
        return false;
    }
}

std::string TrackOfMP3(const ID3Tag& tag) {
    const std::string& track = tag.ID3v2Extension.TrackNumber;
    if (!tag.ID3v2Present || track.empty()) return std::to_string(tag.TrackNumber);
    return IsByte(track) ? track : std::string();
}

RenameFields FieldsOfRecord(const ID3Tag& tag) {
    return {.Artist = tag.Artist,
            .Title = tag.Title,
            .Mix = tag.Comment,
            .Year = tag.Year,
            .Album = tag.Album,
            .Track = tag.ID3v2Extension.TrackNumber};
}

void Translate(RenameFields& fields) {
    for (std::string* value : {&fields.Artist, &fields.Title, &fields.Mix, &fields.Year, &fields.Album})
        *value = StrictFileName(*value);
}

std::string ArtistAndTitle(const RenameFields& fields) {
    return fields.Artist + " - " + fields.Title;
}

std::string MixSuffix(const RenameFields& fields) {
    return fields.Mix.empty() ? std::string() : " (" + fields.Mix + ")";
}

/// The filter that the values have passed bounds each of them, not all together.
std::string WithoutBlanks(const std::string& text) {
    return std::string(CutToBytes(SpacesToUnderscores(text), LongestMadeName));
}

/// As ReplaceAll, but for the part of a value that would make the text longer than can be: it is left out,
/// and what stands behind it stays.
std::string ReplaceWithinBound(std::string_view text, std::string_view what, std::string_view with) {
    std::string result;
    std::size_t room = LongestExpansion - std::min(text.size(), LongestExpansion);
    for (std::size_t start = 0;;) {
        const std::size_t found = text.find(what, start);
        result += text.substr(start, found - start);
        if (found == std::string_view::npos) return result;
        const std::string_view value = CutToBytes(with, room);
        result += value;
        room -= value.size();
        start = found + what.size();
    }
}

std::string WithValues(std::string_view customTemplate, const RenameFields& fields) {
    std::string name(customTemplate);
    for (const Token& token : ValueTokens) name = ReplaceWithinBound(name, token.text, fields.*token.value);
    for (const std::string_view pair : EmptyPairs) name = ReplaceAll(name, pair, {});
    for (const TrackToken& token : TrackTokens)
        name = ReplaceWithinBound(name, token.text, TrackDigits(fields.Track, token.digits));
    return name;
}

/// Whether the token stands in the name, from which it is taken.
bool Take(std::string& name, std::string_view token) {
    if (name.find(token) == std::string::npos) return false;
    name = ReplaceAll(name, token, {});
    return true;
}

}  // namespace

RenameFields FieldsOfMP3(const ID3Tag& tag) {
    RenameFields fields = FieldsOfRecord(tag);
    fields.Track = TrackOfMP3(tag);
    if (!tag.ID3v2Present) return fields;
    const ID3v2Extension& extension = tag.ID3v2Extension;
    fields.Artist = FirstFilled(extension.Artist, fields.Artist);
    fields.Title = FirstFilled(extension.TrackTitle, fields.Title);
    fields.Mix = FirstFilled(extension.Mix, fields.Mix);
    fields.Year = FirstFilled(extension.Year, fields.Year);
    fields.Album = FirstFilled(extension.AlbumTitle, fields.Album);
    return fields;
}

RenameFields FieldsOfOgg(const ID3Tag& tag) {
    RenameFields fields = FieldsOfRecord(tag);
    fields.Year = tag.OggVorbisExtension.DateTime;
    return fields;
}

RenameFields FieldsOfMPEGplus(const ID3Tag& tag) {
    return FieldsOfRecord(tag);
}

std::string NewFileName::Path() const {
    return JoinPath(folder, name);
}

NewFileName NameByRule(const RenameRule& rule, RenameFields fields, const std::string& oldName) {
    if (rule.translateNames) Translate(fields);
    const std::string titleAndMix = fields.Title + MixSuffix(fields);
    switch (rule.mode) {
        case 1:
            return {{}, MakeFileName(ArtistAndTitle(fields))};
        case 2:
            return {{}, MakeFileName(ArtistAndTitle(fields) + MixSuffix(fields))};
        case 3:
            return {{}, MakeFileName(titleAndMix)};
        case 4:
            return {MakeFileName(fields.Artist), MakeFileName(titleAndMix)};
        case 5:
            return {{}, WithoutBlanks(ArtistAndTitle(fields) + MixSuffix(fields))};
        case 6:
            return {{}, ExpandTemplate(rule.customTemplate, fields)};
        default:
            return {{}, oldName};
    }
}

std::string ExpandTemplate(std::string_view customTemplate, const RenameFields& fields) {
    std::string name = WithValues(customTemplate, fields);
    // Both are taken before a filter could cut the second one off or change it.
    const bool isPlain = Take(name, "%R");
    const bool isPlainWithoutBlanks = Take(name, "%W");
    name = isPlain ? StrictFileName(name) : MakeFileName(name);
    return isPlainWithoutBlanks ? SpacesToUnderscores(StrictFileName(name)) : MakeFileName(name);
}

std::string TrackDigits(std::string_view track, std::size_t digits) {
    if (track.empty()) return {};
    track.remove_prefix(std::min(track.find_first_not_of(' '), track.size()));
    const bool isNegative = track.starts_with('-');
    if (isNegative || track.starts_with('+')) track.remove_prefix(1);
    track = track.substr(0, track.find_first_not_of("0123456789"));
    track.remove_prefix(std::min(track.find_first_not_of('0'), track.size()));
    const std::size_t zeros = digits - std::min(digits, track.size());
    const bool hasSign = isNegative && !track.empty();
    return (hasSign ? "-" : "") + std::string(zeros, '0') + std::string(track);
}

}  // namespace zefta
