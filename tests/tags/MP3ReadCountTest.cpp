#include <gtest/gtest.h>

#include "support/CountingFileSystem.h"
#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "support/TempFolder.h"
#include "tags/MP3File.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

/// What reading an MP3 file costs.
class MP3ReadCountTest : public ::testing::Test {
  protected:
    ReadCount CountOf(std::string_view bytes, UnknownContent unknown) {
        CountingFileSystem counting;
        tag = ID3Tag();
        ReadMP3File({counting, ansi, unknown}, folder.Write("a.mp3", bytes), tag);
        return counting.count;
    }

    TempFolder folder;
    CodePage ansi = LoadCodePage(1252);
    ID3Tag tag;
};

TEST_F(MP3ReadCountTest, UsualFile_IsReadInTwoPieces) {
    const Mp3 plain = Mp3().Block("Info", 1000).Behind(Id3v1{"T"}.Bytes()).Size(4'000'000);
    const Mp3 tagged = Mp3(plain).InFront(Id3v2(TextFrame("TIT2", "Title"), 2048));
    for (const Mp3& file : {plain, tagged}) {
        const ReadCount count = CountOf(file.Bytes(), UnknownContent::PassOver);
        EXPECT_EQ(count.opens, 1);
        EXPECT_LE(count.reads, 2);
        EXPECT_EQ(tag.Encoder, "LAME3.100");
        EXPECT_EQ(tag.Title, "T");
    }
}

TEST_F(MP3ReadCountTest, SmallFile_IsReadOnce) {
    EXPECT_EQ(CountOf(Mp3().Size(6000).Bytes(), UnknownContent::Keep).reads, 1);
    EXPECT_EQ(CountOf("", UnknownContent::Keep).reads, 0);
}

TEST_F(MP3ReadCountTest, Picture_IsPassedOverUnreadOrKept) {
    const std::string picture = RawFrame("APIC", "\0image/png\0\3\0"s + Audio(1'000'000));
    const std::string frames = TextFrame("TIT2", "Title") + picture + TextFrame("TPE1", "Artist");
    const std::string bytes = Mp3()
                                  .InFront(Id3v2(frames, static_cast<std::int32_t>(frames.size()) + 100))
                                  .Block("Xing", 9000)
                                  .Behind(Id3v1{"T"}.Bytes())
                                  .Size(3'000'000)
                                  .Bytes();
    const auto expectTags = [&] {
        EXPECT_EQ(tag.ID3v2Extension.TrackTitle, "Title");
        EXPECT_EQ(tag.ID3v2Extension.Artist, "Artist");
        EXPECT_EQ(tag.Title, "T");
        EXPECT_EQ(tag.Frames, 9000);
        EXPECT_EQ(tag.Encoder, "LAME3.100");
    };
    const ReadCount passedOver = CountOf(bytes, UnknownContent::PassOver);
    EXPECT_LT(passedOver.bytes, 20'000U);
    EXPECT_LE(passedOver.reads, 4);
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, "");
    expectTags();
    const ReadCount kept = CountOf(bytes, UnknownContent::Keep);
    EXPECT_GT(kept.bytes, 1'000'000U);
    EXPECT_LT(kept.bytes, 1'040'000U);
    EXPECT_EQ(tag.ID3v2Extension.UnknownFrames, picture);
    expectTags();
}

TEST_F(MP3ReadCountTest, FileWithoutAHeader_CostsTheSearchedBytesOnly) {
    const ReadCount count = CountOf(Audio(2'000'000), UnknownContent::PassOver);
    EXPECT_LT(count.bytes, 50'000U);
    EXPECT_LE(count.reads, 12);
}

}  // namespace
}  // namespace zefta::test
