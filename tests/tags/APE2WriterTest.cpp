#include <chrono>
#include <filesystem>

#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/MpcBuilder.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/APE2.h"
#include "tags/APE2Items.h"
#include "tags/MPEGplusFile.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

/// A record with something in all ten items.
ID3Tag RecordOfAllItems() {
    ID3Tag tag;
    tag.Artist = "Artist";
    tag.Title = "Song";
    tag.Comment = "Mix";
    tag.Album = "Album";
    tag.Year = "1999";
    tag.ID3v2Extension.TrackNumber = "7";
    tag.ID3v2Extension.Genre = "Rock";
    tag.ID3v2Extension.Comments = "Words";
    tag.ID3v2Extension.Composer = "Composer";
    tag.ID3v2Extension.Copyright = "1999 Me";
    tag.ID3v2Extension.EncodedBy = "Encoder";
    return tag;
}

Ape FullTag() {
    return Ape()
        .Item("Track", "7")
        .Item("Artist", "Artist")
        .Item("Title", "Song (Mix)")
        .Item("Album", "Album")
        .Item("Year", "1999")
        .Item("Genre", "Rock")
        .Item("Comment", "Words")
        .Item("Composer", "Composer")
        .Item("Copyright", "1999 Me")
        .Item("Encoded by", "Encoder");
}

ID3Tag ArtistRecord(const std::string& artist = "A") {
    ID3Tag tag;
    tag.Artist = artist;
    return tag;
}

class APE2WriterTest : public ::testing::Test {
  protected:
    /// The file after the record was written to it.
    std::string Set(const std::string& bytes, ID3Tag tag, const std::string& name = "w.mpc") {
        std::filesystem::remove(folder / name);
        tag.Path = folder.Write(name, bytes);
        SetAPE2(files, tag);
        EXPECT_EQ(tag.Path, folder / name);
        return folder.Read(name);
    }

    ID3Tag Read(const std::string& name = "w.mpc") {
        ID3Tag tag;
        ReadMPEGplusFile({files, ansi}, folder / name, tag);
        return tag;
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1252);
    /// Longer than an ID3v1 tag; the part that a new tag keeps, and the whole.
    const std::string kept = Mpc7(1000, 160) + Audio(300);
    const std::string audio = kept + Audio(128);
    const std::string artistTag = Ape().Item("Artist", "A").Bytes();
};

// What is written.

TEST_F(APE2WriterTest, Set_AllBytes) {
    EXPECT_EQ(Set(audio, ArtistRecord("Дом")), kept + "APETAGEX\xD0\7\0\0\x35\0\0\0\1\0\0\0\0\0\0\xA0"s +
                                                   "\0\0\0\0\0\0\0\0"s
                                                   "\6\0\0\0\0\0\0\0Artist\0\xD0\x94\xD0\xBE\xD0\xBC"s +
                                                   "APETAGEX\xD0\7\0\0\x35\0\0\0\1\0\0\0\0\0\0\x80"s +
                                                   "\0\0\0\0\0\0\0\0"s);
}

TEST_F(APE2WriterTest, Set_FullRecord_WritesTenItemsInOrder) {
    EXPECT_EQ(Set(audio, RecordOfAllItems()), kept + FullTag().Bytes());
}

TEST_F(APE2WriterTest, Set_EmptyRecord_WritesATagWithoutItems) {
    EXPECT_EQ(Set(audio, ID3Tag()), kept + Ape().Bytes());
}

TEST_F(APE2WriterTest, Set_BlankValue_WritesNoItem) {
    ID3Tag tag = RecordOfAllItems();
    for (std::string* field : {&tag.Artist, &tag.Title, &tag.Comment, &tag.Album, &tag.Year}) *field = "  ";
    ID3v2Extension& more = tag.ID3v2Extension;
    for (std::string* field :
         {&more.TrackNumber, &more.Genre, &more.Comments, &more.Composer, &more.Copyright, &more.EncodedBy})
        *field = " ";
    EXPECT_EQ(Set(audio, tag), kept + Ape().Bytes());
}

TEST_F(APE2WriterTest, Set_Values_AreTrimmed) {
    ID3Tag tag = ArtistRecord("  A  ");
    tag.Title = " Song ";
    tag.Comment = " Mix ";
    EXPECT_EQ(Set(audio, tag), kept + Ape().Item("Artist", "A").Item("Title", "Song (Mix)").Bytes());
}

TEST_F(APE2WriterTest, Set_TitleWithoutMix_HasNoBrackets) {
    ID3Tag tag;
    tag.Title = "Song";
    EXPECT_EQ(Set(audio, tag), kept + Ape().Item("Title", "Song").Bytes());
}

TEST_F(APE2WriterTest, Set_MixWithoutTitle_IsTheMixInBrackets) {
    ID3Tag tag;
    tag.Comment = "Mix";
    EXPECT_EQ(Set(audio, tag), kept + Ape().Item("Title", "(Mix)").Bytes());
}

TEST_F(APE2WriterTest, Set_FieldsOfTheExtensionThatAPEHasNotFromThere_AreNotWritten) {
    ID3Tag tag;
    tag.ID3v2Extension.Artist = tag.ID3v2Extension.TrackTitle = tag.ID3v2Extension.AlbumTitle = "x";
    tag.ID3v2Extension.URL = tag.ID3v2Extension.OriginalArtist = tag.ID3v2Extension.Year = "x";
    EXPECT_EQ(Set(audio, tag), kept + Ape().Bytes());
}

TEST_F(APE2WriterTest, Set_UnknownFrames_StandBehindTheItemsAndCountByTheTrack) {
    ID3Tag tag = ArtistRecord();
    tag.ID3v2Extension.UnknownFrames = ApeItem("Publisher", "P", 2) + ApeItem("Label", "L");
    tag.TrackNumber = 2;
    EXPECT_EQ(Set(audio, tag),
              kept + Ape().Item("Artist", "A").Item("Publisher", "P", 2).Item("Label", "L").Bytes());
}

TEST_F(APE2WriterTest, Set_NoUnknownFrames_LeavesTheTrackOutOfTheCount) {
    ID3Tag tag = ArtistRecord();
    tag.TrackNumber = 9;
    EXPECT_EQ(Set(audio, tag), kept + artistTag);
}

// The item by itself.

TEST(WriteAPEItem, ValueOfBlanks_IsNothing) {
    EXPECT_EQ(WriteAPEItem("Artist", ""), "");
    EXPECT_EQ(WriteAPEItem("Artist", "   "), "");
}

TEST(WriteAPEItem, Value_IsTrimmedAndHasNoFinalNul) {
    EXPECT_EQ(WriteAPEItem("Encoded by", " é "), "\2\0\0\0\0\0\0\0Encoded by\0\xC3\xA9"s);
}

TEST(WriteAPEItem, TextThatIsNoUtf8_StandsAsItIs) {
    EXPECT_EQ(WriteAPEItem("Year", "\xFF"), "\1\0\0\0\0\0\0\0Year\0\xFF"s);
}

// Where it is written.

TEST_F(APE2WriterTest, Set_OtherKindOfFile_DoesNothing) {
    for (const char* name : {"w.mp3", "w.ogg", "w.mpp", "w.mpc2", "w.ape"})
        EXPECT_EQ(Set(audio, ArtistRecord(), name), audio) << name;
}

TEST_F(APE2WriterTest, Set_NameInAnyCase_IsWritten) {
    for (const char* name : {"w.mp+", "w.MP+", "w.Mpc", "wmpc"})
        EXPECT_EQ(Set(audio, ArtistRecord(), name), kept + artistTag) << name;
}

TEST_F(APE2WriterTest, Set_FileThatCannotBeOpened_ClearsThePath) {
    ID3Tag tag;
    tag.Path = folder / "none.mpc";
    SetAPE2(files, tag);
    EXPECT_EQ(tag.Path, "");
    EXPECT_FALSE(folder.Exists("none.mpc"));
}

TEST_F(APE2WriterTest, Set_ReadOnlyFile_ClearsThePathAndStays) {
    ID3Tag tag = ArtistRecord();
    tag.Path = folder.Write("r.mpc", audio);
    files.SetReadOnly(tag.Path, true);
    SetAPE2(files, tag);
    EXPECT_EQ(tag.Path, "");
    EXPECT_EQ(folder.Read("r.mpc"), audio);
}

TEST_F(APE2WriterTest, Set_ID3v1Tag_IsReplaced) {
    EXPECT_EQ(Set(kept + Id3v1{"T"}.Bytes(), ArtistRecord()), kept + artistTag);
}

TEST_F(APE2WriterTest, Set_ID3v1Tag_TheFileGrowsByTheTagLess128) {
    const std::string before = kept + Id3v1{"T"}.Bytes();
    const std::string after = Set(before, RecordOfAllItems());
    const auto tagSize = static_cast<std::size_t>(Read().ID3v2Extension.TagSize);
    EXPECT_EQ(after.size(), before.size() + tagSize + 32 - 128);
}

TEST_F(APE2WriterTest, Set_Lyrics3Block_StaysInFrontOfTheTag) {
    const std::string lyrics = "LYRICSBEGINETT00005Hello000024LYRICS200";
    EXPECT_EQ(Set(kept + lyrics + Id3v1{"T"}.Bytes(), ArtistRecord()), kept + lyrics + artistTag);
}

TEST_F(APE2WriterTest, Set_ID3v2Tag_Stays) {
    const std::string id3v2 = Id3v2(TextFrame("TPE1", "X"), 60);
    EXPECT_EQ(Set(id3v2 + audio, ArtistRecord()), id3v2 + kept + artistTag);
}

TEST_F(APE2WriterTest, Set_OldTag_IsReplacedWhereItBegins) {
    EXPECT_EQ(Set(audio + artistTag, RecordOfAllItems()), audio + FullTag().Bytes());
    EXPECT_EQ(Set(audio + FullTag().Bytes(), ArtistRecord()), audio + artistTag);
    EXPECT_EQ(Set(audio + Ape().Bytes(), ArtistRecord()), audio + artistTag);
}

TEST_F(APE2WriterTest, Set_OldTagWhoseHeaderIsOfAnotherVersion_IsReplaced) {
    EXPECT_EQ(Set(audio + Ape().Item("Artist", "X").HeaderVersion(1000).Bytes(), ArtistRecord()),
              audio + artistTag);
}

TEST_F(APE2WriterTest, Set_OldTagWithoutHeader_CountsAsAnID3v1Tag) {
    const std::string old = Ape().Item("Artist", std::string(200, 'x')).WithoutHeader().Bytes();
    EXPECT_EQ(Set(audio + old, ArtistRecord()),
              (audio + old).substr(0, audio.size() + old.size() - 128) + artistTag);
}

TEST_F(APE2WriterTest, Set_OldTagOfAnotherVersion_CountsAsAnID3v1Tag) {
    const std::string before = audio + Ape().Item("Artist", "X").Version(1000).Bytes();
    EXPECT_EQ(Set(before, ArtistRecord()), before.substr(0, before.size() - 128) + artistTag);
}

TEST_F(APE2WriterTest, Set_OldTagOfImpossibleSize_CountsAsAnID3v1Tag) {
    for (const std::int32_t size : {-2147483647 - 1, -2147483647, -64, -32, -8, 16, 33, 100000, 2147483647}) {
        const std::string before = audio + Ape().Item("Artist", "X").Size(size).Bytes();
        EXPECT_EQ(Set(before, ArtistRecord()), before.substr(0, before.size() - 128) + artistTag) << size;
    }
}

TEST_F(APE2WriterTest, Set_FooterOfImpossibleSizeThatHoldsAnotherMarker_CountsAsAnID3v1Tag) {
    std::string footer = ApeBlock{.size = 100000}.Bytes();
    footer.replace(16, 8, "APETAGEX");
    EXPECT_EQ(Set(audio + footer, ArtistRecord()),
              (audio + footer).substr(0, audio.size() + 32 - 128) + artistTag);
}

TEST_F(APE2WriterTest, Set_BytesBehindTheSameTag_AreCutOff) {
    const auto size = static_cast<std::int32_t>(artistTag.size()) + 4;
    EXPECT_EQ(Set(audio + artistTag + "junk" + ApeBlock{.size = size}.Bytes(), ArtistRecord()),
              audio + artistTag);
}

TEST_F(APE2WriterTest, Set_FooterThatSaysSizeZero_IsTakenForTheTag) {
    EXPECT_EQ(Set(audio + ApeBlock{.size = 0}.Bytes(), ArtistRecord()), audio + artistTag);
}

TEST_F(APE2WriterTest, Set_TagBeforeAnID3v1Tag_StaysThere) {
    const std::string old = Ape().Item("Artist", "X").Bytes();
    EXPECT_EQ(Set(audio + old + Id3v1{"T"}.Bytes(), ArtistRecord()), audio + old + artistTag);
}

// Version 8: the end of the stream is no tag.

TEST_F(APE2WriterTest, Set_Version8_AppendsTheTag) {
    EXPECT_EQ(Set(Mpc8(), ArtistRecord()), Mpc8() + artistTag);
    EXPECT_EQ(Set("MPCK", ArtistRecord()), "MPCK" + artistTag);
}

TEST_F(APE2WriterTest, Set_Version8WithID3v1_ReplacesThat) {
    EXPECT_EQ(Set(Mpc8() + Id3v1{"T"}.Bytes(), ArtistRecord()), Mpc8() + artistTag);
}

TEST_F(APE2WriterTest, Set_Version8BehindAnID3v2Tag_IsOneToo) {
    const std::string stream = Id3v2(TextFrame("TPE1", "X"), 60) + Mpc8();
    EXPECT_EQ(Set(stream, ArtistRecord()), stream + artistTag);
    EXPECT_EQ(Set(stream + Id3v1{"T"}.Bytes(), ArtistRecord()), stream + artistTag);
}

TEST_F(APE2WriterTest, Set_Version8BehindAnID3v2TagWithFooter_LosesNothing) {
    const std::string header = "ID3\4\0\20\0\0\0\0"s;
    const std::string footer = "3DI\4\0\20\0\0\0\0"s;
    EXPECT_EQ(Set(header + footer + Mpc8(), ArtistRecord()), header + footer + Mpc8() + artistTag);
}

TEST_F(APE2WriterTest, Set_Version8WithOldTag_ReplacesThat) {
    EXPECT_EQ(Set(Mpc8() + artistTag, RecordOfAllItems()), Mpc8() + FullTag().Bytes());
}

TEST_F(APE2WriterTest, Set_Version8WithTagWithoutHeader_KeepsIt) {
    const std::string before = Mpc8() + Ape().Item("Artist", "X").WithoutHeader().Bytes();
    EXPECT_EQ(Set(before, ArtistRecord()), before + artistTag);
}

TEST_F(APE2WriterTest, Set_MarkerOfVersion8ElsewhereThanAtTheStart_CountsForNothing) {
    EXPECT_EQ(Set("x" + Mpc8(), ArtistRecord()),
              ("x" + Mpc8()).substr(0, Mpc8().size() + 1 - 128) + artistTag);
    EXPECT_EQ(Set("ID3" + audio, ArtistRecord()), "ID3" + kept + artistTag);
}

// Files with no place for a tag.

TEST_F(APE2WriterTest, Set_FileOfAtMost128Bytes_GetsAFooterAlone) {
    const std::string footer = ApeBlock().Bytes();
    // Where the search for an old tag ended: behind the 8 bytes that it looked at, 32 before the end.
    for (const std::size_t size : {0U, 1U, 7U, 8U, 31U})
        EXPECT_EQ(Set(Audio(size), ArtistRecord()), Audio(std::min<std::size_t>(size, 8)) + footer) << size;
    for (const std::size_t size : {32U, 33U, 100U, 127U})
        EXPECT_EQ(Set(Audio(size), ArtistRecord()), Audio(size).substr(0, size - 24) + footer) << size;
    EXPECT_EQ(Set(Audio(128), ArtistRecord()), footer);
    EXPECT_EQ(Set(Id3v1{"T"}.Bytes(), ArtistRecord()), footer);
}

TEST_F(APE2WriterTest, Set_FileOf129Bytes_KeepsOneOfThem) {
    EXPECT_EQ(Set(Audio(129), ArtistRecord()), Audio(1) + artistTag);
}

TEST_F(APE2WriterTest, Set_FileThatIsNothingButATag_GetsAFooterAlone) {
    EXPECT_EQ(Set(FullTag().Bytes(), ArtistRecord()), ApeBlock().Bytes());
    EXPECT_EQ(Set(artistTag, ArtistRecord()), ApeBlock().Bytes());
}

TEST_F(APE2WriterTest, Set_ShortFileWithAFooter_GoesOnFromWhereTheSearchEnded) {
    const std::string footer = ApeBlock().Bytes();
    const std::string other = Audio(20) + ApeBlock{.version = 1000}.Bytes();
    EXPECT_EQ(Set(other, ArtistRecord()), other.substr(0, other.size() - 20) + footer);
    const std::string tooLarge = Audio(20) + ApeBlock{.size = 5000}.Bytes();
    EXPECT_EQ(Set(tooLarge, ArtistRecord()), tooLarge.substr(0, tooLarge.size() - 8) + footer);
}

// Again and again.

TEST_F(APE2WriterTest, Set_Rewriting_LeavesThePlaceAndEndsAtTheFooter) {
    std::string bytes = Set(audio, RecordOfAllItems());
    for (const ID3Tag& tag : {ArtistRecord(), RecordOfAllItems(), ArtistRecord("longer artist"), ID3Tag()}) {
        bytes = Set(bytes, tag);
        EXPECT_EQ(bytes.find("APETAGEX"), kept.size());
        EXPECT_EQ(bytes.rfind("APETAGEX"), bytes.size() - 32);
        EXPECT_EQ(bytes.substr(0, kept.size()), kept);
    }
    EXPECT_EQ(bytes, kept + Ape().Bytes());
}

TEST_F(APE2WriterTest, Set_WhatWasRead_ComesBackUnchanged) {
    // A tag without unknown items, and one whose track stands in it.
    for (const Ape& tag : {FullTag(), FullTag().Item("Publisher", "P"), Ape().Item("Title", "Song (Mix)")}) {
        const std::string before = audio + tag.Bytes();
        folder.Write("w.mpc", before);
        EXPECT_EQ(Set(before, Read()), before);
    }
}

TEST_F(APE2WriterTest, Set_UnknownItem_SurvivesAndRaisesTheCountByOne) {
    const std::string before =
        audio + Ape().Item("Publisher", "P", 2).Item("Title", "Song (Mix)").Item("Track", "4").Bytes();
    folder.Write("w.mpc", before);
    const ID3Tag tag = Read();
    EXPECT_EQ(tag.TrackNumber, 1);
    EXPECT_EQ(Set(before, tag),
              audio + Ape().Item("Track", "4").Item("Title", "Song (Mix)").Item("Publisher", "P", 2).Bytes());
}

TEST_F(APE2WriterTest, Set_UnknownItemsAndNoTrack_TheirNumberBecomesTheTrack) {
    const std::string before = audio + Ape().Item("Publisher", "P").Item("Label", "L").Bytes();
    folder.Write("w.mpc", before);
    const std::string once = Set(before, Read());
    EXPECT_EQ(once, audio + Ape().Item("Track", "2").Item("Publisher", "P").Item("Label", "L").Bytes());
    EXPECT_EQ(Set(once, Read()), once);
}

TEST_F(APE2WriterTest, Set_FramesOfAnID3v2Tag_GoIntoTheTagAsTheyAre) {
    const std::string frame = RawFrame("PRIV", "\xFFx");
    const std::string id3v2 = Id3v2(frame + TextFrame("TRCK", "3"), 60);
    folder.Write("w.mpc", id3v2 + audio);
    const ID3Tag tag = Read();
    const std::string after = Set(id3v2 + audio, tag);
    // The count takes in the track, which is no number of items here.
    EXPECT_EQ(after, id3v2 + kept + Ape().Item("Track", "3").Raw(frame).Count(1 + 3).Bytes());
    EXPECT_EQ(Read().ID3v2Extension.TrackNumber, "3");
}

TEST_F(APE2WriterTest, Set_SameBytes_WritesNothing) {
    const std::string path = folder.Write("w.mpc", audio + FullTag().Bytes());
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1000);
    std::filesystem::last_write_time(path, longAgo);
    ID3Tag tag = RecordOfAllItems();
    tag.Path = path;
    SetAPE2(files, tag);
    EXPECT_EQ(std::filesystem::last_write_time(path), longAgo);
    tag.Year = "2000";
    SetAPE2(files, tag);
    EXPECT_NE(std::filesystem::last_write_time(path), longAgo);
}

// Refused operations.

struct Rewrite {
    const char* name;
    std::string before;
    ID3Tag tag;
    /// Bytes at the start of the file that no failure may touch.
    std::size_t untouched;
};

class APE2WriterFaults : public APE2WriterTest {
  protected:
    std::vector<Rewrite> Rewrites() const {
        return {{"new tag over the last bytes", audio, RecordOfAllItems(), kept.size()},
                {"longer tag", audio + artistTag, RecordOfAllItems(), audio.size()},
                {"shorter tag", audio + FullTag().Bytes(), ArtistRecord(), audio.size()},
                {"tag of the same length", audio + artistTag, ArtistRecord("B"), audio.size()},
                {"version 8", Mpc8(), RecordOfAllItems(), Mpc8().size()},
                {"footer alone", Audio(100), RecordOfAllItems(), 76}};
    }

    /// Runs the rewrite with the plan; whether its fault was met. `failure` is the number that went up.
    bool RunWith(const Rewrite& rewrite, FaultPlan plan, int& failure) {
        ID3Tag tag = rewrite.tag;
        std::filesystem::remove(folder / "f.mpc");
        tag.Path = folder.Write("f.mpc", rewrite.before);
        FaultInjectingFileSystem failing(files);
        failing.faults.plan = plan;
        failure = RuntimeErrorOf([&] { SetAPE2(failing, tag); });
        if (plan.nth == 1) {
            EXPECT_EQ(tag.Path, "");
        }
        return failing.faults.operations >= plan.nth;
    }
};

TEST_F(APE2WriterFaults, Set_OneOperationRefused_TheOldFileStays) {
    for (const Rewrite& rewrite : Rewrites()) {
        int failure = 0;
        int n = 1;
        for (; RunWith(rewrite, {FaultPlan::Mode::OnlyTheNth, n, ErrorNumber::DiskFull}, failure); ++n) {
            ASSERT_LT(n, 50);
            EXPECT_EQ(failure, n == 1 ? 0 : 61) << rewrite.name << " operation " << n;
            EXPECT_EQ(folder.Read("f.mpc"), rewrite.before) << rewrite.name << " operation " << n;
        }
        EXPECT_GT(n, 3) << rewrite.name;
        EXPECT_EQ(failure, 0) << rewrite.name;
        EXPECT_NE(folder.Read("f.mpc"), rewrite.before) << rewrite.name;
    }
}

TEST_F(APE2WriterFaults, Set_AllFurtherOperationsRefused_TheAudioStays) {
    for (const Rewrite& rewrite : Rewrites()) {
        int failure = 0;
        for (int n = 1;
             RunWith(rewrite, {FaultPlan::Mode::FromTheNthOn, n, ErrorNumber::DeviceIoError}, failure); ++n) {
            ASSERT_LT(n, 50);
            EXPECT_EQ(failure, n == 1 ? 0 : 57) << rewrite.name << " operation " << n;
            EXPECT_EQ(folder.Read("f.mpc").substr(0, rewrite.untouched),
                      rewrite.before.substr(0, rewrite.untouched))
                << rewrite.name << " operation " << n;
        }
    }
}

}  // namespace
}  // namespace zefta::test
