// Tags whose values go into another file.

#include <gtest/gtest.h>

#include "support/ApeBuilder.h"
#include "support/MpcBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "tags/CompressedFile.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

class ID3v2HandOverTest : public ::testing::Test {
  protected:
    ID3Tag Read(const std::string& bytes, const std::string& name = "a.mp3") {
        return ReadCompressedFile({world.TestWorld::files, ansi, UnknownContent::HandOver},
                                  world.folder.Write(name, bytes));
    }

    ID3Tag ReadFrames(const std::string& frames, int flags = 0) {
        return Read(Id3v2(frames, 2000, flags) + Audio(2000));
    }

    TestApp world;
    CodePage ansi = LoadCodePage(1252);
};

/// A frame with its size as a plain number (ID3v2.3).
std::string PlainFrame(std::string_view identifier, const std::string& body) {
    std::string frame = RawFrame(identifier, body);
    frame[6] = static_cast<char>(body.size() >> 8U);
    frame[7] = static_cast<char>(body.size() & 0xFFU);
    return frame;
}

TEST_F(ID3v2HandOverTest, EveryEncoding_GivesTheSameText) {
    const std::string bodies[] = {"\0Caf\xE9"s,
                                  "\1\xFF\xFE"
                                  "C\0a\0f\0\xE9\0"s,
                                  "\2\0C\0a\0f\0\xE9"s, "\3Café"s};
    for (const std::string& body : bodies) {
        const ID3Tag tag = ReadFrames(RawFrame("TPE1", body) + RawFrame("TALB", body + "\0\0"s));
        EXPECT_EQ(tag.ID3v2Extension.Artist, "Café") << int{body[0]};
        EXPECT_EQ(tag.ID3v2Extension.AlbumTitle, "Café") << int{body[0]};
        EXPECT_FALSE(tag.ReadInPart) << int{body[0]};
    }
}

TEST_F(ID3v2HandOverTest, LettersThatTheCodePageLacks_AreRead) {
    const ID3Tag tag =
        ReadFrames(RawFrame("TPE1", "\3Кино"s) + RawFrame("TIT2", "\2\x04\x1A (\0M\0i\0x\0)"s));
    EXPECT_EQ(tag.ID3v2Extension.Artist, "Кино");
    EXPECT_FALSE(tag.ReadInPart);
}

TEST_F(ID3v2HandOverTest, MixBehindTheTitle_IsFoundInEveryEncoding) {
    const std::string wide = "\1\xFF\xFEH\0i\0 \0(\0\x1A\4)\0\0\0"s;
    for (const std::string& body : {wide, "\3Hi (К)\0"s, "\2\0H\0i\0 \0(\4\x1A\0)"s}) {
        const ID3v2Extension tag = ReadFrames(RawFrame("TIT2", body)).ID3v2Extension;
        EXPECT_EQ(tag.TrackTitle, "Hi");
        EXPECT_EQ(tag.Mix, "К");
    }
    const ID3v2Extension tag = ReadFrames(RawFrame("TIT2", "\0Hi (K)\0"s)).ID3v2Extension;
    EXPECT_EQ(tag.TrackTitle, "Hi");
    EXPECT_EQ(tag.Mix, "K");
}

TEST_F(ID3v2HandOverTest, PlainSizes_AreFollowed) {
    for (const std::size_t length : {127U, 128U, 200U, 255U, 256U, 700U}) {
        const std::string text(length - 1, 'a');
        const ID3Tag tag = ReadFrames(PlainFrame("TPE1", '\0' + text) + PlainFrame("TALB", "\0Album"s));
        EXPECT_EQ(tag.ID3v2Extension.Artist, text);
        EXPECT_EQ(tag.ID3v2Extension.AlbumTitle, "Album") << length;
        EXPECT_FALSE(tag.ReadInPart);
    }
}

TEST_F(ID3v2HandOverTest, DamagedText_IsTakenAsFarAsItGoesAndTold) {
    const ID3Tag tag = ReadFrames(RawFrame("TPE1",
                                           "\1\xFF\xFE"
                                           "A\0x"s) +
                                  TextFrame("TALB", "Album"));
    EXPECT_EQ(tag.ID3v2Extension.Artist, "A");
    EXPECT_EQ(tag.ID3v2Extension.AlbumTitle, "Album");
    EXPECT_TRUE(tag.ReadInPart);
}

TEST_F(ID3v2HandOverTest, FrameThatIsNoText_IsLeftAndTold) {
    for (const char flag : {'\x80', '\x08', '\x02'}) {
        std::string frame = TextFrame("TPE1", "packed");
        frame[9] = flag;
        const ID3Tag tag = ReadFrames(frame);
        EXPECT_EQ(tag.ID3v2Extension.Artist, "");
        EXPECT_TRUE(tag.ReadInPart);
    }
}

TEST_F(ID3v2HandOverTest, UnsynchronisedWideText_IsLeftAndTold) {
    const std::string frame = RawFrame("TPE1",
                                       "\1\xFF\0\xFE"
                                       "A\0B\0\xFF\0"s);
    EXPECT_TRUE(ReadFrames(frame, 128).ReadInPart);
    EXPECT_EQ(ReadFrames(frame, 128).ID3v2Extension.Artist, "");
    EXPECT_FALSE(ReadFrames(TextFrame("TPE1", "A\xFF"), 128).ReadInPart);
    EXPECT_FALSE(ReadFrames(RawFrame("TPE1", "\3A"), 128).ReadInPart);
}

TEST_F(ID3v2HandOverTest, TagOfVersion22_IsTold) {
    std::string bytes = Id3v2("TT2\0\0\5\0Song"s, 200) + Audio(2000);
    bytes[3] = 2;
    EXPECT_TRUE(Read(bytes).ReadInPart);
}

TEST_F(ID3v2HandOverTest, FramesWithoutAField_AreThereToBeTold) {
    const std::string priv = RawFrame("PRIV", "x");
    EXPECT_EQ(ReadFrames(priv + TextFrame("TPE1", "A")).ID3v2Extension.UnknownFrames, priv);
}

TEST_F(ID3v2HandOverTest, MPEGplusWithFramesInFront_AreReadTheSameWay) {
    const std::string frames = RawFrame("TPE1", "\3Кино"s);
    const ID3Tag tag = Read(Id3v2(frames, 300) + Mpc8(), "a.mpc");
    EXPECT_EQ(tag.Artist, "Кино");
    EXPECT_FALSE(tag.ReadInPart);
    const ID3Tag damaged = Read(Id3v2(RawFrame("TPE1", "\1x"), 300) + Mpc8(), "b.mpc");
    EXPECT_TRUE(damaged.ReadInPart);
}

TEST_F(ID3v2HandOverTest, ItemsOfMPEGplus_AreNoTrack) {
    const ID3Tag tag = Read(Mpc8() + Ape().Item("Publisher", "P").Item("Label", "L").Bytes(), "a.mpc");
    EXPECT_EQ(tag.ID3v2Extension.TrackNumber, "");
}

}  // namespace
}  // namespace zefta::test
