#include <gtest/gtest.h>

#include "cd/TrackName.h"

namespace zefta::test {
namespace {

constexpr TrackAlbum Ordinary = {.Artist = "Band"};
constexpr TrackAlbum Compilation = {.Artist = "Various", .IsCompilation = true};

struct NameCase {
    const char* name;
    TrackAlbum album;
    TrackParts parts;
};

const NameCase Cases[] = {
    // Three parts mean the same on every album.
    {"Ann / Song / Live", Ordinary, {"Ann", "Song", "Live"}},
    {"Ann / Song / Live", Compilation, {"Ann", "Song", "Live"}},
    // Two parts do not.
    {"Song / Live", Ordinary, {"Band", "Song", "Live"}},
    {"Ann / Song", Compilation, {"Ann", "Song", ""}},
    // Any other number gives nothing.
    {"Song", Ordinary, {"Band", "", ""}},
    {"Song", Compilation, {"Various", "", ""}},
    {"a / b / c / d", Ordinary, {"Band", "", ""}},
    {"", Ordinary, {"Band", "", ""}},
    {"AC/DC", Ordinary, {"Band", "", ""}},
    // Parts are trimmed and lose the brackets around them, not those inside.
    {"  Ann  /  Song  /  Live  ", Ordinary, {"Ann", "Song", "Live"}},
    {"(Ann) / (Song) / (Live)", Ordinary, {"Ann", "Song", "Live"}},
    {"Song / Live (Oslo)", Ordinary, {"Band", "Song", "Live (Oslo)"}},
    {"Song / (", Ordinary, {"Band", "Song", "("}},
    {"Song / ()", Ordinary, {"Band", "Song", ""}},
    // The brackets at the end of the title are the mix where there is no other.
    {"Ann / Song (Live)", Compilation, {"Ann", "Song", "Live"}},
    {"Ann / Song (One) (Two)", Compilation, {"Ann", "Song (One)", "Two"}},
    {"Song (One) / Two", Ordinary, {"Band", "Song (One)", "Two"}},
    {"Ann / Song (Live) tail", Compilation, {"Ann", "Song (Live) tail", ""}},
    {"Ann / Song )", Compilation, {"Ann", "Song )", ""}},
    {"Ann / Song ()", Compilation, {"Ann", "Song", ""}},
    // A part that was empty when the name was made still counts.
    {"Song / ", Ordinary, {"Band", "Song", ""}},
    {"Ann / Song / ", Compilation, {"Ann", "Song", ""}},
    {" / Song / Live", Compilation, {"Various", "Song", "Live"}},
    {" / Live", Ordinary, {"Band", "", "Live"}},
    {" / ", Ordinary, {"Band", "", ""}},
};

TEST(TrackName, Split_FollowsTheNumberOfPartsAndTheKindOfAlbum) {
    for (const NameCase& row : Cases) {
        const TrackParts parts = SplitTrackName(row.name, row.album);
        EXPECT_EQ(parts.Artist, row.parts.Artist) << row.name;
        EXPECT_EQ(parts.Title, row.parts.Title) << row.name;
        EXPECT_EQ(parts.Mix, row.parts.Mix) << row.name;
    }
}

TEST(TrackName, WholeNames_AreTitlesWhereThatIsAskedFor) {
    TrackAlbum album = Ordinary;
    album.WholeNamesAreTitles = true;
    EXPECT_EQ(SplitTrackName("Song", album), (TrackParts{"Band", "Song", ""}));
    EXPECT_EQ(SplitTrackName("Song (Live)", album), (TrackParts{"Band", "Song", "Live"}));
    EXPECT_EQ(SplitTrackName("a / b / c / d", album), (TrackParts{"Band", "a / b / c / d", ""}));
    EXPECT_EQ(SplitTrackName("Song / Live", album), (TrackParts{"Band", "Song", "Live"}));
    EXPECT_EQ(SplitTrackName(" / Live", album), (TrackParts{"Band", "", "Live"}));
    EXPECT_EQ(SplitTrackName("", album), (TrackParts{"Band", "", ""}));
}

TEST(TrackName, Undivided_IsANameThatHoldsNeitherTwoNorThreeParts) {
    for (const char* name : {"Song", "AC/DC", "a / b / c / d", " x "}) EXPECT_TRUE(IsUndividedName(name));
    for (const char* name : {"", "  ", "a / b", "a / b / c", "a / ", " / "})
        EXPECT_FALSE(IsUndividedName(name)) << name;
}

}  // namespace
}  // namespace zefta::test
