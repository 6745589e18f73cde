#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/Lyrics3.h"

namespace zefta::test {
namespace {

class Lyrics3Test : public ::testing::Test {
  protected:
    bool Read(const std::string& bytes) {
        const auto file = files.OpenReadOnly(folder.Write("l.mp3", bytes));
        tag = ID3Tag();
        return ReadLyrics3(*file, tag, ansi);
    }

    int ErrorOf(const std::string& bytes) {
        return RuntimeErrorOf([&] { Read(bytes); });
    }

    static std::string Block(const std::string& fields) {
        std::string size = std::to_string(fields.size() + 11);
        size.insert(0, 6 - size.size(), '0');
        return "LYRICSBEGIN" + fields + size + "LYRICS200";
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1251);
    ID3Tag tag;
};

TEST_F(Lyrics3Test, Block_WithAndWithoutATagBehindIt_IsRead) {
    for (const std::string& behind : {std::string(), Id3v1{"T"}.Bytes()}) {
        EXPECT_TRUE(Read(Audio(1000) + Block("ETT00005Hello") + behind));
        EXPECT_TRUE(tag.LyricsPresent);
        EXPECT_EQ(tag.LyricsExtension.TrackTitle, "Hello");
    }
}

TEST_F(Lyrics3Test, SmallFile_IsReadAlike) {
    EXPECT_TRUE(Read("LYRICSBEGINETT00005Hello000024LYRICS200"));
    EXPECT_EQ(tag.LyricsExtension.TrackTitle, "Hello");
}

TEST_F(Lyrics3Test, Fields_TitleAndArtistAreKeptTrimmed_OthersPassedOver) {
    EXPECT_TRUE(Read(Audio(400) + Block("IND0000211LYR00003abcEAR00007 \xC4\xEE\xEC   ETT00004 Hi ")));
    EXPECT_EQ(tag.LyricsExtension.Artist, "Дом");
    EXPECT_EQ(tag.LyricsExtension.TrackTitle, "Hi");
}

TEST_F(Lyrics3Test, LongBlock_BeyondTheWindow_IsRead) {
    EXPECT_TRUE(
        Read(Audio(400) + Block("LYR09000" + std::string(9000, 'x') + "ETT00002Hi") + Id3v1{}.Bytes()));
    EXPECT_EQ(tag.LyricsExtension.TrackTitle, "Hi");
}

TEST_F(Lyrics3Test, NoMarker_IsNone) {
    EXPECT_FALSE(Read(Audio(1000)));
    EXPECT_FALSE(Read(""));
    EXPECT_FALSE(Read(Audio(100) + "lyrics200"));
    EXPECT_FALSE(tag.LyricsPresent);
}

TEST_F(Lyrics3Test, MarkerWithoutRoomForItsSize_Fails5) {
    EXPECT_EQ(ErrorOf(Audio(700) + "LYRICS" + std::string(294, 'x')), 5);
    EXPECT_EQ(ErrorOf(Audio(700) + "12345LYRICS" + std::string(289, 'x')), 5);
    EXPECT_EQ(ErrorOf("LYRICS200"), 5);
}

TEST_F(Lyrics3Test, Version1OrBeginMarkerAlone_Fails13) {
    EXPECT_EQ(ErrorOf(Audio(500) + "LYRICSBEGIN some text LYRICSEND"), 13);
    EXPECT_EQ(ErrorOf(Audio(500) + "LYRICSBEGIN"), 13);
}

TEST_F(Lyrics3Test, SizeAbove16Bits_Fails6) {
    EXPECT_EQ(ErrorOf(Audio(500) + "032768LYRICS200"), 6);
}

TEST_F(Lyrics3Test, FieldLengthNotNumeric_Fails13) {
    EXPECT_EQ(ErrorOf(Audio(500) + Block("ETTxxxxxHello")), 13);
}

TEST_F(Lyrics3Test, SizeOrLengthOfAnythingButDigits_Fails13) {
    for (const std::string digits : {"0024.0", "+00024", "-00024", " 00024", "00024 ", "0x0018", "2.4e01"})
        EXPECT_EQ(ErrorOf(Audio(500) + "LYRICSBEGINETT00005Hello" + digits + "LYRICS200"), 13) << digits;
    for (const std::string digits : {"005.0", "+0005", "-0005", " 0005", "0005 ", "5e000"})
        EXPECT_EQ(ErrorOf(Audio(500) + Block("ETT" + digits + "Hello")), 13) << digits;
}

TEST_F(Lyrics3Test, FieldThatEndsBeforeItsLength_Fails13) {
    EXPECT_EQ(ErrorOf(Audio(500) + Block("ETT00005HelloEAR")), 13);
    EXPECT_EQ(ErrorOf(Audio(500) + Block("ETT00005HelloEA")), 13);
}

TEST_F(Lyrics3Test, HostileLengths_EndInACodeOrFailure) {
    EXPECT_TRUE(Read(Audio(500) + Block("ETT99999Hello")));
    EXPECT_EQ(tag.LyricsExtension.TrackTitle, "Hello");
    EXPECT_TRUE(Read("000010LYRICS200"));
    EXPECT_TRUE(Read("030000LYRICS200"));
}

}  // namespace
}  // namespace zefta::test
