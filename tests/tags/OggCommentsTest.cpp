// What the writer puts into a stream and what it leaves alone.

#include <filesystem>

#include <gtest/gtest.h>

#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "tags/OggCommentKeys.h"
#include "tags/OggFile.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

constexpr int OnePageOfSegments = 255;

class OggCommentsTest : public ::testing::Test {
  protected:
    /// The file with this content after the record was written to it.
    std::string Written(const std::string& bytes, ID3Tag record, const std::string& name = "a.ogg") {
        record.Path = app.folder.Write(name, bytes);
        SetOggComments(app, record);
        EXPECT_TRUE(app.desktop.boxes.empty());
        EXPECT_EQ(app.folder.Exists(name + ".tmp"), hasForeignTemporaryFile);
        return app.folder.Read(name);
    }

    bool hasForeignTemporaryFile = false;

    std::string Written(const Ogg& ogg, const ID3Tag& record) { return Written(ogg.Bytes(), record); }

    /// The comment header that the record gives behind the builder's vendor.
    std::string HeaderOf(const ID3Tag& record) { return PacketsOf(PagesOf(Written(Ogg(), record))).at(1); }

    ID3Tag ReadBack() {
        ID3Tag tag;
        ReadOGGFile({app.files, app.ansi}, app.folder / "a.ogg", tag);
        return tag;
    }

    /// A record whose comment header, with the builder's vendor, is a packet of that length.
    static ID3Tag RecordOfLength(std::size_t packetLength) {
        const std::size_t around = CommentPacket("Test vendor 1.0", {"X="}).size();
        ID3Tag record;
        record.OggVorbisExtension.addExCom("X=" + std::string(packetLength - around, 'x'));
        return record;
    }

    static Ogg StreamOfLength(std::size_t packetLength) {
        return Ogg().Comment(RecordOfLength(packetLength).OggVorbisExtension.getExComValue(1));
    }

    TestApp app;
};

ID3Tag FullRecord() {
    ID3Tag record;
    record.Artist = "Artist Ä";
    record.Title = "Title (Part 1)";
    record.Comment = "Mix Дом";
    record.Album = "Album";
    record.Year = "1999";
    record.ID3v2Extension.TrackNumber = "3/12";
    record.ID3v2Extension.Genre = "Genre";
    record.ID3v2Extension.Comments = "Comments\nin two lines";
    record.ID3v2Extension.EncodedBy = "Someone";
    record.OggVorbisExtension.DateTime = "2001-05-01";
    record.OggVorbisExtension.addExCom("ENCODER=z");
    record.OggVorbisExtension.addExCom("no key");
    return record;
}

// The comment header.

TEST_F(OggCommentsTest, Header_FullRecord_HoldsVendorFieldsAndExtendedComments) {
    const std::vector<std::string> lines = {"ARTIST=Artist Ä",
                                            "ALBUM=Album",
                                            "TRACKNUMBER=3/12",
                                            "DATE=2001-05-01",
                                            "TITLE=Title (Part 1) (Mix Дом)",
                                            "GENRE=Genre",
                                            "COMMENT=Comments\nin two lines",
                                            "ENCODED BY=Someone",
                                            "ENCODER=z",
                                            "no key"};
    EXPECT_EQ(HeaderOf(FullRecord()), CommentPacket("Test vendor 1.0", lines));
}

TEST_F(OggCommentsTest, Header_FullRecord_ReadsBackToTheSameFields) {
    const ID3Tag expected = FullRecord();
    Written(Ogg(), expected);
    const ID3Tag tag = ReadBack();
    EXPECT_EQ(tag.Artist, expected.Artist);
    EXPECT_EQ(tag.Title, expected.Title);
    EXPECT_EQ(tag.Comment, expected.Comment);
    EXPECT_EQ(tag.Album, expected.Album);
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, expected.ID3v2Extension.TrackNumber);
    EXPECT_EQ(tag.ID3v2Extension.Genre, expected.ID3v2Extension.Genre);
    EXPECT_EQ(tag.ID3v2Extension.Comments, expected.ID3v2Extension.Comments);
    EXPECT_EQ(tag.ID3v2Extension.EncodedBy, expected.ID3v2Extension.EncodedBy);
    EXPECT_EQ(tag.OggVorbisExtension.DateTime, expected.OggVorbisExtension.DateTime);
    EXPECT_EQ(tag.OggVorbisExtension.getExComInOneString(), "ENCODER=z\0no key"s);
    EXPECT_EQ(tag.Year, "");
}

TEST_F(OggCommentsTest, Header_EachWrittenKey_IsReadByTheSameRow) {
    for (const OggCommentKey& row : OggCommentKeys()) {
        ID3Tag record;
        row.read(record, {" value ", app.ansi});
        if (!row.write) continue;
        EXPECT_EQ(row.write(record), "value") << row.key;
        Written(Ogg(), record);
        EXPECT_EQ(row.write(ReadBack()), "value") << row.key;
    }
}

TEST_F(OggCommentsTest, Header_EmptyOrBlankFields_AreLeftOut) {
    EXPECT_EQ(HeaderOf(ID3Tag()), CommentPacket("Test vendor 1.0", {}));
    ID3Tag blank = FullRecord();
    blank.OggVorbisExtension.removeAllExCom();
    for (std::string* field :
         {&blank.Artist, &blank.Title, &blank.Comment, &blank.Album, &blank.OggVorbisExtension.DateTime,
          &blank.ID3v2Extension.TrackNumber, &blank.ID3v2Extension.Genre, &blank.ID3v2Extension.Comments,
          &blank.ID3v2Extension.EncodedBy})
        *field = " ";
    EXPECT_EQ(HeaderOf(blank), CommentPacket("Test vendor 1.0", {}));
}

TEST_F(OggCommentsTest, Header_Fields_AreTrimmed) {
    ID3Tag record;
    record.Artist = "  A ";
    record.Title = " T ";
    record.Comment = " M ";
    record.OggVorbisExtension.DateTime = " 2001 ";
    EXPECT_EQ(HeaderOf(record), CommentPacket("Test vendor 1.0", {"ARTIST=A", "DATE=2001", "TITLE=T (M)"}));
    record.Title = " ";
    EXPECT_EQ(HeaderOf(record), CommentPacket("Test vendor 1.0", {"ARTIST=A", "DATE=2001", "TITLE=(M)"}));
}

TEST_F(OggCommentsTest, Header_YearAlone_IsNotWritten) {
    ID3Tag record;
    record.Year = "1999";
    EXPECT_EQ(HeaderOf(record), CommentPacket("Test vendor 1.0", {}));
}

TEST_F(OggCommentsTest, Header_ExtendedComments_StandAsTheyAre) {
    ID3Tag record;
    const std::vector<std::string> lines = {" A= b ", "A=\0B"s, "\xFF\xFE", "=", "artist=x", "A= b "};
    for (const std::string& line : lines) record.OggVorbisExtension.addExCom(line);
    EXPECT_EQ(HeaderOf(record), CommentPacket("Test vendor 1.0", lines));
}

TEST_F(OggCommentsTest, Header_AsManyExtendedCommentsAsCanBeCounted_AreAllWritten) {
    ID3Tag record;
    const std::vector<std::string> lines(32767, "X=y");
    for (const std::string& line : lines) record.OggVorbisExtension.addExCom(line);
    EXPECT_TRUE(HeaderOf(record) == CommentPacket("Test vendor 1.0", lines));
}

TEST_F(OggCommentsTest, Header_Vendor_IsKeptByteForByte) {
    for (const std::string& vendor : {""s, " \xFF Дом\0 "s, std::string(70000, 'v')}) {
        const std::string written = Written(Ogg().Vendor(vendor).Comment("X=y"), ID3Tag());
        EXPECT_EQ(PacketsOf(PagesOf(written)).at(1), CommentPacket(vendor, {}));
    }
}

TEST_F(OggCommentsTest, Header_PaddingBehindTheFramingBit_IsDropped) {
    const std::string padded = CommentPacket("Test vendor 1.0", {"X=y"}) + std::string(1000, '\0');
    const std::string written = Written(Ogg().CommentHeader(padded), ID3Tag());
    EXPECT_EQ(written, Ogg().Bytes());
}

TEST_F(OggCommentsTest, Header_ValuesOf100000Bytes_HaveLengthsOf32Bits) {
    ID3Tag record;
    record.ID3v2Extension.Comments = std::string(100000, 'c');
    EXPECT_EQ(HeaderOf(record), CommentPacket("Test vendor 1.0", {"COMMENT=" + std::string(100000, 'c')}));
}

// The pages.

TEST_F(OggCommentsTest, Pages_SameNumberOfThem_OnlyTheCommentPageDiffers) {
    const Ogg before = Ogg().Comment("X=y").Serial(0xFFFFFFFE);
    ID3Tag record;
    record.Artist = "A";
    EXPECT_EQ(Written(before, record), Ogg().Comment("ARTIST=A").Serial(0xFFFFFFFE).Bytes());
}

TEST_F(OggCommentsTest, Pages_EveryPairOfHeaderLengths_GivesTheStreamThatAnEncoderWrites) {
    // Around the segment of 255 bytes, the page of 255 segments (with the setup header's three on it and
    // without) and two such pages.
    std::vector<std::size_t> lengths = {60, 254, 255, 256, 509, 510, 511};
    for (const int pages : {1, 2}) {
        for (int segments = OnePageOfSegments * pages - 5; segments <= OnePageOfSegments * pages + 2;
             ++segments) {
            for (const int more : {-1, 0, 1})
                lengths.push_back(static_cast<std::size_t>(255 * segments + more));
        }
    }
    for (const std::size_t length : lengths) {
        const std::string expected = StreamOfLength(length).Bytes();
        for (const std::size_t before : {std::size_t{100}, std::size_t{65000}, std::size_t{131000}}) {
            const std::string written = Written(StreamOfLength(before), RecordOfLength(length));
            EXPECT_TRUE(written == expected) << before << " to " << length;
        }
    }
}

TEST_F(OggCommentsTest, Pages_HeaderThatGrows_KeepsAudioUnderHigherNumbers) {
    const std::vector<TestPage> before = Ogg().Pages();
    std::vector<TestPage> after = PagesOf(Written(Ogg(), RecordOfLength(200000)));
    ASSERT_EQ(after.size(), before.size() + 3);
    EXPECT_EQ(after[0], before[0]);
    for (std::size_t i = 2; i < before.size(); ++i) {
        TestPage moved = before[i];
        moved.number += 3;
        EXPECT_EQ(after[i + 3], moved);
    }
    const int flags[] = {2, 0, 1, 1, 1};
    const std::int64_t granules[] = {0, -1, -1, -1, 0};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(after[i].number, i);
        EXPECT_EQ(after[i].flags, flags[i]) << i;
        EXPECT_EQ(after[i].granule, granules[i]) << i;
    }
}

TEST_F(OggCommentsTest, Pages_HeaderThatShrinks_GivesTheFormerFileBack) {
    const std::string original = Ogg().Comment("ARTIST=A").Bytes();
    app.folder.Write("a.ogg", original);
    const ID3Tag former = ReadBack();
    const std::string grown = Written(original, RecordOfLength(1000000));
    EXPECT_EQ(PagesOf(grown).size(), PagesOf(original).size() + 15);
    EXPECT_EQ(Written(grown, former), original);
}

TEST_F(OggCommentsTest, Pages_SetupHeaderOnItsOwnPage_StaysThere) {
    ID3Tag record;
    record.Artist = "A";
    const auto source = [] { return Ogg().Comment("X=y").SetupOnFreshPage(); };
    EXPECT_EQ(Written(source(), record), Ogg().Comment("ARTIST=A").SetupOnFreshPage().Bytes());
    const std::string grown = Written(source(), RecordOfLength(70000));
    EXPECT_EQ(grown, StreamOfLength(70000).SetupOnFreshPage().Bytes());
    EXPECT_EQ(Written(grown, record), Ogg().Comment("ARTIST=A").SetupOnFreshPage().Bytes());
}

TEST_F(OggCommentsTest, Pages_SetupHeaderOfSeveralPages_IsLaidOutBehindTheComments) {
    const auto setup = [](Ogg ogg) { return ogg.SetupLength(150000); };
    EXPECT_EQ(Written(setup(Ogg()), RecordOfLength(70000)), setup(StreamOfLength(70000)).Bytes());
    EXPECT_EQ(Written(setup(StreamOfLength(70000)), ID3Tag()), setup(Ogg()).Bytes());
    EXPECT_EQ(Written(setup(Ogg().SetupOnFreshPage()), RecordOfLength(70000)),
              setup(StreamOfLength(70000).SetupOnFreshPage()).Bytes());
}

TEST_F(OggCommentsTest, Pages_HeadersOnSmallPages_AreLaidOutOnFullOnes) {
    std::vector<TestPage> pages = StreamOfLength(2000).Pages();
    TestPage cut = pages[1];
    TestPage rest = pages[1];
    cut.lacing.resize(4);
    cut.body.resize(4 * 255);
    cut.granule = -1;
    rest.lacing.erase(0, 4);
    rest.body.erase(0, 4 * 255);
    rest.flags = 1;
    pages[1] = cut;
    pages.insert(pages.begin() + 2, rest);
    for (std::size_t i = 2; i < pages.size(); ++i) ++pages[i].number;
    EXPECT_EQ(Written(BytesOf(pages), ID3Tag()), Ogg().Bytes());
}

TEST_F(OggCommentsTest, Pages_LastPageFlag_StaysWhereItIs) {
    const auto flagsOf = [](const std::string& bytes) { return PagesOf(bytes).back().flags; };
    EXPECT_EQ(flagsOf(Written(Ogg(), RecordOfLength(70000))), 4);
    std::vector<TestPage> withoutEnd = Ogg().Pages();
    withoutEnd.back().flags = 0;
    EXPECT_EQ(flagsOf(Written(BytesOf(withoutEnd), RecordOfLength(70000))), 0);
}

TEST_F(OggCommentsTest, Pages_StreamWithoutAudio_EndsWithItsHeaders) {
    for (const bool fresh : {false, true}) {
        const auto stream = [&](Ogg ogg) {
            return fresh ? ogg.SetupOnFreshPage().AudioPages(0) : ogg.AudioPages(0);
        };
        const std::string grown = Written(stream(Ogg()), RecordOfLength(70000));
        EXPECT_EQ(grown, stream(StreamOfLength(70000)).Bytes());
        EXPECT_EQ(PagesOf(grown).back().flags & 4, 4);
        EXPECT_EQ(Written(grown, ID3Tag()), stream(Ogg()).Bytes());
    }
}

TEST_F(OggCommentsTest, Pages_NumbersThatDoNotBeginAt0_GoOnFromThere) {
    const std::uint32_t nearTheEnd = 0xFFFFFFFD;
    EXPECT_EQ(Written(Ogg().FirstNumber(nearTheEnd), RecordOfLength(200000)),
              StreamOfLength(200000).FirstNumber(nearTheEnd).Bytes());
}

TEST_F(OggCommentsTest, Pages_NumberMissingAmongTheAudio_StaysMissing) {
    std::vector<TestPage> pages = Ogg().Pages();
    pages.erase(pages.begin() + 4);
    const std::vector<TestPage> after = PagesOf(Written(BytesOf(pages), RecordOfLength(70000)));
    EXPECT_EQ(after.back().number, pages.back().number + 1);
    EXPECT_EQ(after[5].number - after[4].number, 2U);
}

TEST_F(OggCommentsTest, Pages_ManyOfThem_AllPassThrough) {
    const std::string written = Written(Ogg().AudioPages(2000), RecordOfLength(70000));
    EXPECT_TRUE(written == StreamOfLength(70000).AudioPages(2000).Bytes());
}

// Once more.

TEST_F(OggCommentsTest, SecondWrite_OfWhatWasRead_LeavesTheFileAlone) {
    const std::string once =
        Written(Ogg().Comment("YEAR=1999").Comment("title=a (b)").Comment("x=y"), FullRecord());
    const ID3Tag read = ReadBack();
    const auto time = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(app.folder / "a.ogg", time);
    SetOggComments(app, read);
    EXPECT_EQ(app.folder.Read("a.ogg"), once);
    EXPECT_EQ(std::filesystem::last_write_time(app.folder / "a.ogg"), time);
}

TEST_F(OggCommentsTest, SecondWrite_OfAnotherWritersComments_IsStable) {
    const std::string first = Ogg().Comment("title=A (B)").Comment("artist=1").Comment("Artist= 2 ").Bytes();
    app.folder.Write("a.ogg", first);
    const std::string once = Written(first, ReadBack());
    EXPECT_NE(once, first);
    EXPECT_EQ(Written(once, ReadBack()), once);
}

// The file.

TEST_F(OggCommentsTest, File_OfAnotherKindByName_IsLeftAlone) {
    for (const char* name : {"x.mp3", "x.ogg.bak", "x.oga", "og"})
        EXPECT_EQ(Written(Ogg().Bytes(), FullRecord(), name), Ogg().Bytes()) << name;
}

TEST_F(OggCommentsTest, File_NameInAnyCaseAndWithoutDot_IsWritten) {
    for (const char* name : {"x.OGG", "xOgg", "ogg"})
        EXPECT_NE(Written(Ogg().Bytes(), FullRecord(), name), Ogg().Bytes()) << name;
}

TEST_F(OggCommentsTest, File_NotThere_IsNotMade) {
    ID3Tag record = FullRecord();
    for (const std::string& path : {app.folder / "none.ogg", ""s, app.folder / "folder.ogg"}) {
        if (path.ends_with("folder.ogg")) app.files.CreateFolder(path);
        record.Path = path;
        SetOggComments(app, record);
        EXPECT_FALSE(app.files.FileExists(path));
    }
    EXPECT_EQ(app.files.List(app.folder.Path()).size(), 1U);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(OggCommentsTest, File_ReadOnly_IsReplacedAndStaysReadOnly) {
    ID3Tag record = FullRecord();
    record.Path = app.folder.Write("a.ogg", Ogg().Bytes());
    app.files.SetReadOnly(record.Path, true);
    SetOggComments(app, record);
    EXPECT_NE(app.folder.Read("a.ogg"), Ogg().Bytes());
    EXPECT_TRUE(app.files.IsReadOnly(record.Path));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(OggCommentsTest, File_BehindALink_IsWrittenAndTheLinkStays) {
    app.files.CreateFolder(app.folder / "elsewhere");
    app.folder.Write("elsewhere/real.ogg", Ogg().Bytes());
    std::filesystem::create_symlink("elsewhere/real.ogg", app.folder / "link.ogg");
    ID3Tag record = FullRecord();
    record.Path = app.folder / "link.ogg";
    SetOggComments(app, record);
    EXPECT_TRUE(std::filesystem::is_symlink(app.folder / "link.ogg"));
    EXPECT_NE(app.folder.Read("elsewhere/real.ogg"), Ogg().Bytes());
}

TEST_F(OggCommentsTest, File_ForeignTemporaryFile_Stays) {
    app.folder.Write("a.ogg.tmp", "somebody's");
    hasForeignTemporaryFile = true;
    const std::string written = Written(Ogg(), FullRecord());
    EXPECT_NE(written, Ogg().Bytes());
    EXPECT_EQ(PagesOf(written).size(), Ogg().Pages().size());
    EXPECT_EQ(app.folder.Read("a.ogg.tmp"), "somebody's");
    EXPECT_FALSE(app.folder.Exists("a.ogg~1.tmp"));
}

}  // namespace
}  // namespace zefta::test
