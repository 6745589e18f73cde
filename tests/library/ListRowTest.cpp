#include <gtest/gtest.h>

#include "library/ListRow.h"

namespace zefta::test {
namespace {

ListRow Row(const char* name, ListKind kind, const ID3Tag& tag = {}, std::int64_t bytes = 20000) {
    return RowOf({name, kind}, bytes, tag, LoadCodePage(1252));
}

TEST(SizeText, Sizes_AreMebibytesKibibytesOrBytes) {
    EXPECT_EQ(SizeText(std::int64_t{200} << 20), "200 M");
    EXPECT_EQ(SizeText(20 * 1024), "20 K");
    EXPECT_EQ(SizeText(5000), "5000");
    EXPECT_EQ(SizeText(0), " ");
    EXPECT_EQ(SizeText(1), "1");
    EXPECT_EQ(SizeText(std::int64_t{5} << 40), "5242880 M");
    EXPECT_EQ(SizeText(std::int64_t{4} << 60), "4398046511104 M") << "a sparse file of any size has a row";
}

TEST(SizeText, Limits_AreOfTheRoundedNumber) {
    // 99.5 rounds to the even 100, 10.5 to the even 10.
    EXPECT_EQ(SizeText((99 << 20) + (1 << 19)), "100 M");
    EXPECT_EQ(SizeText((99 << 20) + (1 << 19) - 1), "101888 K");
    EXPECT_EQ(SizeText(10 * 1024 + 512), "10752");
    EXPECT_EQ(SizeText(10 * 1024 + 513), "11 K");
}

TEST(RowOf, Folder_HasNameBlankSizeAndKey) {
    const ListRow row = Row("a.b", ListKind::Folder, {}, 0);
    EXPECT_EQ(row.File, "a.b");
    EXPECT_EQ(row.Size, " ");
    EXPECT_EQ(row.SortOrder, "0-a.b");
    EXPECT_EQ(row.Icon, RowIcon::Folder);
    EXPECT_EQ(row.Bitrate + row.Time + row.Artist + row.Title + row.Year + row.Album, "");
}

TEST(RowOf, PlaylistAndLqt_ShowNameAndSizeOnly) {
    ID3Tag tag;
    tag.Artist = "never shown";
    for (const ListKind kind : {ListKind::Playlist, ListKind::Lqt}) {
        const ListRow row = Row("a.b.m3u", kind, tag);
        EXPECT_EQ(row.Size, "20 K");
        EXPECT_EQ(row.Bitrate + row.Time + row.Artist + row.Title + row.Year + row.Album, "");
    }
    EXPECT_EQ(Row("x.m3u", ListKind::Playlist).Icon, RowIcon::Playlist);
    EXPECT_EQ(Row("x.lqt", ListKind::Lqt).Icon, RowIcon::Compressed);
}

TEST(RowOf, Wave_ShowsKilohertzAndTime) {
    ID3Tag tag;
    tag.SampleRate = 44100;
    tag.Seconds = 125;
    const ListRow row = Row("x.wav", ListKind::Wave, tag);
    EXPECT_EQ(row.Bitrate, "44");
    EXPECT_EQ(row.Time, "2:05");
    EXPECT_EQ(row.Icon, RowIcon::Wave);
    tag.SampleRate = 11999;
    tag.ChannelMode = 3;
    EXPECT_EQ(Row("x.wav", ListKind::Wave, tag).Bitrate, "11m");
}

TEST(RowOf, WaveThatIsNone_IsRaw) {
    ID3Tag tag;
    tag.Bitrate = -1;
    tag.Seconds = 5;
    const ListRow row = Row("x.wav", ListKind::Wave, tag);
    EXPECT_EQ(row.Bitrate, "RAW");
    EXPECT_EQ(row.Time, "");
}

ID3Tag BothTags() {
    ID3Tag tag;
    tag.Artist = "A1";
    tag.Title = "T1";
    tag.Album = "L1";
    tag.Year = "1991";
    tag.Comment = "C1";
    tag.ID3v2Present = true;
    tag.ID3v2Extension.Artist = "A2";
    tag.ID3v2Extension.TrackTitle = "T2";
    tag.ID3v2Extension.AlbumTitle = "L2";
    tag.ID3v2Extension.Year = "1992";
    tag.ID3v2Extension.Mix = "M2";
    return tag;
}

TEST(RowOf, Compressed_TakesVersion2First) {
    const ListRow row = Row("x.mp3", ListKind::MP3, BothTags());
    EXPECT_EQ(row.Artist, "A2");
    EXPECT_EQ(row.Title, "T2 (M2)");
    EXPECT_EQ(row.Album, "L2");
    EXPECT_EQ(row.Year, "1992");
    EXPECT_EQ(row.Icon, RowIcon::Compressed);
}

TEST(RowOf, Compressed_FallsBackFieldByField) {
    ID3Tag tag = BothTags();
    tag.ID3v2Extension = {};
    for (const ListKind kind : {ListKind::MP3, ListKind::Ogg, ListKind::MPEGplus}) {
        const ListRow row = Row("x.mp3", kind, tag);
        EXPECT_EQ(row.Artist, "A1");
        EXPECT_EQ(row.Title, "T1 (C1)");
        EXPECT_EQ(row.Album, "L1");
        EXPECT_EQ(row.Year, "1991");
    }
    tag.ID3v2Extension.TrackTitle = "T2";
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Title, "T2 (C1)");
    tag.Comment.clear();
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Title, "T2");
}

TEST(RowOf, ValueWithANul_EndsThere) {
    using namespace std::string_literals;
    ID3Tag tag = BothTags();
    tag.ID3v2Extension.Artist = "A2\0"s;
    tag.ID3v2Extension.TrackTitle = "T2\0more"s;
    tag.ID3v2Extension.Year = "\0"s;
    const ListRow row = Row("x.mp3", ListKind::MP3, tag);
    EXPECT_EQ(row.Artist, "A2");
    EXPECT_EQ(row.Title, "T2 (M2)");
    EXPECT_EQ(row.Year, "1991");
}

TEST(RowOf, BitrateOfMono_CarriesAnM) {
    ID3Tag tag;
    tag.Bitrate = 128;
    tag.Seconds = 3725;
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Bitrate, "128");
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Time, "62:05");
    tag.ChannelMode = 3;
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Bitrate, "128m");
}

TEST(RowOf, Lyrics_ReplaceArtistAndTitleOnlyWithoutVersion2) {
    ID3Tag tag = BothTags();
    tag.LyricsPresent = true;
    tag.LyricsExtension.Artist = "A3";
    tag.LyricsExtension.TrackTitle = "T3";
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Artist, "A2");
    tag.ID3v2Present = false;
    tag.ID3v2Extension = {};
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Artist, "A3");
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Title, "T3");
    tag.LyricsExtension = {};
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Artist, "A1");
    EXPECT_EQ(Row("x.mp3", ListKind::MP3, tag).Title, "T1 (C1)");
}

TEST(RowOf, FileThatCouldNotBeRead_HasItsRow) {
    const ListRow row = Row("x.mp3", ListKind::MP3);
    EXPECT_EQ(row.File, "x.mp3");
    EXPECT_EQ(row.Bitrate, "0");
    EXPECT_EQ(row.Time, "0:00");
    EXPECT_EQ(row.Artist, "");
}

TEST(RowOf, NameThatIsNoUtf8_IsShownThroughTheCodePage) {
    EXPECT_EQ(Row("caf\xE9.mp3", ListKind::MP3).File, "caf\xC3\xA9.mp3");
}

}  // namespace
}  // namespace zefta::test
