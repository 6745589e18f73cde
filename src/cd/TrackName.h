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
    /// Names are read for what people mean by them: an undivided one is the title, and a part that was empty
    /// at either end still counts.
    bool NamesAreFree = false;
};

/// Splits "Artist / Title / Mix", "Artist / Title" of a compilation, "Title / Mix" of any other album. The
/// name is trimmed ahead of that, so that "Title / " is one part. A name of any other number of parts gives
/// none of them. Kept: files of albums were written for a reader that does so; NamesAreFree is for names that
/// people and databases write. The artist of a track without one is the album's.
///
/// A part in round brackets loses them, and what stands in the last brackets at the end of the title is the
/// mix where there is no other.
TrackParts SplitTrackName(std::string_view name, const TrackAlbum& album);

/// Whether NamesAreFree makes other parts of the name.
bool IsFreeName(std::string_view name, TrackAlbum album);

}  // namespace zefta
