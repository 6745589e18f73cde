#include <gtest/gtest.h>

#include "library/PlaylistText.h"

namespace zefta::test {
namespace {

ID3Tag Tag(const std::string& artist, const std::string& title) {
    ID3Tag tag;
    tag.Path = "/music/song.mp3";
    tag.Artist = artist;
    tag.Title = title;
    tag.Seconds = 215;
    return tag;
}

std::string Text(const ID3Tag& tag) {
    return DisplayText(tag, LoadCodePage(1252));
}

TEST(DisplayText, ArtistAndTitle_StandWithAHyphen) {
    EXPECT_EQ(Text(Tag("Artist", "Title")), "Artist - Title");
}

TEST(DisplayText, OneOfTheTwoIsEmpty_TheHyphenStays) {
    EXPECT_EQ(Text(Tag("", "Title")), " - Title");
    EXPECT_EQ(Text(Tag("Artist", "")), "Artist - ");
}

TEST(DisplayText, ValuesOfID3v2_GoFirstEachByItself) {
    ID3Tag tag = Tag("Artist", "Title");
    tag.ID3v2Extension.Artist = "Long artist";
    EXPECT_EQ(Text(tag), "Long artist - Title");
    tag.ID3v2Extension.TrackTitle = "Long title";
    EXPECT_EQ(Text(tag), "Long artist - Long title");
    tag.Artist = tag.Title = "";
    tag.ID3v2Extension.TrackTitle = "";
    EXPECT_EQ(Text(tag), "Long artist - ");
}

TEST(DisplayText, Comment_StandsInSquareBrackets) {
    ID3Tag tag = Tag("Artist", "Title");
    tag.Comment = "comment";
    EXPECT_EQ(Text(tag), "Artist - Title [comment]");
}

TEST(DisplayText, Mix_StandsInRoundBracketsAndDropsTheComment) {
    ID3Tag tag = Tag("Artist", "Title");
    tag.Comment = "comment";
    tag.ID3v2Extension.Mix = "Club Mix";
    EXPECT_EQ(Text(tag), "Artist - Title (Club Mix)");
}

TEST(DisplayText, NeitherArtistNorTitle_GivesTheBareFileName) {
    ID3Tag tag = Tag("", "");
    tag.Comment = "comment";
    tag.ID3v2Extension.Mix = "Mix";
    EXPECT_EQ(Text(tag), "song.mp3");
}

TEST(DisplayText, FileNameThatIsNoUtf8_IsReadInTheCodePage) {
    ID3Tag tag = Tag("", "");
    tag.Path = "/music/M\xFCller.mp3";
    EXPECT_EQ(Text(tag), "M\xC3\xBCller.mp3");
}

TEST(DisplayText, HostileText_StaysOneLine) {
    EXPECT_EQ(Text(Tag("A\nB", "C\tD\x01")), "A B - C D ");
    EXPECT_EQ(Text(Tag("A\r\n#EXTM3U", "T")), "A #EXTM3U - T");
    EXPECT_EQ(Text(Tag("A\xC2\x85"
                       "B",
                       "C\xE2\x80\xA8"
                       "D\xE2\x80\xA9"
                       "E")),
              "A B - C D E");
    ID3Tag tag = Tag("", "");
    tag.Path = "/music/a\x1B[2J.mp3";
    EXPECT_EQ(Text(tag), "a [2J.mp3");
}

TEST(DisplayText, Values_EndAtTheirFirstNul) {
    using namespace std::string_literals;
    EXPECT_EQ(Text(Tag("A\0B"s, "T\0"s)), "A - T");
    ID3Tag tag = Tag("Artist", "");
    tag.ID3v2Extension.Artist = "\0x"s;
    EXPECT_EQ(Text(tag), "Artist - ");
}

TEST(CommentLine, TellsWholeSeconds) {
    ID3Tag tag = Tag("Artist", "Title");
    EXPECT_EQ(CommentLine(tag, LoadCodePage(1252)), "#EXTINF:215,Artist - Title");
    tag.Seconds = 0;
    EXPECT_EQ(CommentLine(tag, LoadCodePage(1252)), "#EXTINF:0,Artist - Title");
}

TEST(PlainPlaylist, HoldsThePathsAlone) {
    EXPECT_EQ(PlainPlaylist("/music", {"b.mp3", "a.wav", "M\xFC.mp3"}),
              "/music/b.mp3\n/music/a.wav\n/music/M\xFC.mp3\n");
    EXPECT_EQ(PlainPlaylist("/", {"a.mp3"}), "/a.mp3\n");
    EXPECT_EQ(PlainPlaylist("/music", {}), "");
    EXPECT_EQ(PlainPlaylist("/music", {"a\nb.mp3", "c.mp3"}), "/music/c.mp3\n");
}

}  // namespace
}  // namespace zefta::test
