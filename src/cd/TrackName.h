#pragma once

#include <string>
#include <string_view>

namespace zefta {

/// What the name of a track on a CD tells of it. "" for what it does not tell.
struct TrackParts {
    std::string Artist;
    std::string Title;
    std::string Mix;

    bool operator==(const TrackParts&) const = default;
};

/// Of which album a track is.
struct TrackAlbum {
    /// Of the whole album.
    std::string_view Artist = {};
    /// Its tracks are of several artists.
    bool IsCompilation = false;
    /// An undivided name is the title.
    bool WholeNamesAreTitles = false;
};

/// Splits "Artist / Title / Mix", "Artist / Title" of a compilation, "Title / Mix" of any other album. A name
/// of any other number of parts gives none of them. Kept: files of albums were written for a reader that does
/// so; WholeNamesAreTitles is for names that people and databases write. The artist of a track without one is
/// the album's.
///
/// A part in round brackets loses them, and what stands in the last brackets at the end of the title is the
/// mix where there is no other.
TrackParts SplitTrackName(std::string_view name, const TrackAlbum& album);

/// Whether the name holds something, but neither two nor three parts.
bool IsUndividedName(std::string_view name);

}  // namespace zefta
