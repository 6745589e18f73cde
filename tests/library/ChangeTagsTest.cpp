// The change of one file's tags: values, clearing, steps of a preview, what is refused.

#include <filesystem>
#include <sstream>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include "core/ByteCodec.h"
#include "library/ChangeTags.h"
#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/ProgramRun.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

const TagValues All = {"New Artist ", "New Title ", "New Mix ", "New Album ", "2001 ", "7", "Rock ", 17};
const TagValues Clear = {" ", " ", " ", " ", " ", "0", " ", 0};

class ChangeTagsTest : public ::testing::Test {
  protected:
    ChangeTagsTest() { app.defaultWaveFile = &wave; }

    void Change(const std::string& name, const TagValues& values) {
        ChangeTagsOfFile(app, {app.folder / name, name}, values);
    }

    /// Bytes after a change.
    std::string Changed(const std::string& name, const std::string& bytes, const TagValues& values) {
        app.folder.Write(name, bytes);
        Change(name, values);
        return app.folder.Read(name);
    }

    ID3Tag Mp3Now(const std::string& name) { return wave.GetMP3FileInfo(app.folder / name); }
    ID3Tag OggNow(const std::string& name) { return wave.GetOGGFileInfo(app.folder / name); }
    ID3Tag MpcNow(const std::string& name) { return wave.GetMPEGplusFileInfo(app.folder / name); }

    std::string StepsOf(const std::string& name, const TagValues& values) {
        std::ostringstream steps;
        app.steps = &steps;
        Change(name, values);
        app.steps = nullptr;
        return steps.str();
    }

    TestApp app;
    WaveFile wave{app};
};

/// The frames as the writer lays them out.
std::string FramesOf(const std::vector<std::string>& texts) {
    const char* names[] = {"TRCK", "TIT2", "TPE1", "TALB", "TYER", "COMM",
                           "TCOM", "TCON", "TOPE", "TCOP", "TENC", "WXXX"};
    std::string frames;
    for (std::size_t i = 0; i < std::size(names); ++i) {
        const std::string ahead = names[i] == "COMM"s ? "eng\0"s : names[i] == "WXXX"s ? "\0"s : ""s;
        frames += TextFrame(names[i], ahead + texts[i]);
    }
    return frames;
}

// MP3.

TEST_F(ChangeTagsTest, Mp3WithoutTags_GetsBoth) {
    const std::string audio = Mp3().Size(2000).Bytes();
    const Id3v1 end = {"New Title ", "New Artist ", "New Album ", "2001", "New Mix ", 7, 17};
    const std::string frames = FramesOf(
        {"7", "New Title (New Mix)", "New Artist", "New Album", "2001", "", "", "Rock", "", "", "", ""});
    EXPECT_TRUE(Changed("a.mp3", audio, All) == Id3v2(frames, 502) + audio + end.Bytes());
}

TEST_F(ChangeTagsTest, Mp3_YearAlone_KeepsTheRestAndFillsEmptyExtendedFields) {
    const Id3v1 old = {"Title", "Artist", "Album", "1990", "Mix", 3, 17};
    const std::string audio = Mp3().Size(2000).Bytes();
    Id3v1 end = old;
    end.year = "1999";
    const std::string frames =
        FramesOf({"3", "Title (Mix)", "Artist", "Album", "1999", "", "", "Rock", "", "", "", ""});
    EXPECT_TRUE(Changed("a.mp3", audio + old.Bytes(), {.Year = "1999 "}) ==
                Id3v2(frames, 502) + audio + end.Bytes());
}

TEST_F(ChangeTagsTest, Mp3_ExtendedFieldsThatAreThere_AreNotFilledFromTheRecord) {
    const Id3v1 old = {"Short", "Short", "Short", "1990", "Short", 3, 17};
    const std::string tag =
        Id3v2(TextFrame("TIT2", "Long Title (Long Mix)") + TextFrame("TPE1", "Long Artist") +
                  TextFrame("TCON", "Polka") + TextFrame("TRCK", "03/12"),
              502);
    Changed("a.mp3", tag + Mp3().Size(2000).Bytes() + old.Bytes(), {.Album = "New "});
    const ID3Tag now = Mp3Now("a.mp3");
    EXPECT_EQ(now.ID3v2Extension.TrackTitle, "Long Title");
    EXPECT_EQ(now.ID3v2Extension.Mix, "Long Mix");
    EXPECT_EQ(now.ID3v2Extension.Artist, "Long Artist");
    EXPECT_EQ(now.ID3v2Extension.Genre, "Polka");
    EXPECT_EQ(now.ID3v2Extension.TrackNumber, "03/12");
    EXPECT_EQ(now.ID3v2Extension.Year, "1990");
    EXPECT_EQ(now.Artist, "Short");
    EXPECT_EQ(now.Album, "New");
    EXPECT_EQ(now.Genre, 17);
}

TEST_F(ChangeTagsTest, Mp3_LoneBlanks_ClearBothTags) {
    app.folder.Write("a.mp3", Mp3().Size(2000).Bytes());
    Change("a.mp3", All);
    Change("a.mp3", Clear);
    const ID3Tag now = Mp3Now("a.mp3");
    for (const std::string& text : {now.Artist, now.Title, now.Comment, now.Album, now.Year})
        EXPECT_EQ(text, "");
    const ID3v2Extension& extension = now.ID3v2Extension;
    for (const std::string& text :
         {extension.Artist, extension.TrackTitle, extension.Mix, extension.AlbumTitle, extension.Year,
          extension.TrackNumber, extension.Genre})
        EXPECT_EQ(text, "");
    EXPECT_EQ(now.TrackNumber, 0);
    EXPECT_EQ(now.Genre, 0);
}

TEST_F(ChangeTagsTest, Mp3_PictureAndUnknownFramesByEitherWayOfSizes_AreCarriedWhole) {
    std::string body = "\0image/jpeg\0\3\0"s;
    for (int i = 0; i < 60000; ++i) body += static_cast<char>(i * 7 + i / 256);
    const std::string sevenBit = RawFrame("APIC", body);
    std::string plain = sevenBit;
    const auto size = static_cast<unsigned>(body.size());
    plain.replace(4, 4, {'\0', '\0', static_cast<char>(size >> 8), static_cast<char>(size & 0xFF)});
    for (const std::string& picture : {sevenBit, plain}) {
        // Behind the picture too, where a wrong size would hide it.
        const std::string frames = TextFrame("TPE1", "Artist") + RawFrame("PRIV", "one\0two"s) + picture +
                                   TextFrame("TALB", "Album") + RawFrame("TXXX", "x");
        const std::string audio = Mp3().Size(2000).Bytes();
        const auto length = static_cast<std::int32_t>(frames.size());
        app.folder.Write("a.mp3", Id3v2(frames, length) + audio);
        for (const std::string title : {"One ", "Two ", "A longer third one "}) {
            Change("a.mp3", {.Title = title});
            const std::string bytes = app.folder.Read("a.mp3");
            EXPECT_NE(bytes.find(RawFrame("PRIV", "one\0two"s) + picture + RawFrame("TXXX", "x")),
                      std::string::npos);
            EXPECT_NE(bytes.find(audio), std::string::npos);
            EXPECT_NE(bytes.find(TextFrame("TALB", "Album")), std::string::npos);
            EXPECT_EQ(Mp3Now("a.mp3").ID3v2Extension.Artist, "Artist");
        }
    }
}

TEST_F(ChangeTagsTest, Mp3_TextOfOtherEncodings_IsWrittenInTheCodePage) {
    const std::string frames = RawFrame("TPE1",
                                        "\1\xFF\xFE"
                                        "B\0j\0\xF6\0"s +
                                            "r\0k\0\0\0"s) +
                               RawFrame("TALB", "\2\0A\0\xE9"s) +
                               RawFrame("TIT2", "\3Caf\xC3\xA9 (Li\xC3\xA8ge)"s) +
                               RawFrame("COMM",
                                        "\1eng\xFF\xFE"
                                        "d\0\0\0\xFE\xFF\0h\0i"s) +
                               RawFrame("WXXX", "\1\xFF\xFE\0\0http://x"s) +
                               RawFrame("TXXX",
                                        "\1\xFF\xFE"
                                        "d\0\0\0\xFF\xFEv\0"s);
    Changed("a.mp3", Id3v2(frames, 400) + Mp3().Size(2000).Bytes(), {.Year = "1999 "});
    const std::string bytes = app.folder.Read("a.mp3");
    for (const std::string& frame :
         {TextFrame("TPE1", "Bj\xF6rk"), TextFrame("TALB", "A\xE9"), TextFrame("TIT2", "Caf\xE9 (Li\xE8ge)"),
          TextFrame("COMM", "eng\0hi"s), TextFrame("WXXX", "\0http://x"s),
          RawFrame("TXXX",
                   "\1\xFF\xFE"
                   "d\0\0\0\xFF\xFEv\0"s)})
        EXPECT_NE(bytes.find(frame), std::string::npos) << frame;
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ChangeTagsTest, Mp3_TextThatTheCodePageLacks_IsRefused) {
    const std::string bodies[] = {"\1\xFF\xFE\x14\x04"s,
                                  "\3\xD0\x94"s,
                                  "\3\xD0"s,
                                  "\1\xFF\xFE"
                                  "A"s,
                                  "\1\xFF\xFE\0\xD8"s,
                                  "\2\xDC\0"s,
                                  "\2\xD8\x3D\xDE\0"s};
    for (const std::string& body : bodies) {
        const std::string bytes = Id3v2(RawFrame("TPE1", body), 300) + Mp3().Size(2000).Bytes();
        app.desktop.boxes.clear();
        EXPECT_TRUE(Changed("a.mp3", bytes, {.Year = "1999 "}) == bytes);
        EXPECT_EQ(app.desktop.boxes.size(), 1U);
    }
}

TEST_F(ChangeTagsTest, Mp3_LastFrameOfATagWithoutFill_IsCarried) {
    const std::string frames = TextFrame("TPE1", "Artist") + TextFrame("TRCK", "7");
    Changed("a.mp3", Id3v2(frames, static_cast<std::int32_t>(frames.size())) + Mp3().Size(2000).Bytes(),
            {.Title = "New "});
    EXPECT_EQ(Mp3Now("a.mp3").ID3v2Extension.TrackNumber, "7");
}

TEST_F(ChangeTagsTest, Mp3_TagThatCannotBeCarriedWhole_IsRefusedWithAWarning) {
    std::string old = Id3v2("TT2\0\0\5\0Song"s, 200);
    old[3] = 2;
    std::string unsynchronised = Id3v2(RawFrame("APIC", "\0\xFF\0\xE0"s), 200, 128);
    const std::string cutShort = Id3v2(TextFrame("TPE1", "Artist") + "TALB\0\0\7\x68\0\0\0rest"s, 200);
    const std::string garbage =
        Id3v2(TextFrame("TPE1", "Artist") + "\xFF\xFE\xFF\xFF\x7F\x7F\x7F\x7F####"s, 200);
    const std::string overrun = Id3v2(RawFrame("PRIV", std::string(199, 'x')), 200);
    int refused = 0;
    for (const std::string& tag : {old, unsynchronised, cutShort, garbage, overrun}) {
        const std::string bytes = tag + Mp3().Size(2000).Bytes();
        EXPECT_TRUE(Changed("a.mp3", bytes, All) == bytes) << refused;
        ASSERT_EQ(app.desktop.boxes.size(), static_cast<std::size_t>(++refused));
        EXPECT_EQ(app.desktop.boxes.back().kind, BoxKind::Warning);
        EXPECT_EQ(app.desktop.boxes.back().text, "File \"" + (app.folder / "a.mp3") +
                                                     "\"\nholds more in its tag than can be carried over.\n\n"
                                                     "It stays as it is.");
    }
}

TEST_F(ChangeTagsTest, Mp3_EveryTruncationOfATaggedFile_EndsWithTheAudioWhole) {
    const std::string tag = Id3v2(TextFrame("TPE1", "Artist") + RawFrame("APIC", std::string(200, 'p')), 300);
    const std::string whole = tag + Mp3().Size(600).Bytes() + Id3v1{.title = "Old"}.Bytes();
    for (std::size_t length = 0; length <= whole.size(); length += length < 330 ? 1 : 7) {
        const std::string bytes = whole.substr(0, length);
        app.folder.Write("a.mp3", bytes);
        RuntimeErrorOf([&] { Change("a.mp3", All); });
        const std::string now = app.folder.Read("a.mp3");
        const std::string audio = bytes.size() > 310 ? bytes.substr(310, 472) : ""s;
        EXPECT_NE(now.find(audio), std::string::npos) << length;
        EXPECT_FALSE(app.folder.Exists("a.mp3.tmp"));
    }
}

// Ogg Vorbis.

TEST_F(ChangeTagsTest, Ogg_AllValues_AreWrittenAndTheRestIsCarried) {
    const Ogg old = Ogg().Comment("artist=Old").Comment("COMMENT=Stays").Comment("REPLAYGAIN=-3 dB");
    const std::string bytes = Changed("a.ogg", old.Bytes(), All);
    const std::vector<std::string> packets = PacketsOf(PagesOf(bytes));
    EXPECT_EQ(packets[1],
              CommentPacket("Test vendor 1.0", {"ARTIST=New Artist", "ALBUM=New Album", "TRACKNUMBER=7",
                                                "DATE=2001", "TITLE=New Title (New Mix)", "GENRE=Rock",
                                                "COMMENT=Stays", "REPLAYGAIN=-3 dB"}));
    const std::vector<std::string> before = PacketsOf(PagesOf(old.Bytes()));
    EXPECT_TRUE(std::equal(before.begin() + 2, before.end(), packets.begin() + 2, packets.end()));
}

TEST_F(ChangeTagsTest, Ogg_LoneBlanks_Clear) {
    app.folder.Write("a.ogg", Ogg().Comment("ENCODER=x").Bytes());
    Change("a.ogg", All);
    Change("a.ogg", Clear);
    const std::vector<std::string> packets = PacketsOf(PagesOf(app.folder.Read("a.ogg")));
    EXPECT_EQ(packets[1], CommentPacket("Test vendor 1.0", {"TRACKNUMBER=0", "ENCODER=x"}));
}

TEST_F(ChangeTagsTest, Ogg_WithoutAYear_TheWholeDateStays) {
    Changed("a.ogg", Ogg().Comment("DATE=2001-05-01").Bytes(), {.Artist = "A "});
    EXPECT_EQ(OggNow("a.ogg").OggVorbisExtension.DateTime, "2001-05-01");
    Changed("a.ogg", Ogg().Comment("DATE=2001-05-01").Bytes(), {.Year = "1999 "});
    EXPECT_EQ(OggNow("a.ogg").OggVorbisExtension.DateTime, "1999");
}

TEST_F(ChangeTagsTest, Ogg_CommentsThatAreReadCut_AreRefusedWithAWarning) {
    const std::string files[] = {
        Ogg().Comment("ARTIST=A").Comment("LONG=" + std::string(5000, 'x')).Comment("ALBUM=B").Bytes(),
        Ogg().Comment("ARTIST=A").Comment("PICTURE=" + std::string(100000, 'x')).Bytes(),
        Ogg().CommentHeader(CommentPacket("v", std::vector<std::string>(40000, "A=B"))).Bytes(),
        Ogg().Vendor(std::string(40000, 'v')).Bytes(),
    };
    std::size_t refused = 0;
    for (const std::string& bytes : files) {
        EXPECT_TRUE(Changed("a.ogg", bytes, All) == bytes);
        ASSERT_EQ(app.desktop.boxes.size(), ++refused);
        EXPECT_EQ(app.desktop.boxes.back().kind, BoxKind::Warning);
    }
    EXPECT_EQ(StepsOf("a.ogg", All), "refused: a.ogg: its tag holds more than can be carried over\n");
}

TEST_F(ChangeTagsTest, Ogg_CommentsThatJustFitTheBlock_AreWrittenWhole) {
    // The reader sees 4100 bytes; the last byte of the packet is the framing bit.
    for (const int more : {0, 1}) {
        std::string bytes;
        std::size_t length = 3500;
        std::size_t end = 0;
        for (; end < 4100U + static_cast<std::size_t>(more); ++length) {
            const std::string line = "LONG=" + std::string(length, 'x');
            bytes = Ogg().Comment(line).Bytes();
            end = bytes.find(line) + line.size() + 1;
        }
        Changed("a.ogg", bytes, {.Artist = "A "});
        EXPECT_EQ(app.desktop.boxes.size(), static_cast<std::size_t>(more));
        EXPECT_EQ(app.folder.Read("a.ogg") == bytes, more == 1);
        EXPECT_NE(app.folder.Read("a.ogg").find(std::string(length - 1, 'x')), std::string::npos);
    }
}

TEST_F(ChangeTagsTest, Ogg_CommentHeaderOnSmallPages_IsRefused) {
    std::vector<TestPage> pages = Ogg().Comment("LONG=" + std::string(2000, 'x')).Pages();
    TestPage first = pages[1];
    first.lacing.resize(4);
    first.body.resize(4 * 255);
    first.granule = -1;
    TestPage second = pages[1];
    second.lacing.erase(0, 4);
    second.body.erase(0, 4 * 255);
    second.flags = 1;
    pages[1] = first;
    pages.insert(pages.begin() + 2, second);
    for (std::size_t i = 2; i < pages.size(); ++i) pages[i].number = static_cast<std::uint32_t>(i);
    const std::string bytes = BytesOf(pages);
    EXPECT_TRUE(Changed("a.ogg", bytes, All) == bytes);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
}

// MPEGplus.

TEST_F(ChangeTagsTest, Mpc_AllValues_AreWrittenAndUnknownItemsStay) {
    const std::string audio = Mpc8();
    const std::string old =
        Ape().Item("Artist", "Old").Item("Publisher", "P").Item("Cover", "\0\1\2"s, 2).Bytes();
    const std::string bytes = Changed("a.mpc", audio + old, All);
    EXPECT_TRUE(bytes == audio + Ape()
                                     .Item("Track", "7")
                                     .Item("Artist", "New Artist")
                                     .Item("Title", "New Title (New Mix)")
                                     .Item("Album", "New Album")
                                     .Item("Year", "2001")
                                     .Item("Genre", "Rock")
                                     .Item("Publisher", "P")
                                     .Item("Cover", "\0\1\2"s, 2)
                                     .Bytes());
}

TEST_F(ChangeTagsTest, Mpc_LoneBlanks_Clear) {
    app.folder.Write("a.mpc", Mpc8());
    Change("a.mpc", All);
    Change("a.mpc", {" ", " ", " ", " ", " ", "", " ", 0});
    EXPECT_TRUE(app.folder.Read("a.mpc") == Mpc8() + Ape().Item("Track", "7").Bytes());
}

TEST_F(ChangeTagsTest, Mpc_TrackBelowTheCountOfUnknownItems_HidesNoneOfThem) {
    Ape old;
    for (const char* key : {"One", "Two", "Three"}) old.Item(key, "x");
    app.folder.Write("a.mpc", Mpc8() + Ape().Item("Track", "9").Bytes());
    app.folder.Write("a.mpc", Mpc8() + old.Bytes());
    Change("a.mpc", {.Track = "1"});
    Ape expected;
    expected.Item("Track", "1");
    for (const char* key : {"One", "Two", "Three"}) expected.Item(key, "x");
    EXPECT_TRUE(app.folder.Read("a.mpc") == Mpc8() + expected.Bytes());
}

TEST_F(ChangeTagsTest, Mpc_FramesInFrontOfTheStream_StayThere) {
    const std::string front =
        Id3v2(TextFrame("TPE1", "Artist") + RawFrame("APIC", std::string(90, 'p')), 200);
    const std::string bytes = Changed("a.mpc", front + Mpc8(), {.Title = "T "});
    EXPECT_TRUE(bytes == front + Mpc8() + Ape().Item("Artist", "Artist").Item("Title", "T").Bytes());
}

TEST_F(ChangeTagsTest, Mpc_ItemThatDoesNotLieInTheTag_IsRefused) {
    const std::string tag =
        Ape().Item("Artist", "A").Raw(ApeItem("Cover", "abc", 0, 5000)).Item("Lost", "x").Bytes();
    const std::string bytes = Mpc8() + tag;
    EXPECT_TRUE(Changed("a.mpc", bytes, All) == bytes);
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
}

// Several frames for one field.

std::size_t CountOf(const std::string& bytes, const std::string& what) {
    std::size_t count = 0;
    for (std::size_t at = bytes.find(what); at != std::string::npos; at = bytes.find(what, at + 1)) ++count;
    return count;
}

TEST_F(ChangeTagsTest, SeveralFramesForOneField_EarlierOnesAreCarriedAndTheLastCounts) {
    const std::string first = RawFrame("COMM", "\0engiTunNORM\0 0000 0001"s);
    const std::string wide = RawFrame("COMM", "\1deu\xFF\xFE\0\0\xFF\xFEK\0"s);
    const std::string url = RawFrame("WXXX", "\0shop\0http://shop"s);
    const std::string frames = first + wide + url + TextFrame("TPE1", "First") + TextFrame("TPE1", "First") +
                               TextFrame("TPE1", "Second") + RawFrame("COMM", "\0eng\0told"s) +
                               RawFrame("WXXX", "\0\0http://told"s);
    const std::string audio = Mp3().Size(2000).Bytes();
    const std::string once = Changed("a.mp3", Id3v2(frames, 500) + audio, {.Year = "2005 "});
    for (const std::string& frame : {first, wide, url}) EXPECT_EQ(CountOf(once, frame), 1U);
    EXPECT_EQ(CountOf(once, TextFrame("TPE1", "First")), 2U);
    const ID3v2Extension now = Mp3Now("a.mp3").ID3v2Extension;
    EXPECT_EQ(now.Comments, "told");
    EXPECT_EQ(now.URL, "http://told");
    EXPECT_EQ(now.Artist, "Second");
    EXPECT_EQ(now.Year, "2005");
    Change("a.mp3", {.Year = "2005 "});
    EXPECT_TRUE(app.folder.Read("a.mp3") == once);
    Change("a.mp3", {.Artist = "Third "});
    EXPECT_EQ(Mp3Now("a.mp3").ID3v2Extension.Artist, "Third");
    const std::string last = app.folder.Read("a.mp3");
    for (const std::string& frame : {first, wide, url}) EXPECT_EQ(CountOf(last, frame), 1U);
    EXPECT_EQ(CountOf(last, TextFrame("TPE1", "Second")), 0U);
    EXPECT_NE(last.find(audio), std::string::npos);
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(ChangeTagsTest, FrameThatIsCompressedEncryptedOrGrouped_IsRefused) {
    for (const char flags : {'\x80', '\x40', '\x20', '\x01'}) {
        std::string frame = TextFrame("TPE1", "x artist");
        frame[9] = flags;
        const std::string bytes = Id3v2(frame, 500) + Mp3().Size(2000).Bytes();
        EXPECT_TRUE(Changed("a.mp3", bytes, All) == bytes);
    }
    ASSERT_EQ(app.desktop.boxes.size(), 4U);
    EXPECT_NE(app.desktop.boxes[0].text.find("more in its tag than can be carried over"), std::string::npos);
}

TEST_F(ChangeTagsTest, ValuesThatAreNoUtf8OrSeveral_AreRefused) {
    const std::pair<std::string, std::string> files[] = {
        {"a.ogg", Ogg().Comment("artist=caf\xE9").Bytes()},
        {"b.ogg", Ogg().Comment("title=a\0b"s).Bytes()},
        {"a.mpc", Mpc8() + Ape().Item("Artist", "caf\xE9").Bytes()},
        {"b.mpc", Mpc8() + Ape().Item("Artist", "One\0Two"s).Bytes()},
    };
    for (const auto& [name, bytes] : files) {
        EXPECT_TRUE(Changed(name, bytes, All) == bytes) << name;
        EXPECT_EQ(StepsOf(name, All), "refused: " + name + ": its tag holds more than can be carried over\n");
    }
    EXPECT_EQ(app.desktop.boxes.size(), 8U);
}

TEST_F(ChangeTagsTest, ItemsOfMPEGplus_AreNoTrack) {
    app.folder.Write("a.mpc", Mpc8() + Ape().Item("X", "1").Item("Y", "2").Bytes());
    EXPECT_EQ(StepsOf("a.mpc", {.Artist = "New "}), "tags: a.mpc: Artist \"\" -> \"New\"\n");
    EXPECT_EQ(app.folder.Read("a.mpc").find("Track\0"s), std::string::npos);
    EXPECT_EQ(MpcNow("a.mpc").TrackNumber, 2);
}

TEST_F(ChangeTagsTest, OggStreamsThatTheWriterRefuses_AreToldAndStay) {
    const std::string whole = Ogg().Bytes();
    const std::pair<std::string, std::string> files[] = {
        {"chained.ogg", whole + whole},
        {"cut.ogg", whole.substr(0, whole.size() - 10)},
        {"none.ogg", Audio(2000)},
    };
    const std::size_t count = std::size(files);
    for (const auto& [name, bytes] : files) {
        EXPECT_TRUE(Changed(name, bytes, All) == bytes) << name;
        ASSERT_FALSE(app.desktop.boxes.empty()) << name;
        EXPECT_EQ(app.desktop.boxes.back().text,
                  "File \"" + (app.folder / name) +
                      "\"\nis no whole, sound and single Ogg Vorbis stream.\n\nIt stays as it is.");
        EXPECT_EQ(StepsOf(name, All),
                  "refused: " + name + ": it is no whole, sound and single Ogg Vorbis stream\n");
    }
    EXPECT_EQ(app.desktop.boxes.size(), 2 * count);
}

// What is passed over.

TEST_F(ChangeTagsTest, FileThatCannotBeRead_IsPassedOverSilently) {
    Change("none.mp3", All);
    app.folder.Write("a.mpc", "MP+\7"s + std::string(500, '\0'));
    app.folder.Write("b.mp3", Audio(500) + "LYRICSEND" + Audio(100));
    const std::string mpc = app.folder.Read("a.mpc");
    const std::string mp3 = app.folder.Read("b.mp3");
    Change("a.mpc", All);
    Change("b.mp3", All);
    EXPECT_TRUE(app.folder.Read("a.mpc") == mpc);
    EXPECT_TRUE(app.folder.Read("b.mp3") == mp3);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ(app.desktop.notes.size(), 2U);
    EXPECT_EQ(StepsOf("none.mp3", All), "refused: none.mp3: it can't be opened\n");
    EXPECT_EQ(StepsOf("b.mp3", All), "refused: b.mp3: it can't be read: Type mismatch\n");
}

TEST_F(ChangeTagsTest, ReadOnly_AnsweredNo_IsPassedOver) {
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc"}) {
        const std::string bytes = name == "a.mp3"s   ? Mp3().Size(2000).Bytes()
                                  : name == "a.ogg"s ? Ogg().Bytes()
                                                     : Mpc8();
        app.folder.Write(name, bytes);
        app.files.SetReadOnly(app.folder / name, true);
        app.desktop.answers = {false};
        Change(name, All);
        EXPECT_TRUE(app.folder.Read(name) == bytes);
        EXPECT_TRUE(app.files.IsReadOnly(app.folder / name));
        EXPECT_EQ(app.desktop.questions.back().text,
                  "File \"" + (app.folder / name) + "\"\r\nis market as read only!\r\n\r\nContinue anyway?");
        EXPECT_FALSE(app.desktop.questions.back().noIsDefault);
    }
    EXPECT_EQ(app.desktop.questions.size(), 3U);
    EXPECT_TRUE(app.desktop.boxes.empty());
    EXPECT_EQ(StepsOf("a.mp3", All), "refused: a.mp3: read only\n");
}

TEST_F(ChangeTagsTest, ReadOnly_AnsweredYes_IsWrittenAndStaysWritable) {
    for (const char* name : {"a.mp3", "a.ogg", "a.mpc"}) {
        app.folder.Write(name, name == "a.mp3"s   ? Mp3().Size(2000).Bytes()
                               : name == "a.ogg"s ? Ogg().Bytes()
                                                  : Mpc8());
        app.files.SetReadOnly(app.folder / name, true);
        app.desktop.answers = {true};
        Change(name, All);
        EXPECT_FALSE(app.files.IsReadOnly(app.folder / name));
    }
    EXPECT_EQ(Mp3Now("a.mp3").Artist, "New Artist");
    EXPECT_EQ(OggNow("a.ogg").Artist, "New Artist");
    EXPECT_EQ(MpcNow("a.mpc").Artist, "New Artist");
}

// Same bytes.

struct Place {
    ino_t inode;
    timespec time;
};

Place PlaceOf(const std::string& path) {
    struct stat status = {};
    stat(path.c_str(), &status);
    return {status.st_ino, status.st_mtim};
}

TEST_F(ChangeTagsTest, SecondTime_LeavesTimeAndFileAlone) {
    const std::string frames = TextFrame("TPE1", "Artist") + RawFrame("APIC", std::string(90, 'p'));
    const std::string longTitle(100, 't');
    app.folder.Write("in place.mp3", Id3v2(frames, 900) + Mp3().Size(2000).Bytes() + Id3v1{"T"}.Bytes());
    app.folder.Write("grown.mp3", Id3v2(TextFrame("TPE1", longTitle), 130) + Mp3().Size(2000).Bytes());
    app.folder.Write("new.mp3", Mp3().Size(2000).Bytes());
    app.folder.Write("blanks.mp3",
                     Mp3().Size(2000).Behind(Id3v1{.title = "T", .padding = ' '}.Bytes()).Bytes());
    app.folder.Write("a.ogg", Ogg().Comment("title=a (b) (c)").Bytes());
    app.folder.Write("a.mpc", Mpc8() + Ape().Item("publisher", "P").Bytes());
    app.folder.Write("new.mpc", Mpc8());
    app.folder.Write("old.mpc", Mpc7(1000) + Audio(3000) + Id3v1{"T"}.Bytes());
    for (const TagValues& values :
         {All, Clear, TagValues{.Genre = "Nothing known ", .GenreIndex = 0}, TagValues{}}) {
        for (const auto& entry : std::filesystem::directory_iterator(app.folder.Path())) {
            const std::string name = entry.path().filename().string();
            Change(name, values);
            const std::string bytes = app.folder.Read(name);
            const Place before = PlaceOf(app.folder / name);
            Change(name, values);
            const Place after = PlaceOf(app.folder / name);
            EXPECT_TRUE(app.folder.Read(name) == bytes) << name;
            EXPECT_EQ(after.inode, before.inode) << name;
            EXPECT_EQ(after.time.tv_sec, before.time.tv_sec) << name;
            EXPECT_EQ(after.time.tv_nsec, before.time.tv_nsec) << name;
            EXPECT_EQ(StepsOf(name, values), "unchanged: " + name + "\n");
        }
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

// Failures.

TEST_F(ChangeTagsTest, WriterFails_GoesUpWithThePath) {
    // More bytes to fill up than the writer counts; the frames stand.
    app.folder.Write("a.mp3", Id3v2("", 40000) + Mp3().Size(2000).Bytes());
    try {
        Change("a.mp3", {.Artist = "New "});
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), 6);
        EXPECT_NE(error.Text().find(app.folder / "a.mp3"), std::string::npos);
    }
    EXPECT_EQ(Mp3Now("a.mp3").ID3v2Extension.Artist, "New");
    EXPECT_TRUE(app.folder.Read("a.mp3").find(Mp3().Size(2000).Bytes()) == 40010);
}

/// A frame of UTF-16 text as other programs write it.
std::string WideFrame(const char* identifier, const std::string& text) {
    std::string body = "\1\xFF\xFE"s;
    for (const char letter : text) body += std::string(1, letter) + '\0';
    return RawFrame(identifier, body);
}

TEST_F(ChangeTagsTest, Mp3FieldsOfEveryLength_TheAudioStaysWhole) {
    const std::string audio = Mp3().Size(2000).Bytes();
    for (std::size_t length = 0; length < 120; length += 7) {
        for (const bool isWide : {false, true}) {
            for (const TagValues& values :
                 {TagValues{.Year = "2005 "}, TagValues{.Mix = "A Mix "},
                  TagValues{.Genre = std::string(60, 'g') + " ", .GenreIndex = 0}}) {
                const std::string text(length, 't');
                const auto frame = isWide ? WideFrame : [](const char* identifier, const std::string& of) {
                    return TextFrame(identifier, of);
                };
                const std::string frames =
                    frame("TIT2", text) + frame("TPE1", text) + frame("TALB", "L") + frame("TCON", "Rock");
                const std::string old = Id3v2(frames, static_cast<std::int32_t>(frames.size())) + audio;
                const std::string now = Changed("a.mp3", old, values);
                ASSERT_NE(now.find(audio), std::string::npos) << length << " " << isWide;
                ASSERT_EQ(now.size() - 128, now.find(audio) + audio.size());
                ASSERT_EQ(Mp3Now("a.mp3").ID3v2Extension.Artist, text);
            }
        }
    }
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(ChangeTagsFaults, EveryOperationFailing_LeavesTheAudioWholeAndNoCopyBehind) {
    const std::string audio = Mp3().Size(2000).Bytes();
    const std::pair<std::string, std::string> files[] = {
        {"a.mp3", Id3v2(TextFrame("TPE1", "A"), 300) + audio + Id3v1{"T"}.Bytes()},
        {"b.mp3", audio},
        {"a.ogg", Ogg().Bytes()},
        {"a.mpc", Mpc8(MpcStreamHeader{}, 3000) + Ape().Item("Artist", "A").Item("X", "y").Bytes()},
    };
    for (const auto& [name, bytes] : files) {
        PosixFileSystem real;
        FaultInjectingFileSystem failing(real);
        TestApp app(&failing);
        WaveFile wave(app);
        app.defaultWaveFile = &wave;
        for (int n = 1;; ++n) {
            app.folder.Write(name, bytes);
            failing.faults.operations = 0;
            failing.faults.plan = {FaultPlan::Mode::OnlyTheNth, n, ErrorNumber::DiskFull};
            RuntimeErrorOf([&] { ChangeTagsOfFile(app, {app.folder / name, name}, All); });
            const bool failed = failing.faults.operations >= n;
            failing.faults.plan = {};
            const std::string now = app.folder.Read(name);
            const std::string sound = name.ends_with("mp3")   ? audio.substr(0, 1800)
                                      : name.ends_with("mpc") ? bytes.substr(0, 3000)
                                                              : ""s;
            EXPECT_NE(now.find(sound), std::string::npos) << name << " " << n;
            EXPECT_GE(now.size() + 128, bytes.size()) << name << " " << n;
            EXPECT_FALSE(app.folder.Exists(name + ".tmp")) << name << " " << n;
            if (!failed) break;
            ASSERT_LT(n, 200);
        }
    }
}

// Steps of a preview.

TEST_F(ChangeTagsTest, Steps_TellTheFieldsThatChange) {
    const Id3v1 old = {"Title", "Artist", "", "", "", 3, 17};
    app.folder.Write("a.mp3", Mp3().Size(2000).Bytes() + old.Bytes());
    EXPECT_EQ(StepsOf("a.mp3", {.Artist = "New ", .Title = "Title ", .Year = "1999 "}),
              "tags: a.mp3: Artist \"Artist\" -> \"New\", Year \"\" -> \"1999\"\n");
    EXPECT_EQ(StepsOf("a.mp3", {.Mix = "M ", .Album = "L ", .Track = "4", .Genre = "Jazz ", .GenreIndex = 8}),
              "tags: a.mp3: Mix \"\" -> \"M\", Album \"\" -> \"L\", Track \"3\" -> \"4\", Genre \"Rock\" -> "
              "\"Jazz\"\n");
    EXPECT_EQ(StepsOf("a.mp3", {.Artist = " "}), "tags: a.mp3: Artist \"New\" -> \"\"\n");
    app.folder.Write("b.mp3", Mp3().Size(2000).Bytes());
    EXPECT_EQ(StepsOf("b.mp3", {}), "tags: b.mp3: the same values\n");
}

TEST_F(ChangeTagsTest, Steps_MixThatTheCommentFills_IsTold) {
    app.folder.Write("a.mp3", Mp3().Size(2000).Bytes() + Id3v1{.title = "T", .comment = "Note"}.Bytes());
    EXPECT_EQ(StepsOf("a.mp3", {.Year = "1999 "}),
              "tags: a.mp3: Mix \"\" -> \"Note\", Year \"\" -> \"1999\"\n");
    EXPECT_EQ(Mp3Now("a.mp3").ID3v2Extension.Mix, "Note");
}

TEST_F(ChangeTagsTest, Steps_FailureBehindTheFrames_TellsTheTags) {
    app.folder.Write("a.mp3", Id3v2("", 40000) + Mp3().Size(2000).Bytes());
    std::ostringstream steps;
    app.steps = &steps;
    EXPECT_EQ(RuntimeErrorOf([&] { Change("a.mp3", {.Artist = "New "}); }), 6);
    EXPECT_EQ(steps.str(), "tags: a.mp3: Artist \"\" -> \"New\"\n");
    app.steps = nullptr;
}

TEST_F(ChangeTagsTest, ValuesOfOptions_AreTakenOneByOne) {
    app.state.OptArtist = "A ";
    app.state.OptTitle = "T ";
    app.state.OptMix = "M ";
    app.state.OptAlbum = "L ";
    app.state.OptYear = "Y ";
    app.state.OptTrack = "7";
    app.state.OptGenre = "Rock ";
    app.state.OptGenreIndex = 17;
    const TagValues values = ValuesOfOptions(app.state);
    EXPECT_EQ(
        values.Artist + values.Title + values.Mix + values.Album + values.Year + values.Track + values.Genre,
        "A T M L Y 7Rock ");
    EXPECT_EQ(values.GenreIndex, 17);
}

// Files of the real encoders.

class RealFiles : public ChangeTagsTest, public ::testing::WithParamInterface<const char*> {
  protected:
    void Encode(const std::string& name) {
        const std::string wav = app.folder.Write("in.wav", Wav().Tone(88200).Bytes());
        const std::string out = app.folder / name;
        if (name.ends_with("mp3"))
            RunToEnd({"lame", {"--quiet", "--tt", "Old", "--ta", "Old", wav, out}, "", "", {}});
        if (name.ends_with("ogg")) RunToEnd({"oggenc", {"-Q", "-a", "Old", "-o", out, wav}, "", "", {}});
        if (name.ends_with("mpc")) RunToEnd({"mpcenc", {"--silent", wav, out}, "", "", {}});
        ASSERT_TRUE(app.folder.Exists(name));
    }

    std::string TagsByOthers(const std::string& name) {
        const std::vector<std::string> arguments = {"-v",
                                                    "error",
                                                    "-show_entries",
                                                    "format_tags:stream_tags",
                                                    "-of",
                                                    "default=noprint_wrappers=1",
                                                    app.folder / name};
        return RunToEnd({"ffprobe", arguments, "", "", {}}).output;
    }

    std::string Decoded(const std::string& name) {
        const std::string out = app.folder / "out.raw";
        std::filesystem::remove(out);
        RunToEnd({"ffmpeg", {"-v", "error", "-i", app.folder / name, "-f", "s16le", out}, "", "", {}});
        return app.folder.Read("out.raw");
    }
};

INSTANTIATE_TEST_SUITE_P(Kinds, RealFiles, ::testing::Values("a.mp3", "a.ogg", "a.mpc"));

TEST_P(RealFiles, Change_OtherProgramsReadTheNewTagsAndTheSameAudio) {
    const std::string name = GetParam();
    Encode(name);
    const std::string audio = Decoded(name);
    ASSERT_GT(audio.size(), 10000U);
    Change(name, All);
    EXPECT_TRUE(Decoded(name) == audio);
    const std::string seen = TagsByOthers(name);
    for (const char* text :
         {"=New Artist\n", "=New Title (New Mix)\n", "=New Album\n", "=2001\n", "=Rock\n", "=7\n"})
        EXPECT_NE(seen.find(text), std::string::npos) << text << seen;
    EXPECT_EQ(seen.find("=Old\n"), std::string::npos) << seen;
    EXPECT_EQ(StepsOf(name, All), "unchanged: " + name + "\n");
}

TEST_P(RealFiles, ChangeOfOneField_OthersStayReadableByOtherPrograms) {
    const std::string name = GetParam();
    Encode(name);
    Change(name, {.Artist = "Kept "});
    const std::string before = TagsByOthers(name);
    Change(name, {.Year = "1999 "});
    const std::string after = TagsByOthers(name);
    EXPECT_NE(before.find("=Kept\n"), std::string::npos) << before;
    EXPECT_NE(after.find("=Kept\n"), std::string::npos) << after;
    EXPECT_NE(after.find("=1999\n"), std::string::npos) << after;
    EXPECT_EQ(after.find("=Old\n") == std::string::npos, name != "a.mp3") << after;
}

}  // namespace
}  // namespace zefta::test
