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
    for (const Field& field : Fields) {
        if (before.*field.value == after.*field.value) continue;
        if (!changes.empty()) changes += ", ";
        changes +=
            std::string(field.name) + " \"" + before.*field.value + "\" -> \"" + after.*field.value + "\"";
    }
    return changes;
}

}  // namespace zefta
