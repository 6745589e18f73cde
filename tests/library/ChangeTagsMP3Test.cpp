// MP3 files: both tags, what is carried through, what is refused.

#include "library/ChangeTagsStage.h"
#include "support/ExpectRuntimeError.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

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

}  // namespace
}  // namespace zefta::test
