#include <gtest/gtest.h>

#include "platform/posix/PosixFileSystem.h"
#include "support/CountingFileSystem.h"
#include "support/ExpectRuntimeError.h"
#include "support/OggBuilder.h"
#include "support/TempFolder.h"
#include "tags/OggFile.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

/// Stretches the stream to a length of its whole file by bytes that are no page, ahead of its last page.
std::string Stretched(const Ogg& ogg, std::size_t length) {
    std::vector<TestPage> pages = ogg.Pages();
    const std::string last = pages.back().Bytes();
    pages.pop_back();
    const std::string ahead = BytesOf(pages);
    return ahead + std::string(length - ahead.size() - last.size(), '.') + last;
}

class OggFileTest : public ::testing::Test {
  protected:
    const ID3Tag& Read(const std::string& bytes) { return ReadPath(folder.Write("a.ogg", bytes)); }

    const ID3Tag& ReadPath(const std::string& path) {
        tag = ID3Tag();
        ReadOGGFile({files, ansi}, path, tag);
        return tag;
    }

    /// Reads a stream that has these comments.
    const ID3Tag& ReadComments(const std::vector<std::string>& lines) {
        Ogg ogg;
        for (const std::string& line : lines) ogg.Comment(line);
        return Read(ogg.Bytes());
    }

    std::vector<std::string> ExtendedComments() const {
        std::vector<std::string> lines;
        for (std::int16_t i = 1; i <= tag.OggVorbisExtension.getExComCount(); ++i)
            lines.push_back(tag.OggVorbisExtension.getExComValue(i));
        return lines;
    }

    int ErrorOf(const std::string& bytes) {
        return RuntimeErrorOf([&] { Read(bytes); });
    }

    TempFolder folder;
    PosixFileSystem files;
    CodePage ansi = LoadCodePage(1252);
    ID3Tag tag;
};

// What a file is.

TEST_F(OggFileTest, Read_FileThatCantBeOpened_HasNoPath) {
    EXPECT_EQ(ReadPath(folder / "none.ogg").Path, "");
    EXPECT_FALSE(tag.AllowEdits);
    EXPECT_FALSE(tag.IsOggVorbisFile);
}

TEST_F(OggFileTest, Read_FileOfAnotherKind_HasPathAndLengthOnly) {
    for (const std::string& bytes :
         {"RIFF"s + std::string(20000, 'O'), ""s, "Og"s, "oggs"s + Ogg().Bytes()}) {
        EXPECT_EQ(Read(bytes).Path, folder / "a.ogg");
        EXPECT_EQ(tag.Length, static_cast<std::int32_t>(bytes.size()));
        EXPECT_FALSE(tag.IsOggVorbisFile);
        EXPECT_TRUE(tag.AllowEdits);
        EXPECT_FALSE(tag.VBR);
        EXPECT_EQ(tag.OggVorbisExtension.LibVorbisVersion, "");
    }
}

TEST_F(OggFileTest, Read_Stream_FillsTheRecord) {
    const std::string bytes = Stretched(Ogg().Vendor("  Vendor 1 ").Samples(441000), 160000);
    Read(bytes);
    EXPECT_EQ(tag.Path, folder / "a.ogg");
    EXPECT_EQ(tag.Length, 160000);
    EXPECT_TRUE(tag.IsOggVorbisFile);
    EXPECT_TRUE(tag.AllowEdits);
    EXPECT_FALSE(tag.ReadOnly);
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_EQ(tag.Bitrate, 128);
    EXPECT_EQ(tag.OggVorbisExtension.PagesCount, 6);
    EXPECT_EQ(tag.OggVorbisExtension.LibVorbisVersion, "Vendor 1");
    EXPECT_EQ(tag.SampleRate, 0);
    EXPECT_EQ(tag.ChannelMode, 0);
    EXPECT_EQ(tag.Frames, 0);
    EXPECT_EQ(tag.Genre, 255);
    EXPECT_EQ(tag.TrackNumber, 0);
}

TEST_F(OggFileTest, Read_PathWithDoubledSeparators_HoldsSingleOnes) {
    folder.Write("a.ogg", Ogg().Bytes());
    EXPECT_EQ(ReadPath(folder.Path() + "//a.ogg").Path, folder / "a.ogg");
}

TEST_F(OggFileTest, Read_ReadOnlyFile_IsMarked) {
    files.SetReadOnly(folder.Write("a.ogg", Ogg().Bytes()), true);
    EXPECT_TRUE(ReadPath(folder / "a.ogg").ReadOnly);
}

TEST_F(OggFileTest, Read_LargeFile_TakesTwoReads) {
    CountingFileSystem counting;
    folder.Write("a.ogg", Stretched(Ogg().Comment("ARTIST=A"), 300000));
    ReadOGGFile({counting, ansi}, folder / "a.ogg", tag);
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_EQ(counting.count.opens, 1);
    EXPECT_EQ(counting.count.reads, 2);
    EXPECT_EQ(counting.count.bytes, 4100U + 8192U);
}

// The comments.

struct KeyCase {
    std::vector<std::string> lines;
    std::function<std::string(const ID3Tag&)> field;
    std::string expected;
};

TEST_F(OggFileTest, Comments_EachKey_FillsItsFieldByItsRule) {
    const auto artist = [](const ID3Tag& t) { return t.Artist; };
    const auto album = [](const ID3Tag& t) { return t.Album; };
    const auto track = [](const ID3Tag& t) { return t.ID3v2Extension.TrackNumber; };
    const auto year = [](const ID3Tag& t) { return t.Year; };
    const auto date = [](const ID3Tag& t) { return t.OggVorbisExtension.DateTime; };
    const auto title = [](const ID3Tag& t) { return t.Title; };
    const auto mix = [](const ID3Tag& t) { return t.Comment; };
    const auto genre = [](const ID3Tag& t) { return t.ID3v2Extension.Genre; };
    const auto comments = [](const ID3Tag& t) { return t.ID3v2Extension.Comments; };
    const auto encodedBy = [](const ID3Tag& t) { return t.ID3v2Extension.EncodedBy; };
    const KeyCase cases[] = {
        {{"ARTIST=A", "artist=B"}, artist, "A, B"},
        {{"artist=  Дом  "}, artist, "Дом"},
        {{"ArTiSt=a=b"}, artist, "a=b"},
        {{"artist="}, artist, ""},
        {{"artist=A", "artist="}, artist, "A, "},
        {{"artist=\xC4"}, artist, "#"},
        {{"artist=A", "artist=\xC4"}, artist, "A, #"},
        {{"artist=A\0B"s}, artist, "A"},
        {{"Album=A", "ALBUM=B"}, album, "A, B"},
        {{"album=\xFF"}, album, "#"},
        {{"tracknumber= 3 ", "TRACKNUMBER= 4/12 "}, track, "4/12"},
        {{"tracknumber=0"}, track, "0"},
        {{"year=1999"}, year, "1999"},
        {{"year=1999"}, date, "1999"},
        {{"year=1999", "YEAR=2000"}, year, "2000"},
        {{"year=1999", "year=2000"}, date, "1999"},
        {{"date=2001"}, year, "2001"},
        {{"date=2001"}, date, "2001"},
        {{"date=2001-05-01"}, date, "2001-05-01"},
        {{"date=2001-05-01"}, year, ""},
        {{"date=2001", "year=1999"}, year, "1999"},
        {{"date=2001", "year=1999"}, date, "2001"},
        {{"year=1999", "date=2001-05-01"}, date, "2001-05-01"},
        {{"year=1999", "date=2001-05-01"}, year, "1999"},
        {{"DATE= 2001-05 "}, date, "2001-05"},
        {{"date=\xC4"}, date, "Ä"},
        {{"date=ÄÖ"}, date, "ÄÖ"},
        {{"title=Song (Live)"}, title, "Song"},
        {{"title=Song (Live)"}, mix, "Live"},
        {{"title=A (B) (C)"}, title, "A (B)"},
        {{"title=A (B) (C)"}, mix, "C"},
        {{"title=A (B)", "title=C"}, title, "A, C"},
        {{"title=A (B)", "title=C"}, mix, "B"},
        {{"title=A (B)", "title=C (D)"}, title, "A, C"},
        {{"title=A (B)", "title=C (D)"}, mix, "D"},
        {{"title= Song (Live)  "}, mix, "Live"},
        {{"title=Song (Live"}, title, "Song (Live"},
        {{"title=\xC4"}, title, "#"},
        {{"genre=Rock", "GENRE=Pop"}, genre, "Rock, Pop"},
        {{"genre=\xC4"}, genre, "#"},
        {{"comment=a", "Comment=b"}, comments, "a, b"},
        {{"comment=\xC4"}, comments, "#"},
        {{"Encoded by=x"}, encodedBy, "x"},
        {{"ENCODED BY x"}, encodedBy, "x"},
        {{"encoded by=x", "encoded by  y "}, encodedBy, "x, y"},
        {{"encoded by=\xC4"}, encodedBy, "#"},
    };
    for (const KeyCase& row : cases) {
        ReadComments(row.lines);
        EXPECT_EQ(row.field(tag), row.expected) << row.lines.front();
        EXPECT_EQ(tag.OggVorbisExtension.getExComCount(), 0) << row.lines.front();
    }
}

TEST_F(OggFileTest, Comments_OtherLines_AreExtendedCommentsAsTheyStand) {
    ReadComments({"ENCODER=z", "artist", " artist=A", "  X= y ", "encoded-by=e", "", "  ", "\xFF\xFE=\xC4",
                  "titles=t"});
    const std::vector<std::string> expected = {"ENCODER=z",    "artist",        "artist=A", "X= y",
                                               "encoded-by=e", "\xFF\xFE=\xC4", "titles=t"};
    EXPECT_EQ(ExtendedComments(), expected);
    EXPECT_EQ(tag.Artist, "");
    EXPECT_EQ(tag.Title, "");
}

TEST_F(OggFileTest, Vendor_ThatIsNoUtf8_IsSeenThroughTheCodePage) {
    EXPECT_EQ(Read(Ogg().Vendor("\xC4").Bytes()).OggVorbisExtension.LibVorbisVersion, "Ä");
}

TEST_F(OggFileTest, Head_NamesInAnyCase_AreFound) {
    std::string bytes = Ogg().Comment("ARTIST=A").Bytes();
    bytes.replace(bytes.find("OggS", 4), 4, "oGGs");
    bytes.replace(bytes.find("\3vorbis") + 1, 6, "VORBIS");
    EXPECT_EQ(Read(bytes).Artist, "A");
}

TEST_F(OggFileTest, Head_WithoutSecondPageOrName_HasNoCommentsButMeasures) {
    const std::string stream = Stretched(Ogg().Comment("ARTIST=A"), 30000);
    std::string withoutName = stream;
    withoutName.replace(withoutName.find("\3vorbis"), 7, "OpusTag");
    withoutName.replace(withoutName.find("\5vorbis"), 7, "OpusTag");
    std::string withoutPage = stream;
    withoutPage.replace(withoutPage.find("OggS", 4), 4, "....");
    withoutPage.replace(withoutPage.find("OggS", 4), 4, "....");
    for (const std::string& bytes :
         {withoutName, withoutPage.substr(0, 4) + std::string(5000, '.') + stream}) {
        Read(bytes);
        EXPECT_TRUE(tag.IsOggVorbisFile);
        EXPECT_TRUE(tag.AllowEdits);
        EXPECT_EQ(tag.Artist, "");
        EXPECT_EQ(tag.OggVorbisExtension.LibVorbisVersion, "");
        EXPECT_EQ(tag.Seconds, 10);
    }
}

TEST_F(OggFileTest, CommentsBeyondTheBlock_AreCutWhereItEnds) {
    ReadComments({"ARTIST=A", "LONG=" + std::string(5000, 'x'), "ALBUM=B"});
    const std::vector<std::string> lines = ExtendedComments();
    ASSERT_EQ(lines.size(), 1U);
    const std::string bytes = folder.Read("a.ogg");
    EXPECT_EQ(lines[0], bytes.substr(bytes.find("LONG="), 4100 - bytes.find("LONG=")));
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_EQ(tag.Album, "");
    EXPECT_TRUE(tag.AllowEdits);
}

// Lengths, which are held in 16 bits.

std::string Number(std::uint32_t number) {
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(number >> (8 * i));
    return bytes;
}

TEST_F(OggFileTest, LengthsAbove32767_Fail6) {
    const std::string comment = Number(1) + "x";
    for (const std::uint32_t number : {32768U, 65536U, 0x7FFFFFFFU, 0x80000000U, 0xFFFF0000U, 0xFFFFFFFFU}) {
        const std::string vendor = "\3vorbis" + Number(number) + "vendor";
        const std::string count = "\3vorbis" + Number(1) + "v" + Number(number) + comment;
        const std::string line =
            "\3vorbis" + Number(1) + "v" + Number(2) + Number(8) + "ARTIST=A" + Number(number) + "x";
        EXPECT_EQ(ErrorOf(Ogg().CommentHeader(vendor).Bytes()), 6) << number;
        EXPECT_EQ(ErrorOf(Ogg().CommentHeader(count).Bytes()), 6) << number;
        EXPECT_EQ(tag.OggVorbisExtension.LibVorbisVersion, "v");
        EXPECT_EQ(ErrorOf(Ogg().CommentHeader(line).Bytes()), 6) << number;
        EXPECT_EQ(tag.Artist, "A");
        EXPECT_TRUE(tag.IsOggVorbisFile);
        EXPECT_FALSE(tag.AllowEdits);
    }
}

TEST_F(OggFileTest, LengthsOf32767_AreReadAsFarAsTheBlockGoes) {
    EXPECT_EQ(ErrorOf(Ogg().CommentHeader("\3vorbis" + Number(32767) + "vendor").Bytes()), 0);
    const std::string count = "\3vorbis" + Number(1) + "v" + Number(32767) + Number(8) + "ARTIST=A";
    EXPECT_EQ(ErrorOf(Ogg().CommentHeader(count).SetupLength(5000).Bytes() + std::string(9000, '\0')), 6);
    EXPECT_EQ(tag.Artist, "A");
    const std::string line =
        "\3vorbis" + Number(1) + "v" + Number(1) + Number(32767) + "X=" + std::string(40, 'x');
    EXPECT_EQ(ErrorOf(Ogg().CommentHeader(line).Bytes()), 0);
    EXPECT_EQ(tag.OggVorbisExtension.getExComCount(), 1);
}

TEST_F(OggFileTest, CountBeyondTheComments_RunsOverEmptyText) {
    const std::string stream = Ogg().CommentHeader("\3vorbis" + Number(1) + "v" + Number(32767)).Bytes();
    const std::string head = stream.substr(0, stream.find("\3vorbis") + 16);
    EXPECT_EQ(ErrorOf(head), 0);
    EXPECT_EQ(ErrorOf(head + Number(8) + "ARTIST=A"), 0);
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_EQ(ErrorOf(head + Number(8) + "ARTIST=A" + "\5"), 0);
    EXPECT_EQ(ErrorOf(head + std::string(9000, '\0')), 0);
    EXPECT_TRUE(tag.AllowEdits);
    EXPECT_EQ(tag.OggVorbisExtension.getExComCount(), 0);
}

// Play time and bitrate.

TEST_F(OggFileTest, Seconds_AreRoundedHalfToEvenAt44100) {
    const std::pair<std::int64_t, std::int32_t> cases[] = {
        {0, 0},     {22049, 0},  {22050, 0},  {22051, 1},   {66149, 1},
        {66150, 2}, {110250, 2}, {110251, 3}, {441000, 10}, {48000 * 10, 11},
    };
    for (const auto& [samples, seconds] : cases) {
        Read(Stretched(Ogg().Samples(samples), 20000));
        EXPECT_EQ(tag.Seconds, seconds) << samples;
        EXPECT_TRUE(tag.VBR);
    }
}

TEST_F(OggFileTest, Bitrate_IsRoundedHalfToEvenFromTheWholeSeconds) {
    const std::pair<std::size_t, std::int16_t> cases[] = {
        {160000, 128}, {160624, 128}, {160625, 128}, {160626, 129}, {161875, 130}, {161874, 129},
    };
    for (const auto& [length, bitrate] : cases) {
        Read(Stretched(Ogg().Samples(441000), length));
        EXPECT_EQ(tag.Bitrate, bitrate) << length;
    }
}

TEST_F(OggFileTest, Bitrate_BelowOneSecond_Is0) {
    Read(Stretched(Ogg().Samples(22050), 20000));
    EXPECT_EQ(tag.Bitrate, 0);
    EXPECT_EQ(tag.OggVorbisExtension.PagesCount, 6);
}

TEST_F(OggFileTest, Bitrate_Above32767_Fails6WithTheCommentsRead) {
    EXPECT_EQ(ErrorOf(Stretched(Ogg().Comment("ARTIST=A").Samples(44100), 4096000)), 6);
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_EQ(tag.Seconds, 1);
    EXPECT_EQ(ErrorOf(Stretched(Ogg().Samples(44100), 4095875)), 0);
    EXPECT_EQ(tag.Bitrate, 32767);
}

TEST_F(OggFileTest, GranulePosition_LowHalfCountsSigned) {
    Read(Stretched(Ogg().Samples(0x100000000 + 441000), 20000));
    EXPECT_EQ(tag.Seconds, 10);
    Read(Stretched(Ogg().Samples(-1), 20000));
    EXPECT_EQ(tag.Seconds, 0);
    Read(Stretched(Ogg().Samples(0x80000000), 20000));
    EXPECT_EQ(tag.Seconds, -48696);
    EXPECT_EQ(tag.Bitrate, 0);
    EXPECT_TRUE(tag.AllowEdits);
}

TEST_F(OggFileTest, Tail_TheLastMarkerInItsCaseCounts) {
    const std::string stream = Stretched(Ogg(), 20000);
    EXPECT_EQ(Read(stream + "oggsOGGS").Seconds, 10);
    EXPECT_EQ(Read(stream + "OggS").Seconds, 0);
    EXPECT_TRUE(tag.VBR);
    EXPECT_EQ(tag.OggVorbisExtension.PagesCount, 0);
    EXPECT_EQ(Read(stream + "OggS.." + Number(882000) + "...." + Number(7) + "\3").Seconds, 20);
    EXPECT_EQ(tag.OggVorbisExtension.PagesCount, 3);
}

TEST_F(OggFileTest, Tail_WithoutAMarker_HasNoMeasures) {
    const std::string stream = Ogg().Comment("ARTIST=A").Bytes();
    Read(stream + std::string(8192, '.'));
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_EQ(tag.Bitrate, 0);
    EXPECT_FALSE(tag.VBR);
    EXPECT_EQ(tag.OggVorbisExtension.PagesCount, 0);
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_TRUE(tag.AllowEdits);
}

TEST_F(OggFileTest, Tail_FileBelow8192Bytes_HasNoMeasures) {
    Read(Stretched(Ogg().Comment("ARTIST=A"), 8191));
    EXPECT_EQ(tag.Seconds, 0);
    EXPECT_FALSE(tag.VBR);
    EXPECT_EQ(tag.Artist, "A");
    EXPECT_TRUE(tag.AllowEdits);
    Read(Stretched(Ogg(), 8192));
    EXPECT_EQ(tag.Seconds, 10);
    EXPECT_TRUE(tag.VBR);
}

// Hostile input.

TEST_F(OggFileTest, Truncated_AtEveryLength_EndsInARecord) {
    const std::string bytes = Stretched(Ogg().Comment("TITLE=A (B)").Comment("X=y"), 9000);
    for (std::size_t length = 0; length < bytes.size(); length += length < 300 ? 1 : 97) {
        EXPECT_EQ(ErrorOf(bytes.substr(0, length)), 0) << length;
        EXPECT_EQ(tag.Length, static_cast<std::int32_t>(length));
        EXPECT_TRUE(tag.AllowEdits);
    }
}

TEST_F(OggFileTest, Damaged_AtEveryByteOfTheHead_EndsInARecordOrFailure6) {
    const std::string bytes = Stretched(Ogg().Comment("TITLE=A (B)").Comment("X=y"), 9000);
    for (std::size_t at = 0; at < 200; ++at) {
        for (const char byte : {'\x7F', '\xFF'}) {
            std::string damaged = bytes;
            damaged[at] = byte;
            const int error = ErrorOf(damaged);
            EXPECT_TRUE(error == 0 || error == 6) << at;
        }
    }
}

}  // namespace
}  // namespace zefta::test
