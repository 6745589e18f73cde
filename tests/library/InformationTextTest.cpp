#include <gtest/gtest.h>

#include "library/InformationText.h"
#include "support/ApeBuilder.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

class InformationTextTest : public ::testing::Test {
  protected:
    std::string TextOf(const std::string& name, const std::string& bytes) {
        return InformationText(app, app.folder.Write(name, bytes));
    }

    TestApp app;
};

TEST_F(InformationTextTest, MP3_HasTheTagsThatAreThere) {
    const Id3v1 tag = {.title = "Song", .track = 3, .genre = 17};
    const std::string stream = Mp3().Header("").Size(1000).Bytes();
    EXPECT_EQ(TextOf("a.mp3", stream + tag.Bytes()),
              (app.folder / "a.mp3") +
                  "\n1128 bytes\n0 frames\n0 seconds\n0 kbps\n0 kHz\n Stereo\n\nID3v1\nTitle: Song\nMix:\n"
                  "Artist:\nAlbum:\nYear:\nTrack #: 3\nGenre: Rock\n");
    const std::string frames = TextFrame("TPE1", "Ann") + TextFrame("COMM", "eng\0a\r\nb"s) +
                               RawFrame("APIC", std::string(1014, 'x'));
    const std::string text = TextOf("a.mp3", Id3v2(frames, 2000) + stream);
    EXPECT_NE(text.find("\n\nID3v2\nTitle:\nMix:\nArtist: Ann\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nComment: a  b\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nRemove unknown frames while updating file (1K)\n"), std::string::npos) << text;
}

TEST_F(InformationTextTest, Ogg_HasItsExtendedComments) {
    const std::string text =
        TextOf("a.ogg", Ogg().AudioPages(20).Comment("ARTIST=Ann").Comment("FOO=a\nb").Bytes());
    EXPECT_NE(text.find(" kbps (VBR)\nTest vendor 1.0\n\nFile Information\nTitle:\n"), std::string::npos)
        << text;
    EXPECT_NE(text.find("\nArtist: Ann\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("\n\nExtended Comments\nFOO=a b\n")) << text;
}

TEST_F(InformationTextTest, MPEGplus_HasItsTag) {
    const std::string text =
        TextOf("a.mpc", Mpc7(1000, 160) + Audio(5000) + Ape().Item("Artist", "Ann").Item("X", "Y").Bytes());
    EXPECT_NE(text.find(" Stereo\nMPEGplus SV7\nMPEGplus Standard\n\nTAGs information\nTitle:\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("\nArtist: Ann\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("\nRemove unknown frames while updating file (0K)\n")) << text;
}

TEST_F(InformationTextTest, ControlCharacters_NeverReachATerminal) {
    // Bytes that code page 1252 leaves undefined are control characters beyond ASCII.
    const Id3v1 tag = {.title =
                           "a\x1B[2Jb\x90"
                           "c\x9D"
                           "d"};
    const std::string bytes = Mp3().Block("Info", 100, "LA\x1B[1mME").Size(1000).Bytes() + tag.Bytes();
    const std::string text = TextOf("a\x1B\nb.mp3", bytes);
    EXPECT_TRUE(text.starts_with((app.folder / "a  b.mp3") + "\n")) << text;
    EXPECT_NE(text.find("\nLA\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nTitle: a [2Jb c d\n"), std::string::npos) << text;
    EXPECT_EQ(text.find('\x1B'), std::string::npos);
}

TEST_F(InformationTextTest, FileThatCantBeOpened_HasNone) {
    EXPECT_EQ(InformationText(app, app.folder / "none.mp3"), "");
}

}  // namespace
}  // namespace zefta::test
