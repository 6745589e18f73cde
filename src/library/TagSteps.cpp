#include "library/TagSteps.h"

#include <string_view>

#include "core/GenreTable.h"
#include "core/Strings.h"
#include "tags/TrackNumber.h"

namespace zefta {

namespace {

std::string Best(const std::string& extended, const std::string& own) {
    return Trim(extended.empty() ? own : extended);
}

/// The comment of an MP3 file's record is no mix until it fills one.
std::string OwnMix(const ID3Tag& tag) {
    return tag.IsOggVorbisFile || tag.IsMpegPlusFile ? tag.Comment : std::string();
}

struct Field {
    std::string_view name;
    std::string ShownTags::*value;
};

constexpr Field Fields[] = {
    {"Artist", &ShownTags::Artist}, {"Title", &ShownTags::Title}, {"Mix", &ShownTags::Mix},
    {"Album", &ShownTags::Album},   {"Year", &ShownTags::Year},   {"Track", &ShownTags::Track},
    {"Genre", &ShownTags::Genre},
};

/// What ID3v2 alone has.
ShownTags ShownOfID3v2(const ID3Tag& tag) {
    ID3Tag extended;
    extended.ID3v2Extension = tag.ID3v2Extension;
    return ShownTags(extended);
}

std::string Joined(const std::string& first, const std::string& second) {
    return first + (first.empty() || second.empty() ? "" : ", ") + second;
}

std::string Change(const std::string& name, const std::string& before, const std::string& after) {
    return name + " \"" + before + "\" -> \"" + after + "\"";
}

}  // namespace

ShownTags::ShownTags(const ID3Tag& tag)
    : Artist(Best(tag.ID3v2Extension.Artist, tag.Artist)),
      Title(Best(tag.ID3v2Extension.TrackTitle, tag.Title)),
      Mix(Best(tag.ID3v2Extension.Mix, OwnMix(tag))),
      Album(Best(tag.ID3v2Extension.AlbumTitle, tag.Album)),
      Year(Best(tag.ID3v2Extension.Year, tag.Year)),
      Track(Best(tag.ID3v2Extension.TrackNumber, TrackTextOf(tag))),
      Genre(Best(tag.ID3v2Extension.Genre, GenreNameFromIndex(tag.Genre))) {}

std::string ChangesBetween(const ShownTags& before, const ShownTags& after) {
    std::string changes;
    for (const auto& [name, value] : Fields) {
        if (before.*value != after.*value)
            changes = Joined(changes, Change(std::string(name), before.*value, after.*value));
    }
    return changes;
}

std::string ChangesOfMP3(const ID3Tag& before, const ID3Tag& after) {
    const ShownTags former(before);
    const ShownTags now(after);
    const ShownTags formerID3v2 = ShownOfID3v2(before);
    const ShownTags nowID3v2 = ShownOfID3v2(after);
    std::string fills;
    for (const auto& [name, value] : Fields) {
        const bool isFilled = (formerID3v2.*value).empty() && !(nowID3v2.*value).empty();
        if (isFilled && former.*value == now.*value)
            fills = Joined(fills, Change(std::string(name) + " in ID3v2", "", now.*value));
    }
    return Joined(ChangesBetween(former, now), fills);
}

}  // namespace zefta
