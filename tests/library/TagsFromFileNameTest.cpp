// Tags from the names of files: the fourteen templates and the steps that they are made of.

#include <algorithm>
#include <ostream>

#include <gtest/gtest.h>

#include "library/ReverseTemplates.h"
#include "library/TagsFromFileName.h"

namespace zefta::test {
namespace {

struct Found {
    std::string number = {};
    std::string artist = {};
    std::string title = {};
    std::string mix = {};
    std::string album = {};
    std::string year = {};

    bool operator==(const Found&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Found& found) {
    return out << "number '" << found.number << "' artist '" << found.artist << "' title '" << found.title
               << "' mix '" << found.mix << "' album '" << found.album << "' year '" << found.year << "'";
}

Found FoundIn(const std::string& path, int index) {
    const ID3Tag tag = GetTagsFromFileName(path, index);
    return {tag.ID3v2Extension.TrackNumber, tag.Artist, tag.Title, tag.Comment, tag.Album, tag.Year};
}

struct Case {
    int index;
    std::string path;
    Found found;
};

const Case Cases[] = {
    {0, "/m/Song (Mix).mp3", {.title = "Song (Mix)"}},
    {0, "/m/.mp3", {.title = " "}},
    {1, "01 - Title (Mix).mp3", {.number = "01", .title = "Title", .mix = "Mix"}},
    {1, "(07) # Title.mp3", {.number = "07", .title = "Title", .mix = " "}},
    {1, "7# Title [Live].mp3", {.number = "7", .title = "Title", .mix = "Live"}},
    {1, "7. Title.mp3", {.number = "7", .title = "Title", .mix = " "}},
    {1, "7 | Title.mp3", {.number = "7", .title = "Title", .mix = " "}},
    {1, "Intro - Title.mp3", {.number = "Intro", .title = "Title", .mix = " "}},
    {1,
     "Some long artist name - Title.mp3",
     {.number = " ", .title = "Some long artist name - Title", .mix = " "}},
    // Position 9 counts, position 10 does not.
    {1, "12345678 - T.mp3", {.number = "12345678", .title = "T", .mix = " "}},
    {1, "123456789 - T.mp3", {.number = " ", .title = "123456789 - T", .mix = " "}},
    // Characters, not bytes.
    {1, "Вступлен - Т.mp3", {.number = "Вступлен", .title = "Т", .mix = " "}},
    // One that stands too far is passed over, the next one tried.
    {1, "7. Long enough - T.mp3", {.number = "7", .title = "Long enough - T", .mix = " "}},
    {1, "# Title.mp3", {.number = " ", .title = "Title", .mix = " "}},
    {1, "01_-_My_Title.mp3", {.number = "01", .title = "My Title", .mix = " "}},
    {2,
     "01 - Artist - Title (Mix).mp3",
     {.number = "01", .artist = "Artist", .title = "Title", .mix = "Mix"}},
    {2, "01 - Title.mp3", {.number = "01", .artist = "Title", .title = "Title", .mix = " "}},
    {2, "Long artist - Title.mp3", {.number = " ", .artist = "Long artist", .title = "Title", .mix = " "}},
    {2, "Title.mp3", {.number = " ", .artist = " ", .title = "Title", .mix = " "}},
    {3, "Title (Mix) [Live].mp3", {.title = "Title (Mix)", .mix = "Live"}},
    {3, "Title [Live] (Mix).mp3", {.title = "Title [Live]", .mix = "Mix"}},
    {3, "My_Song_Name.mp3", {.title = "My Song Name", .mix = " "}},
    {3, "(Mix).mp3", {.title = " ", .mix = "Mix"}},
    {3, "Title ().mp3", {.title = "Title", .mix = " "}},
    {3, "Title (Mix) more.mp3", {.title = "Title (Mix) more", .mix = " "}},
    {3, "Title).mp3", {.title = "Title)", .mix = " "}},
    {3, "Title (A) (B).mp3", {.title = "Title (A)", .mix = "B"}},
    {3, "a.b.flacx", {.title = "a.b.flacx", .mix = " "}},
    {3, "a.b.mp3", {.title = "a.b", .mix = " "}},
    {3, "a.b.", {.title = "a.b", .mix = " "}},
    {3, "песня.ёжи", {.title = "песня", .mix = " "}},
    {3, "песня.ёжик", {.title = "песня.ёжик", .mix = " "}},
    {3, "no dot", {.title = "no dot", .mix = " "}},
    {3, "/a.b/name", {.title = "name", .mix = " "}},
    {4, "Artist - Title (Mix).mp3", {.number = " ", .artist = "Artist", .title = "Title", .mix = "Mix"}},
    {4, "A. B - C.mp3", {.number = " ", .artist = "A. B", .title = "C", .mix = " "}},
    {4, "A  -  C.mp3", {.number = " ", .artist = "A ", .title = "C", .mix = " "}},
    {4, "Title.mp3", {.number = " ", .artist = " ", .title = "Title", .mix = " "}},
    {5, "Title (Mix) - Artist.mp3", {}},
    {6, "01 - Title (Mix) - Artist.mp3", {.number = "01", .title = "Title (Mix) - Artist"}},
    {6, "Title without a number.mp3", {}},
    {7, "Art_Tit(Mix)(1999).mp3", {.artist = "Art", .title = "Tit", .mix = "Mix", .year = "1999"}},
    {7, "Art_Tit.mp3", {.artist = "Art", .title = "Tit", .mix = " ", .year = " "}},
    {7, "Tit(1999).mp3", {.artist = " ", .title = "Tit", .mix = " ", .year = "1999"}},
    {8,
     "/music/Band/Record/02 - Song (Mix).mp3",
     {.number = "02", .artist = "Band", .title = "Song", .mix = "Mix", .album = "Record"}},
    {8,
     "/Record/02. Song.mp3",
     {.number = "02", .artist = "", .title = "Song", .mix = " ", .album = "Record"}},
    {8, "/02. Song.mp3", {.number = "02", .title = "Song", .mix = " "}},
    {8, "/B_B/R_R/Song.mp3", {.number = " ", .artist = "B_B", .title = "Song", .mix = " ", .album = "R_R"}},
    {9, "03 Title (Mix).mp3", {.number = "03", .title = "Title", .mix = "Mix"}},
    {9, "Lengthening Title.mp3", {.number = " ", .title = "Lengthening Title", .mix = " "}},
    {10, "/music/Band/Record/03 Title.mp3", {.number = "03", .title = "Title", .mix = " "}},
    {11, "04 Artist - Title (Mix).mp3", {.number = "04", .artist = "Artist", .title = "Title", .mix = "Mix"}},
    {11, "04 Title.mp3", {.number = "04", .artist = "Title", .title = "Title", .mix = " "}},
    {12, "05 Title (Mix) - Artist.mp3", {.number = "05", .artist = "Artist", .title = "Title", .mix = "Mix"}},
    {12, "05 Title.mp3", {.number = "05", .artist = " ", .title = "Title", .mix = " "}},
    {12, "Title.mp3", {.number = " ", .artist = " ", .title = "Title", .mix = " "}},
    {13, "My_Song_Name", {.artist = "My_Song", .title = "Name", .mix = " "}},
    {13, "Artist _ Title (Mix).mp3", {.artist = "Artist ", .title = "Title", .mix = "Mix"}},
    {13, "Artist_.mp3", {.artist = "Artist", .title = "Artist_", .mix = " "}},
    {13, "Name.mp3", {.artist = " ", .title = "Name", .mix = " "}},
    {14, "01 - Title.mp3", {}},
    {-1, "01 - Title.mp3", {}},
};

TEST(TagsFromFileName, EveryTemplate_FindsItsFields) {
    for (const Case& row : Cases)
        EXPECT_EQ(FoundIn(row.path, row.index), row.found) << row.index << " " << row.path;
}

TEST(TagsFromFileName, EveryTemplate_HasACase) {
    for (int index = 0; index < static_cast<int>(ReverseTemplates().size()); ++index) {
        EXPECT_TRUE(std::any_of(std::begin(Cases), std::end(Cases), [&](const Case& row) {
            return row.index == index;
        })) << index;
    }
}

TEST(TagsFromFileName, NameOfBlanksOrNothing_GivesBlanks) {
    for (const char* path : {"", "/", "   ", "/m/  .mp3"}) {
        EXPECT_EQ(FoundIn(path, 0).title, " ") << path;
        EXPECT_EQ(FoundIn(path, 13).artist, " ") << path;
    }
}

TEST(TagsFromFileName, EveryNameOfFewCharacters_ComesToAnEnd) {
    const std::string alphabet = " -_.([)]#a";
    std::string name(4, ' ');
    for (std::size_t n = 0; n < 10000; ++n) {
        for (std::size_t i = 0, rest = n; i < name.size(); ++i, rest /= 10) name[i] = alphabet[rest % 10];
        for (int index = 0; index < 14; ++index) {
            const Found found = FoundIn(name, index);
            if (index == 5 || index == 6) continue;
            EXPECT_FALSE(found.title.empty()) << name << " " << index;
        }
    }
}

TEST(ReverseTemplates, TextsAndOrder_AreTheOnesOfTheList) {
    const char* texts[] = {"%T",
                           "%N<sep>%T(%M)",
                           "%N<sep>%A<sep>%T(%M)",
                           "%T(%M)",
                           "%A<sep>%T(%M)",
                           "%T(%M)<sep>%A",
                           "%N<sep>%T(%M)<sep>%A",
                           "%A_%T(%M)(%Y)",
                           "%A\\%L\\%N<sep>%T(%M)",
                           "%N %T(%M)",
                           "%A\\%L\\%N %T(%M)",
                           "%N %A<sep>%T(%M)",
                           "%N %T(%M)<sep>%A",
                           "%A_%T(%M)"};
    ASSERT_EQ(ReverseTemplates().size(), std::size(texts));
    for (std::size_t i = 0; i < std::size(texts); ++i) EXPECT_EQ(ReverseTemplates()[i].text, texts[i]);
}

}  // namespace
}  // namespace zefta::test
