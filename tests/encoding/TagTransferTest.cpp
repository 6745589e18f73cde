#include <map>

#include <gtest/gtest.h>

#include "core/GenreTable.h"
#include "core/Version.h"
#include "encoding/ReEncodeStage.h"
#include "encoding/TagTransfer.h"
#include "encoding/ValueText.h"
#include "wave/TagWriters.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;
using Names = std::vector<std::string>;

const CodePage& Western() {
    static const CodePage page = LoadCodePage(1252);
    return page;
}

TransferredTag Transfer(const ID3Tag& source, TargetKind target) {
    return TransferTag(source, target, Western());
}

/// An MP3 file with both tags, every field with a value of its own.
ID3Tag FullMP3() {
    ID3Tag tag;
    tag.Artist = "old artist";
    tag.Title = "old title";
    tag.Album = "old album";
    tag.Year = "1990";
    tag.Comment = "old comment";
    tag.TrackNumber = 1;
    tag.Genre = 17;
    tag.ID3v2Present = true;
    ID3v2Extension& extension = tag.ID3v2Extension;
    extension.Artist = "artist";
    extension.TrackTitle = "title";
    extension.Mix = "mix";
    extension.AlbumTitle = "album";
    extension.Year = "2001";
    extension.Comments = "comment";
    extension.TrackNumber = "3/12";
    extension.Genre = "Jazz";
    extension.Composer = "composer";
    extension.OriginalArtist = "original";
    extension.Copyright = "copyright";
    extension.URL = "http://x";
    extension.EncodedBy = "somebody";
    return tag;
}

const Names AllFields = {"artist", "title",    "album",           "mix",       "year", "comment", "track",
                         "genre",  "composer", "original artist", "copyright", "URL"};

ID3Tag FullOgg() {
    ID3Tag tag;
    tag.IsOggVorbisFile = true;
    tag.Artist = "artist";
    tag.Title = "title";
    tag.Comment = "mix";
    tag.Album = "album";
    tag.Year = "2001";
    tag.OggVorbisExtension.DateTime = "2001-05-01";
    tag.ID3v2Extension.TrackNumber = "3";
    tag.ID3v2Extension.Genre = "Jazz";
    tag.ID3v2Extension.Comments = "comment";
    tag.ID3v2Extension.EncodedBy = "somebody";
    for (const char* line :
         {"COMPOSER=composer", "Original Artist=original", "copyright= copyright ", "URL=http://x"})
        tag.OggVorbisExtension.addExCom(line);
    return tag;
}

ID3Tag FullMPEGplus() {
    ID3Tag tag = FullMP3();
    tag.IsMpegPlusFile = true;
    tag.ID3v2Present = false;
    tag.Artist = "artist";
    tag.Title = "title";
    tag.Comment = "mix";
    tag.Album = "album";
    tag.Year = "2001";
    return tag;
}

void ExpectEncodedByUs(const ID3Tag& tag) {
    EXPECT_EQ(tag.ID3v2Extension.EncodedBy, ApplicationTitle() + " " + VersionText());
}

void ExpectMP3(const ID3Tag& tag, const std::string& track, const std::string& year) {
    EXPECT_EQ(tag.Artist, "artist");
    EXPECT_EQ(tag.ID3v2Extension.Artist, "artist");
    EXPECT_EQ(tag.Title, "title");
    EXPECT_EQ(tag.ID3v2Extension.TrackTitle, "title");
    EXPECT_EQ(tag.ID3v2Extension.Mix, "mix");
    EXPECT_EQ(tag.Album, "album");
    EXPECT_EQ(tag.ID3v2Extension.AlbumTitle, "album");
    EXPECT_EQ(tag.Year, year);
    EXPECT_EQ(tag.ID3v2Extension.Year, year);
    EXPECT_EQ(tag.Comment, "comment");
    EXPECT_EQ(tag.ID3v2Extension.Comments, "comment");
    EXPECT_EQ(tag.TrackNumber, 3);
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, track);
    EXPECT_EQ(GenreNameFromIndex(tag.Genre), "Jazz");
    EXPECT_EQ(tag.ID3v2Extension.Genre, "Jazz");
    EXPECT_EQ(tag.ID3v2Extension.Composer, "composer");
    EXPECT_EQ(tag.ID3v2Extension.OriginalArtist, "original");
    EXPECT_EQ(tag.ID3v2Extension.Copyright, "copyright");
    EXPECT_EQ(tag.ID3v2Extension.URL, "http://x");
    ExpectEncodedByUs(tag);
}

void ExpectMPEGplus(const ID3Tag& tag, const std::string& track, const std::string& year) {
    EXPECT_EQ(tag.Artist, "artist");
    EXPECT_EQ(tag.Title, "title");
    EXPECT_EQ(tag.Comment, "mix");
    EXPECT_EQ(tag.Album, "album");
    EXPECT_EQ(tag.Year, year);
    EXPECT_EQ(tag.ID3v2Extension.Comments, "comment");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, track);
    EXPECT_EQ(tag.ID3v2Extension.Genre, "Jazz");
    EXPECT_EQ(tag.ID3v2Extension.Composer, "composer");
    EXPECT_EQ(tag.ID3v2Extension.Copyright, "copyright");
    ExpectEncodedByUs(tag);
}

void ExpectOgg(const ID3Tag& tag, const std::string& track, const std::string& year) {
    EXPECT_EQ(tag.Artist, "artist");
    EXPECT_EQ(tag.Title, "title");
    EXPECT_EQ(tag.Comment, "mix");
    EXPECT_EQ(tag.Album, "album");
    EXPECT_EQ(tag.OggVorbisExtension.DateTime, year);
    EXPECT_EQ(tag.ID3v2Extension.Comments, "comment");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, track);
    EXPECT_EQ(tag.ID3v2Extension.Genre, "Jazz");
    EXPECT_EQ(tag.OggVorbisExtension.getExComInOneString(),
              "composer=composer\0original artist=original\0copyright=copyright\0url=http://x"s);
    ExpectEncodedByUs(tag);
}

TEST(TagTransfer, FromMP3_EveryFieldGoesToItsPlace) {
    ExpectMP3(Transfer(FullMP3(), TargetKind::MP3).tag, "3/12", "2001");
    ExpectMPEGplus(Transfer(FullMP3(), TargetKind::MPEGplus).tag, "3/12", "2001");
    ExpectOgg(Transfer(FullMP3(), TargetKind::OggVorbis).tag, "3/12", "2001");
}

TEST(TagTransfer, FromOgg_EveryFieldGoesToItsPlaceWithTheWholeDate) {
    ExpectMP3(Transfer(FullOgg(), TargetKind::MP3).tag, "3", "2001-05-01");
    ExpectMPEGplus(Transfer(FullOgg(), TargetKind::MPEGplus).tag, "3", "2001-05-01");
    ExpectOgg(Transfer(FullOgg(), TargetKind::OggVorbis).tag, "3", "2001-05-01");
}

TEST(TagTransfer, FromMPEGplus_EveryFieldGoesToItsPlace) {
    ExpectMP3(Transfer(FullMPEGplus(), TargetKind::MP3).tag, "3/12", "2001");
    ExpectMPEGplus(Transfer(FullMPEGplus(), TargetKind::MPEGplus).tag, "3/12", "2001");
    ExpectOgg(Transfer(FullMPEGplus(), TargetKind::OggVorbis).tag, "3/12", "2001");
}

TEST(TagTransfer, Carried_NamesTheFieldsOfTheTargetThatHaveAValue) {
    EXPECT_EQ(Transfer(FullMP3(), TargetKind::MP3).carried, AllFields);
    EXPECT_EQ(Transfer(FullOgg(), TargetKind::OggVorbis).carried, AllFields);
    const TransferredTag mpc = Transfer(FullMP3(), TargetKind::MPEGplus);
    EXPECT_EQ(mpc.carried.size(), AllFields.size() - 2);
    ASSERT_EQ(mpc.leftOut.size(), 2U);
    EXPECT_EQ(mpc.leftOut[0].what, "original artist");
    EXPECT_EQ(mpc.leftOut[1].what, "URL");
}

TEST(TagTransfer, EmptyRecord_GivesNothingButTheEncoder) {
    for (const TargetKind target : {TargetKind::MP3, TargetKind::MPEGplus, TargetKind::OggVorbis}) {
        const TransferredTag result = Transfer({}, target);
        EXPECT_TRUE(result.carried.empty());
        EXPECT_TRUE(result.leftOut.empty());
        EXPECT_EQ(result.tag.Genre, NoGenre);
        EXPECT_EQ(result.tag.OggVorbisExtension.getExComCount(), 0);
        ExpectEncodedByUs(result.tag);
        EXPECT_EQ(DescribeTransfer(result), "carried no tags");
    }
}

TEST(TagTransfer, EmptyExtension_TakesTheRecordsOwnValues) {
    ID3Tag source = FullMP3();
    source.ID3v2Extension = {};
    const ID3Tag tag = Transfer(source, TargetKind::OggVorbis).tag;
    EXPECT_EQ(tag.Artist, "old artist");
    EXPECT_EQ(tag.Title, "old title");
    EXPECT_EQ(tag.Album, "old album");
    EXPECT_EQ(tag.OggVorbisExtension.DateTime, "1990");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "1");
    EXPECT_EQ(tag.ID3v2Extension.Genre, "Rock");
    // The comment of an MP3 file is no mix.
    EXPECT_EQ(tag.ID3v2Extension.Comments, "old comment");
    EXPECT_EQ(tag.Comment, "");
}

TEST(TagTransfer, ValueOfNulsOrBlanks_CountsAsNone) {
    ID3Tag source = FullMP3();
    source.ID3v2Extension.Artist = "\0"s;
    source.ID3v2Extension.TrackTitle = "  ";
    const ID3Tag tag = Transfer(source, TargetKind::MPEGplus).tag;
    EXPECT_EQ(tag.Artist, "old artist");
    EXPECT_EQ(tag.Title, "old title");
}

TEST(TagTransfer, SeveralValues_AreJoined) {
    ID3Tag source = FullMP3();
    source.ID3v2Extension.Artist = "A\0B\0\0 C\0"s;
    EXPECT_EQ(Transfer(source, TargetKind::OggVorbis).tag.Artist, "A, B, C");
    source.IsMpegPlusFile = true;
    EXPECT_EQ(Transfer(source, TargetKind::OggVorbis).tag.Artist, "A, B, C");
}

TEST(TagTransfer, ValueText_IsOneLine) {
    EXPECT_EQ(ValueText("Song"), "Song");
    EXPECT_EQ(ValueText(" Song \0"s), "Song");
    EXPECT_EQ(ValueText("\0 \0"s), "");
    EXPECT_EQ(ValueText(""), "");
}

TEST(TagTransfer, TagThatWasReadInPart_IsTold) {
    ID3Tag source;
    source.Artist = "A";
    source.ReadInPart = true;
    EXPECT_EQ(DescribeTransfer(Transfer(source, TargetKind::MP3)),
              "carried artist; left out a part of the tag (it can't be read)");
}

TEST(TagTransfer, TrackThatIsNoByte_StaysInTheTextAlone) {
    const std::map<std::string, int> tracks = {{"3/12", 3}, {"007", 7},    {"255", 255},
                                               {"256", 0},  {"side A", 0}, {std::string(5000, '9'), 0}};
    for (const auto& [text, number] : tracks) {
        ID3Tag source = FullMP3();
        source.ID3v2Extension.TrackNumber = text;
        const ID3Tag tag = Transfer(source, TargetKind::MP3).tag;
        EXPECT_EQ(tag.ID3v2Extension.TrackNumber, text);
        EXPECT_EQ(tag.TrackNumber, number) << text;
    }
}

TEST(TagTransfer, ItemsOfMPEGplus_AreNoTrack) {
    ID3Tag source = FullMPEGplus();
    source.ID3v2Extension.TrackNumber.clear();
    source.TrackNumber = 2;
    for (const TargetKind target : {TargetKind::MP3, TargetKind::MPEGplus, TargetKind::OggVorbis}) {
        EXPECT_EQ(Transfer(source, target).tag.ID3v2Extension.TrackNumber, "");
        EXPECT_EQ(Transfer(source, target).tag.TrackNumber, 0);
    }
}

TEST(TagTransfer, GenreWithoutANumber_LeavesThatOfTheSource) {
    ID3Tag source = FullMP3();
    source.ID3v2Extension.Genre = "Shoegaze";
    EXPECT_EQ(Transfer(source, TargetKind::MP3).tag.Genre, 17);
    EXPECT_EQ(Transfer(source, TargetKind::MP3).tag.ID3v2Extension.Genre, "Shoegaze");
    source.Genre = NoGenre;
    EXPECT_EQ(Transfer(source, TargetKind::MP3).tag.Genre, NoGenre);
    source.ID3v2Extension.Genre = "blues";
    EXPECT_EQ(Transfer(source, TargetKind::MP3).tag.Genre, 0);
}

TEST(TagTransfer, OggCommentsOfOneKey_AreJoined) {
    ID3Tag source;
    source.IsOggVorbisFile = true;
    for (const char* line : {"composer=A", "COMPOSER= B ", "composer=", "composers=C", "xcomposer=D"})
        source.OggVorbisExtension.addExCom(line);
    const TransferredTag result = Transfer(source, TargetKind::MP3);
    EXPECT_EQ(result.tag.ID3v2Extension.Composer, "A, B");
    ASSERT_EQ(result.leftOut.size(), 2U);
    EXPECT_EQ(result.leftOut[0].what, "comment composers");
}

TEST(TagTransfer, OggCommentThatIsNoUtf8_ComesThroughTheCodePage) {
    ID3Tag source;
    source.IsOggVorbisFile = true;
    source.OggVorbisExtension.addExCom("composer=caf\xE9");
    EXPECT_EQ(Transfer(source, TargetKind::MP3).tag.ID3v2Extension.Composer, "café");
}

TEST(TagTransfer, MostExtendedComments_AreCountedAndNotAllNamed) {
    ID3Tag source;
    source.IsOggVorbisFile = true;
    for (int i = 0; i < 32767; ++i) source.OggVorbisExtension.addExCom("K" + std::to_string(i) + "\n=v");
    const TransferredTag result = Transfer(source, TargetKind::OggVorbis);
    ASSERT_EQ(result.leftOut.size(), 6U);
    EXPECT_EQ(result.leftOut[0].what, "comment K0 ");
    EXPECT_EQ(result.leftOut[5].what, "32762 more comments");
}

TEST(TagTransfer, UnknownFramesAndLyrics_AreLeftOutAndTold) {
    ID3Tag source;
    source.ID3v2Extension.UnknownFrames = RawFrame("APIC", "picture");
    source.LyricsPresent = true;
    const TransferredTag result = Transfer(source, TargetKind::MP3);
    EXPECT_EQ(result.tag.ID3v2Extension.UnknownFrames, "");
    EXPECT_EQ(DescribeTransfer(result),
              "carried no tags; left out other frames and items, such as pictures (they have no field here), "
              "the Lyrics3 block (such blocks are not written)");
}

TEST(TagTransfer, LettersThatMP3TagsLack_AreTold) {
    ID3Tag source;
    source.IsOggVorbisFile = true;
    source.Artist = "Кино";
    source.Title = "Café";
    EXPECT_EQ(DescribeTransfer(Transfer(source, TargetKind::MP3)),
              "carried artist, title; left out letters of the artist (the code page of MP3 tags lacks them)");
    EXPECT_TRUE(Transfer(source, TargetKind::MPEGplus).leftOut.empty());
}

TEST(TagTransfer, LongFields_LeaveTheAudioOfAnMP3FileAlone) {
    TestApp app;
    WaveFile wave(app);
    for (std::size_t comment = 0; comment < 3000; comment += 111) {
        for (const std::size_t genre : {0U, 30U, 200U, 900U}) {
            ID3Tag source = FullMP3();
            source.ID3v2Extension.Comments = std::string(comment, 'c');
            source.ID3v2Extension.Genre = std::string(genre, 'g');
            source.ID3v2Extension.Mix = std::string(40, 'm');
            TransferredTag result = TransferTag(source, TargetKind::MP3, app.ansi);
            result.tag.Path = app.folder.Write("a.mp3", Audio(3000));
            WriteTags(wave, TagJob::ReEncoding, result.tag);
            const std::string bytes = app.folder.Read("a.mp3");
            EXPECT_EQ(bytes.substr(bytes.size() - 3128, 3000), Audio(3000)) << comment << " " << genre;
            const ID3Tag read = wave.GetMP3FileInfo(app.folder / "a.mp3");
            ExpectEncodedByUs(read);
            EXPECT_EQ(read.ID3v2Extension.Mix, source.ID3v2Extension.Mix);
        }
    }
}

}  // namespace
}  // namespace zefta::test
