#include <gtest/gtest.h>

#include "platform/DiscLines.h"

namespace zefta::test {
namespace {

const DiscContents Disc = {2, {{true, 150, 300}, {false, 450, 90}}, 540};
const std::vector<DatabaseMatch> Matches = {{"rock", "0f", "Band", "Debut"}, {"misc", "10", "", "x"}};
const DatabaseAlbum Album = {"Band", "Debut", {"One / Live", "", "end"}};

TEST(DiscLines, WhatIsWritten_IsReadBack) {
    EXPECT_EQ(ContentsOf(LinesOf(Disc)), Disc);
    EXPECT_EQ(MatchesOf(LinesOf(Matches)), Matches);
    EXPECT_EQ(AlbumOf(LinesOf(Album)), Album);
    EXPECT_EQ(MatchesOf(LinesOf(std::vector<DatabaseMatch>())), std::vector<DatabaseMatch>());
}

TEST(DiscLines, ControlCharacters_CannotReachIntoAnotherField) {
    const auto album = AlbumOf(LinesOf(DatabaseAlbum{"a\tb", "c\nd", {"e\rf\x01g"}}));
    ASSERT_TRUE(album);
    EXPECT_EQ(*album, (DatabaseAlbum{"a b", "c d", {"e f g"}}));
}

TEST(DiscLines, TextThatBreaksOff_IsNothing) {
    const std::string contents = LinesOf(Disc);
    const std::string matches = LinesOf(Matches);
    for (std::size_t length = 0; length < contents.size(); ++length)
        EXPECT_FALSE(ContentsOf(contents.substr(0, length))) << length;
    for (std::size_t length = 0; length < matches.size(); ++length)
        EXPECT_FALSE(MatchesOf(matches.substr(0, length))) << length;
    const std::string album = LinesOf(DatabaseAlbum{"Band", "Debut", {"One", "Two"}});
    for (std::size_t length = 0; length < album.size(); ++length)
        EXPECT_FALSE(AlbumOf(album.substr(0, length))) << length;
}

TEST(DiscLines, WhatWasNotWrittenSo_IsNothing) {
    for (const char* text :
         {"end\n", "1\nend\n", "x\t540\nend\n", "1\t-540\nend\n", "1\t540\nvideo\t1\t2\nend\n",
          "1\t540\naudio\t1\nend\n", "1\t540\naudio\t1\t99999999999\nend\n", "1\t540\naudio\t1\t2x\nend\n"})
        EXPECT_FALSE(ContentsOf(text)) << text;
    EXPECT_FALSE(MatchesOf("a\tb\tc\nend\n"));
    EXPECT_FALSE(AlbumOf("a\nend\n"));
    EXPECT_FALSE(AlbumOf("a\tb\nc\td\nend\n"));
}

}  // namespace
}  // namespace zefta::test
