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
    // A part that was empty at the end of the name goes with the blanks around it.
    {"Song / ", Ordinary, {"Band", "", ""}},
    {"Song /", Compilation, {"Various", "", ""}},
    {"Ann / Song / ", Compilation, {"Ann", "Song /", ""}},
    {" / Song / Live", Compilation, {"/ Song", "Live", ""}},
    {" / Live", Ordinary, {"Band", "", ""}},
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

const NameCase FreeCases[] = {
    {"Song", Ordinary, {"Band", "Song", ""}},
    {"AC/DC", Compilation, {"Various", "AC/DC", ""}},
    {"Song (Live)", Ordinary, {"Band", "Song", "Live"}},
    {"a / b / c / d", Ordinary, {"Band", "a / b / c / d", ""}},
    // A part that was empty when the name was made still counts.
    {"Song / ", Ordinary, {"Band", "Song", ""}},
    {"Ann / Song / ", Compilation, {"Ann", "Song", ""}},
    {" / Song / Live", Compilation, {"Various", "Song", "Live"}},
    {" / Live", Ordinary, {"Band", "", "Live"}},
};

TEST(TrackName, FreeNames_AreReadForWhatIsMeantWhereThatIsAskedFor) {
    for (const NameCase& row : FreeCases) {
        TrackAlbum album = row.album;
        EXPECT_TRUE(IsFreeName(row.name, album)) << row.name;
        album.NamesAreFree = true;
        EXPECT_EQ(SplitTrackName(row.name, album), row.parts) << row.name;
        EXPECT_TRUE(IsFreeName(row.name, album)) << row.name;
    }
}

TEST(TrackName, NamesThatAreDivided_AreNotFree) {
    for (const char* name : {"", "  ", " / ", "a / b", "a / b / c", "Song (x) / y"}) {
        for (const TrackAlbum& album : {Ordinary, Compilation}) {
            EXPECT_FALSE(IsFreeName(name, album)) << name;
            TrackAlbum free = album;
            free.NamesAreFree = true;
            EXPECT_EQ(SplitTrackName(name, free), SplitTrackName(name, album)) << name;
        }
    }
}

}  // namespace
}  // namespace zefta::test
