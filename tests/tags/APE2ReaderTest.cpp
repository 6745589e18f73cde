#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "core/ByteCodec.h"
#include "core/Strings.h"
#include "platform/BufferedFile.h"
#include "platform/Text.h"
#include "platform/posix/PosixFileSystem.h"
#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/APE2.h"
#include "tags/APE2Items.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

constexpr std::int32_t Largest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Smallest = std::numeric_limits<std::int32_t>::min();

class APE2ReaderTest : public ::testing::Test {
  protected:
    void ReadInto(ID3Tag& tag, const std::string& bytes, UnknownContent unknown = UnknownContent::Keep) {
        // A new name each time: to write over a file that was just written is slow.
        const auto file = files.OpenReadOnly(folder.Write(std::to_string(++filesWritten) + ".mpc", bytes));
        found = ReadAPE2(*file, tag, unknown);
    }

    ID3Tag Read(const std::string& bytes, UnknownContent unknown = UnknownContent::Keep) {
        ID3Tag tag;
        ReadInto(tag, bytes, unknown);
        return tag;
    }

    ID3Tag Read(const Ape& tag) { return Read(audio + tag.Bytes()); }

    TempFolder folder;
    PosixFileSystem files;
    bool found = false;
    int filesWritten = 0;
    const std::string audio = Audio(300);
};

// Where an item goes.

struct Target {
    const char* key;
    std::string& (*field)(ID3Tag& tag);
};

const Target Targets[] = {
    {"Track", [](ID3Tag& tag) -> std::string& { return tag.ID3v2Extension.TrackNumber; }},
    {"Artist", [](ID3Tag& tag) -> std::string& { return tag.Artist; }},
    {"Title", [](ID3Tag& tag) -> std::string& { return tag.Title; }},
    {"Album", [](ID3Tag& tag) -> std::string& { return tag.Album; }},
    {"Year", [](ID3Tag& tag) -> std::string& { return tag.Year; }},
    {"Genre", [](ID3Tag& tag) -> std::string& { return tag.ID3v2Extension.Genre; }},
    {"Comment", [](ID3Tag& tag) -> std::string& { return tag.ID3v2Extension.Comments; }},
    {"Composer", [](ID3Tag& tag) -> std::string& { return tag.ID3v2Extension.Composer; }},
    {"Copyright", [](ID3Tag& tag) -> std::string& { return tag.ID3v2Extension.Copyright; }},
    {"Encoded by", [](ID3Tag& tag) -> std::string& { return tag.ID3v2Extension.EncodedBy; }},
};

TEST_F(APE2ReaderTest, Table_HasTheseKeysInThisOrder) {
    std::vector<std::string> keys;
    for (const APEItem& item : APEItems()) keys.emplace_back(item.key);
    std::vector<std::string> expected;
    for (const Target& target : Targets) expected.emplace_back(target.key);
    EXPECT_EQ(keys, expected);
}

TEST_F(APE2ReaderTest, Read_EachKeyInAnyCase_FillsItsFieldAlone) {
    for (const Target& target : Targets) {
        for (const std::string& key : {std::string(target.key), ToUpper(target.key), ToLower(target.key)}) {
            ID3Tag tag = Read(Ape().Item(key, "value"));
            EXPECT_TRUE(found);
            int filled = 0;
            for (const Target& each : Targets) filled += each.field(tag).empty() ? 0 : 1;
            EXPECT_EQ(target.field(tag), "value") << key;
            EXPECT_EQ(filled, 1) << key;
            EXPECT_EQ(tag.TrackNumber, 0) << key;
            EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "") << key;
        }
    }
}

TEST_F(APE2ReaderTest, Read_TitleWithMix_IsSplit) {
    const ID3Tag tag = Read(Ape().Item("Title", "Song (Mix)"));
    EXPECT_EQ(tag.Title, "Song");
    EXPECT_EQ(tag.Comment, "Mix");
    EXPECT_EQ(Read(Ape().Item("Title", "A (B) (C)")).Title, "A (B)");
    EXPECT_EQ(Read(Ape().Item("Title", " A (B) ")).Comment, "B");
}

TEST_F(APE2ReaderTest, Read_TitleWithoutMix_LeavesTheComment) {
    ID3Tag tag;
    tag.Comment = "before";
    ReadInto(tag, Ape().Item("Title", "Song (live").Bytes());
    EXPECT_EQ(tag.Title, "Song (live");
    EXPECT_EQ(tag.Comment, "before");
}

TEST_F(APE2ReaderTest, Read_Values_AreTrimmedUtf8) {
    EXPECT_EQ(Read(Ape().Item("Artist", "  Дом \t ")).Artist, "Дом \t");
    EXPECT_EQ(Read(Ape().Item("Artist", "\xC4\xEE")).Artist, "#");
    EXPECT_EQ(Read(Ape().Item("Artist", "One\0Two"s)).Artist, "One");
    EXPECT_EQ(Read(Ape().Item("Artist", "")).Artist, "");
}

TEST_F(APE2ReaderTest, Read_KeyTwice_TheLastCounts) {
    EXPECT_EQ(Read(Ape().Item("Artist", "One").Item("ARTIST", "Two")).Artist, "Two");
}

TEST_F(APE2ReaderTest, Read_EmptyValue_ReplacesAnOlderOne) {
    ID3Tag tag;
    tag.Artist = "ID3v1";
    ReadInto(tag, Ape().Item("Artist", "").Bytes());
    EXPECT_EQ(tag.Artist, "");
}

// Items that are not interpreted.

TEST_F(APE2ReaderTest, Read_UnknownItems_AreKeptRawAndCounted) {
    const ID3Tag tag = Read(
        Ape().Item("Publisher", " P\0\xFF"s, 6).Item("Album", "L").Item("", "no key").Item("Albums", "x", 1));
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames,
              ApeItem("Publisher", " P\0\xFF"s, 6) + ApeItem("", "no key") + ApeItem("Albums", "x", 1));
    EXPECT_EQ(tag.TrackNumber, 3);
    EXPECT_EQ(tag.Album, "L");
}

TEST_F(APE2ReaderTest, Read_UnknownItems_AddToTheTrack) {
    ID3Tag tag;
    tag.TrackNumber = 7;
    ReadInto(tag, Ape().Item("Publisher", "P").Bytes());
    EXPECT_EQ(tag.TrackNumber, 8);
}

TEST_F(APE2ReaderTest, Read_UnknownItemsPassedOver_AreStillCounted) {
    const ID3Tag tag =
        Read(Ape().Item("Publisher", "P").Item("Album", "L").Bytes(), UnknownContent::PassOver);
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "");
    EXPECT_EQ(tag.TrackNumber, 1);
    EXPECT_EQ(tag.Album, "L");
}

TEST_F(APE2ReaderTest, Read_KeyOfAnyLength_IsOneItem) {
    for (const std::size_t length : {55U, 56U, 57U, 4095U, 4096U, 4097U, 9000U}) {
        const std::string key(length, 'k');
        const ID3Tag tag = Read(Ape().Item(key, "v").Item("Artist", "A"));
        EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, ApeItem(key, "v")) << length;
        EXPECT_EQ(tag.Artist, "A") << length;
    }
}

TEST_F(APE2ReaderTest, Read_UpTo255UnknownItems_TheNextIsAFailure) {
    Ape tag;
    for (int i = 0; i < 255; ++i) tag.Item("k", "");
    EXPECT_EQ(Read(tag).TrackNumber, 255);
    tag.Item("k", "");
    EXPECT_EQ(RuntimeErrorOf([&] { Read(tag); }), 6);
}

// Whether there is a tag.

TEST_F(APE2ReaderTest, Read_NoTag_IsFalseAndChangesNothing) {
    ID3Tag tag;
    tag.ID3v2Extension.UnknownFrames = "frames";
    for (std::size_t length : {0U, 1U, 31U, 32U, 300U}) {
        ReadInto(tag, Audio(length));
        EXPECT_FALSE(found);
    }
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "frames");
}

TEST_F(APE2ReaderTest, Read_TagBeforeAnID3v1Tag_IsNotFound) {
    Read(Ape().Item("Artist", "A").Bytes() + Id3v1{"T"}.Bytes());
    EXPECT_FALSE(found);
}

TEST_F(APE2ReaderTest, Read_OtherVersionInTheFooter_IsTrueAndChangesNothing) {
    for (const std::int32_t version : {0, 1000, 1999, 2001, Largest}) {
        ID3Tag tag;
        tag.ID3v2Extension.UnknownFrames = "frames";
        tag.ID3v2Extension.MajorVersion = 3;
        ReadInto(tag, Ape().Item("Artist", "A").Version(version).Bytes());
        EXPECT_TRUE(found);
        EXPECT_EQ(tag.Artist, "");
        EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "frames");
        EXPECT_EQ(tag.ID3v2Extension.MajorVersion, 3);
        EXPECT_EQ(tag.ID3v2Extension.TagSize, 0);
    }
}

TEST_F(APE2ReaderTest, Read_Found_ForgetsTheFramesOfAnotherTag) {
    for (const Ape& bytes : {Ape().Item("Artist", "A"), Ape().Item("Artist", "A").WithoutHeader()}) {
        ID3Tag tag;
        tag.ID3v2Extension.UnknownFrames = "frames";
        ReadInto(tag, bytes.Bytes());
        EXPECT_TRUE(found);
        EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "");
    }
}

TEST_F(APE2ReaderTest, Read_Usable_HasVersionAndSize) {
    ID3Tag tag;
    tag.ID3v2Extension.MajorVersion = 3;
    tag.ID3v2Extension.MinorVersion = 1;
    ReadInto(tag, audio + Ape().Item("Artist", "A").Bytes());
    EXPECT_EQ(tag.ID3v2Extension.MajorVersion, 0);
    EXPECT_EQ(tag.ID3v2Extension.MinorVersion, 0);
    EXPECT_EQ(tag.ID3v2Extension.TagSize, 8 + 6 + 1 + 1 + 32);
}

TEST_F(APE2ReaderTest, Read_TagWithoutHeader_GivesItsSizeAndNoItems) {
    ID3Tag tag;
    tag.ID3v2Extension.MajorVersion = 3;
    ReadInto(tag, audio + Ape().Item("Artist", "A").WithoutHeader().Bytes());
    EXPECT_TRUE(found);
    EXPECT_EQ(tag.Artist, "");
    EXPECT_EQ(tag.ID3v2Extension.TagSize, 48);
    EXPECT_EQ(tag.ID3v2Extension.MajorVersion, 3);
}

TEST_F(APE2ReaderTest, Read_FooterThatKnowsOfNoHeader_GivesNoItems) {
    for (const int flags : {0x00, 0x20, 0x7F}) {
        const ID3Tag tag = Read(Ape().Item("Artist", "A").FooterFlags(static_cast<std::uint8_t>(flags)));
        EXPECT_TRUE(found);
        EXPECT_EQ(tag.Artist, "");
    }
}

TEST_F(APE2ReaderTest, Read_UnusableHeader_GivesNoItems) {
    const Ape whole = Ape().Item("Artist", "A");
    std::string noMarker = whole.Bytes();
    noMarker[0] = 'B';
    for (const std::string& bytes :
         {noMarker, Ape(whole).HeaderVersion(1000).Bytes(), Ape(whole).HeaderFlags(0x80).Bytes(),
          Ape(whole).HeaderFlags(0x20).Bytes(), whole.Bytes().substr(1), Ape(whole).Size(31).Bytes()}) {
        const ID3Tag tag = Read(bytes);
        EXPECT_TRUE(found);
        EXPECT_EQ(tag.Artist, "");
    }
}

TEST_F(APE2ReaderTest, Read_FurtherFlagBits_DoNotMatter) {
    EXPECT_EQ(Read(Ape().Item("Artist", "A").HeaderFlags(0xFF).FooterFlags(0xC1)).Artist, "A");
}

TEST_F(APE2ReaderTest, Read_SizeAndCountOfTheHeader_AreTheOnesThatCount) {
    const std::string items = ApeItem("Artist", "A") + ApeItem("Album", "L");
    const auto size = static_cast<std::int32_t>(items.size()) + 32;
    const ID3Tag tag = Read(ApeBlock{.size = 7, .count = 1, .flags = 0xA0}.Bytes() + items +
                            ApeBlock{.size = size, .count = 2}.Bytes());
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_EQ(tag.Album, "");
    EXPECT_EQ(tag.ID3v2Extension.TagSize, 7);
}

// Hostile tags.

TEST_F(APE2ReaderTest, Read_KeyWithoutNul_EndsTheReading) {
    const ID3Tag tag = Read(Ape().Item("Artist", "A").Raw("\1\0\0\0\0\0\0\0endless"s));
    EXPECT_TRUE(found);
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_EQ(tag.TrackNumber, 0);
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "");
}

TEST_F(APE2ReaderTest, Read_ItemShorterThanItsPrefix_EndsTheReading) {
    for (std::size_t length = 1; length <= 8; ++length) {
        const ID3Tag tag = Read(Ape().Item("Artist", "A").Raw(std::string(length, '\0')));
        EXPECT_TRUE(found);
        EXPECT_EQ(tag.Artist, "A");
        EXPECT_EQ(tag.TrackNumber, 0);
    }
}

TEST_F(APE2ReaderTest, Read_ImpossibleItemLength_EndsTheReading) {
    for (const std::int32_t length : {-1, Smallest, 6, 1000, Largest}) {
        for (const char* key : {"Album", "Publisher"}) {
            const ID3Tag tag =
                Read(Ape().Item("Artist", "A").Raw(ApeItem(key, "value", 0, length)).Item("Year", "1999"));
            EXPECT_TRUE(found);
            EXPECT_EQ(tag.Artist, "A");
            if (length != 6) {
                EXPECT_EQ(tag.Album + tag.Year, "") << length;
                EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "") << length;
            }
        }
    }
}

TEST_F(APE2ReaderTest, Read_ValueThatReachesIntoTheFooter_IsNotTaken) {
    const ID3Tag tag = Read(Ape().Raw(ApeItem("Album", "value", 0, 6)));
    EXPECT_TRUE(found);
    EXPECT_EQ(tag.Album, "");
}

TEST_F(APE2ReaderTest, Read_CountBeyondTheItems_EndsWithThem) {
    for (const std::int32_t count : {2, 1000, Largest}) {
        const ID3Tag tag = Read(Ape().Item("Artist", "A").Count(count));
        EXPECT_TRUE(found);
        EXPECT_EQ(tag.Artist, "A");
        EXPECT_EQ(tag.TrackNumber, 0);
    }
}

TEST_F(APE2ReaderTest, Read_CountBelowTheItems_LeavesTheRest) {
    const Ape tag = Ape().Item("Artist", "A").Item("Album", "L");
    EXPECT_EQ(Read(Ape(tag).Count(1)).Album, "");
    EXPECT_EQ(Read(Ape(tag).Count(0)).Artist, "");
    EXPECT_EQ(Read(Ape(tag).Count(-1)).Artist, "");
}

TEST_F(APE2ReaderTest, Read_ImpossibleSize_GivesNoItems) {
    for (const std::int32_t size : {Smallest, Smallest + 16, -33, -32, -31, -1, 0, 16, 5000, Largest}) {
        const ID3Tag tag = Read(Ape().Item("Artist", "A").Size(size));
        EXPECT_TRUE(found) << size;
        EXPECT_EQ(tag.Artist, "") << size;
        EXPECT_EQ(tag.ID3v2Extension.TagSize, size);
    }
}

TEST_F(APE2ReaderTest, Read_FooterThatCallsItselfTheHeader_GivesNoItems) {
    Read(audio + ApeBlock{.size = 0, .count = Largest, .flags = 0xA0}.Bytes());
    EXPECT_TRUE(found);
}

TEST_F(APE2ReaderTest, Read_EveryByteChanged_ReadsWithoutHarm) {
    const std::string whole = Ape().Item("Title", "T (M)").Item("Cover", "\xFF\0x"s).Bytes();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const char byte : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
            std::string damaged = whole;
            damaged[at] = byte;
            const int failure = RuntimeErrorOf([&] { Read(Audio(20) + damaged); });
            EXPECT_EQ(failure, 0) << at;
        }
    }
}

TEST_F(APE2ReaderTest, Read_CutAtBothEnds_ReadsWithoutHarm) {
    const std::string whole = Audio(20) + Ape().Item("Title", "T (M)").Item("Cover", "x").Bytes();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(RuntimeErrorOf([&] { Read(whole.substr(0, length)); }), 0);
        EXPECT_EQ(RuntimeErrorOf([&] { Read(whole.substr(whole.size() - length)); }), 0);
    }
}

// What it costs.

TEST_F(APE2ReaderTest, Read_LargeCover_IsNotReadWhereItIsNotWanted) {
    const std::string cover(1000000, 'c');
    const std::string path = folder.Write(
        "c.mpc",
        audio + Ape().Item("Artist", "A").Item("Cover Art (Front)", cover, 2).Item("Album", "L").Bytes());
    FaultInjectingFileSystem counting(files);
    BufferedFile file(counting.OpenReadOnly(path), {4096, 4096});
    counting.faults.operations = 0;
    ID3Tag tag;
    ReadAPE2(file, tag, UnknownContent::PassOver);
    EXPECT_EQ(tag.Artist + tag.Album, "AL");
    EXPECT_EQ(tag.TrackNumber, 1);
    EXPECT_LE(counting.faults.operations, 2);
    ReadAPE2(file, tag, UnknownContent::Keep);
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, ApeItem("Cover Art (Front)", cover, 2));
}

TEST_F(APE2ReaderTest, Read_FailingDevice_GoesUp) {
    const std::string path = folder.Write("c.mpc", audio + Ape().Item("Artist", "A").Bytes());
    for (int n = 2; n <= 5; ++n) {
        FaultInjectingFileSystem failing(files);
        failing.faults.plan = {FaultPlan::Mode::OnlyTheNth, n, ErrorNumber::DeviceIoError};
        const auto file = failing.OpenReadOnly(path);
        ID3Tag tag;
        EXPECT_EQ(RuntimeErrorOf([&] { ReadAPE2(*file, tag, UnknownContent::Keep); }), 57) << n;
    }
}

}  // namespace
}  // namespace zefta::test
