// Tags of every encoding and size on their way through a re-encoding.

#include "encoding/ReEncodeStage.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

/// The UTF-16 bytes of letters below U+10000.
std::string Wide(const std::u16string& text, bool bigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFFU);
        const char high = static_cast<char>(unit >> 8U);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

/// A frame with its size as a plain number (ID3v2.3).
std::string PlainFrame(std::string_view identifier, const std::string& body) {
    std::string frame = RawFrame(identifier, body);
    frame[6] = static_cast<char>(body.size() >> 8U);
    frame[7] = static_cast<char>(body.size() & 0xFFU);
    return frame;
}

class ReEncodeTextTest : public ReEncodeStage {
  protected:
    ReEncodeTextTest() { app.state.DeleteAfterReCompress = true; }

    void WriteSource(const std::string& frames, const std::string& name = "a.mp3") {
        folder.Write(name, Id3v2(frames, 3000) + Mp3Frames(200));
        decoded = Wav().Tone(176400 * 5).Bytes();
    }

    ID3Tag ToOgg() {
        encoded = Ogg().Bytes();
        ReEncode("a.mp3", true);
        return wave.GetOGGFileInfo(folder / "a (mode 5).ogg");
    }

    ID3Tag ToMPEGplus() {
        encoded = Mpc8();
        ReEncode("a.mp3", false, true);
        return wave.GetMPEGplusFileInfo(folder / "a (standard).mpc");
    }

    ID3Tag ToMP3() {
        encoded = Mp3Frames(195);
        ReEncode("a.mp3");
        return wave.GetMP3FileInfo(folder / "a ().mp3");
    }
};

TEST_F(ReEncodeTextTest, TextOfEveryEncoding_IsTheSameInEveryTarget) {
    app.state.DeleteAfterReCompress = false;
    const std::string bodies[] = {"\0Caf\xE9"s, "\1\xFF\xFE"s + Wide(u"Café", false),
                                  "\1\xFE\xFF"s + Wide(u"Café", true), "\2"s + Wide(u"Café", true),
                                  "\3Café"s};
    for (const std::string& body : bodies) {
        const std::string comment =
            body.substr(0, 1) + "eng" + (body[0] == 1 || body[0] == 2 ? "\0\0"s : "\0"s) + body.substr(1);
        WriteSource(RawFrame("TPE1", body) + RawFrame("TALB", body) + RawFrame("COMM", comment));
        for (const ID3Tag& tag : {ToOgg(), ToMPEGplus(), ToMP3()}) {
            EXPECT_EQ(tag.Artist, "Café") << int{body[0]};
            EXPECT_EQ(tag.Album, "Café") << int{body[0]};
            EXPECT_EQ(tag.ID3v2Extension.Comments, "Café") << int{body[0]};
        }
    }
}

TEST_F(ReEncodeTextTest, LettersThatTheCodePageLacks_ReachTheTargetsThatHoldThem) {
    app.state.DeleteAfterReCompress = false;
    for (const std::string& body :
         {"\1\xFF\xFE"s + Wide(u"Кино", false), "\2"s + Wide(u"Кино", true), "\3Кино"s}) {
        WriteSource(RawFrame("TPE1", body));
        EXPECT_EQ(ToOgg().Artist, "Кино");
        EXPECT_EQ(ToMPEGplus().Artist, "Кино");
        app.desktop.notes.clear();
        EXPECT_EQ(ToMP3().Artist, "????");
        EXPECT_EQ(
            app.desktop.notes.at(0),
            "a.mp3 -> a ().mp3: carried artist; left out letters of the artist (the code page of MP3 tags "
            "lacks them)");
    }
}

TEST_F(ReEncodeTextTest, ValuesForTheEncoder_AreDecodedAndOneLine) {
    WriteSource(RawFrame("TPE1", "\1\xFF\xFE"s + Wide(u"Кино", false)) +
                RawFrame("TIT2", "\3Группа (Ремикс)\0"s) + RawFrame("TALB", "\2"s + Wide(u"Ночь", true)) +
                RawFrame("TYER",
                         "\3"
                         "1986\0"s) +
                RawFrame("TRCK", "\1\xFF\xFE"s + Wide(u"7", false)) + RawFrame("TCON", "\3Rock\0Pop"s));
    ToOgg();
    EXPECT_EQ(app.state.OptArtist, "Кино");
    EXPECT_EQ(app.state.OptTitle, "Группа");
    EXPECT_EQ(app.state.OptMix, "Ремикс");
    EXPECT_EQ(app.state.OptAlbum, "Ночь");
    EXPECT_EQ(app.state.OptYear, "1986");
    EXPECT_EQ(app.state.OptTrack, "7");
    EXPECT_EQ(app.state.OptGenre, "Rock, Pop");
}

TEST_F(ReEncodeTextTest, PlainSizesFrom128On_AreReadToTheirEnd) {
    app.state.DeleteAfterReCompress = false;
    for (const std::size_t length : {127U, 128U, 129U, 255U, 256U, 1000U}) {
        const std::string text(length - 1, 'a');
        WriteSource(PlainFrame("TPE1", '\0' + text) + PlainFrame("TALB", "\0Album"s));
        for (const ID3Tag& tag : {ToOgg(), ToMPEGplus()}) {
            EXPECT_EQ(tag.Artist, text);
            EXPECT_EQ(tag.Album, "Album") << length;
        }
        EXPECT_EQ(ToMP3().ID3v2Extension.Artist, text);
    }
}

TEST_F(ReEncodeTextTest, SourceThatIsReadWhole_Goes) {
    WriteSource(RawFrame("TPE1", "\3Кино"s) + PlainFrame("TALB", std::string(200, '\0') + "x"));
    ToMP3();
    EXPECT_FALSE(folder.Exists("a.mp3"));
}

TEST_F(ReEncodeTextTest, SourceWhoseTagIsReadInPart_IsKeptAndTold) {
    std::string packed = TextFrame("TPE1", "packed");
    packed[9] = '\x08';
    for (const std::string& frames : {RawFrame("TPE1",
                                               "\1\xFF\xFE"
                                               "A\0x"s),
                                      packed, "no frame at all"s}) {
        WriteSource(frames + TextFrame("TALB", "Album"));
        app.desktop.notes.clear();
        ToMP3();
        EXPECT_TRUE(folder.Exists("a.mp3"));
        ASSERT_EQ(app.desktop.notes.size(), 2U);
        EXPECT_NE(app.desktop.notes[0].find("left out a part of the tag (it can't be read)"),
                  std::string::npos);
        EXPECT_EQ(app.desktop.notes[1], "a.mp3 is kept: its tag holds more than could be read");
    }
}

TEST_F(ReEncodeTextTest, TagOfVersion22_SourceIsKept) {
    std::string bytes = Id3v2("TT2\0\0\5\0Song"s, 200) + Mp3Frames(200);
    bytes[3] = 2;
    folder.Write("a.mp3", bytes);
    decoded = Wav().Tone(176400 * 5).Bytes();
    ToMP3();
    EXPECT_EQ(folder.Read("a.mp3"), bytes);
}

TEST_F(ReEncodeTextTest, OggCommentsThatAreReadCut_SourceIsKept) {
    folder.Write("a.ogg", Ogg().Comment("ARTIST=A").Comment("PICTURE=" + std::string(9000, 'p')).Bytes());
    decoded = Wav().Tone(1764).Bytes();
    encoded = Mp3Frames(20);
    ReEncode("a.ogg");
    EXPECT_TRUE(folder.Exists("a.ogg"));
    EXPECT_EQ(app.desktop.notes.back(), "a.ogg is kept: its tag holds more than could be read");
}

}  // namespace
}  // namespace zefta::test
