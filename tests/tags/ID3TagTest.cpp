#include <gtest/gtest.h>

#include "support/ExpectRuntimeError.h"
#include "tags/ID3Tag.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

TEST(ID3Tag, New_HasItsDefaults) {
    const ID3Tag tag;
    EXPECT_EQ(tag.Genre, 255);
    EXPECT_EQ(tag.Path + tag.Artist + tag.Title + tag.Album + tag.Year + tag.Comment + tag.Encoder, "");
    EXPECT_EQ(tag.Length + tag.Bitrate + tag.Seconds + tag.Frames + tag.SampleRate + tag.ChannelMode +
                  tag.TrackNumber,
              0);
    EXPECT_FALSE(tag.VBR || tag.ID3v2Present || tag.LyricsPresent || tag.ReadOnly || tag.AllowEdits ||
                 tag.IsOggVorbisFile || tag.IsMpegPlusFile);
}

TEST(ID3Tag, Time_InBothForms) {
    struct Row {
        int seconds;
        const char* time;
        const char* time2x2;
    };
    ID3Tag tag;
    for (const Row& row :
         {Row{0, "0:00", "00:00"}, {59, "0:59", "00:59"}, {125, "2:05", "02:05"}, {3725, "62:05", "62:05"}}) {
        tag.Seconds = row.seconds;
        EXPECT_EQ(tag.Time(), row.time);
        EXPECT_EQ(tag.Time2x2(), row.time2x2);
    }
}

TEST(OggVorbisExtension, ExComs_CountFrom1AndForgiveAnyIndex) {
    OggVorbisExtension comments;
    EXPECT_EQ(comments.getExComValue(0), "");
    EXPECT_EQ(comments.getExComValue(1), "");
    comments.addExCom("");
    EXPECT_EQ(comments.getExComCount(), 0);
    EXPECT_EQ(comments.getExComInOneString(), "");
    comments.addExCom("A=1");
    comments.addExCom("B=2");
    EXPECT_EQ(comments.getExComInOneString(), "A=1\0B=2"s);
    EXPECT_EQ(comments.getExComValue(2), "B=2");
    EXPECT_EQ(comments.getExComValue(3), "");
    EXPECT_EQ(comments.getExComValue(-1), "");
    comments.removeExCom(0);
    comments.removeExCom(3);
    EXPECT_EQ(comments.getExComCount(), 2);
    comments.removeExCom(1);
    EXPECT_EQ(comments.getExComInOneString(), "B=2");
    comments.removeAllExCom();
    EXPECT_EQ(comments.getExComCount(), 0);
}

TEST(OggVorbisExtension, ExComs_BeyondTheCountsRange_AreStillReachedUpToIt) {
    OggVorbisExtension comments;
    for (int i = 1; i <= 32770; ++i) comments.addExCom("K=" + std::to_string(i));
    EXPECT_EQ(RuntimeErrorOf([&] { static_cast<void>(comments.getExComCount()); }), 6);
    EXPECT_EQ(comments.getExComValue(1), "K=1");
    EXPECT_EQ(comments.getExComValue(32767), "K=32767");
    EXPECT_EQ(comments.getExComValue(0), "");
    for (int i = 0; i < 3; ++i) comments.removeExCom(1);
    EXPECT_EQ(comments.getExComCount(), 32767);
    EXPECT_EQ(comments.getExComValue(1), "K=4");
}

TEST(ID3v2Extension, GetTagSize_Fresh_Is115_AndGenreAndMixDoNotCount) {
    const CodePage ansi = LoadCodePage(1251);
    ID3v2Extension tag;
    EXPECT_EQ(tag.GetTagSize(ansi), 115);
    tag.Genre = "Rock";
    tag.Mix = "Mix";
    EXPECT_EQ(tag.GetTagSize(ansi), 115);
}

TEST(ID3v2Extension, GetTagSize_CountsCodePageBytesOfEveryOtherField) {
    const CodePage ansi = LoadCodePage(1251);
    ID3v2Extension tag;
    int expected = 115;
    for (std::string* field :
         {&tag.TrackNumber, &tag.TrackTitle, &tag.Artist, &tag.AlbumTitle, &tag.Year, &tag.Composer,
          &tag.OriginalArtist, &tag.Copyright, &tag.URL, &tag.EncodedBy, &tag.Comments}) {
        *field = "Дом";
        EXPECT_EQ(tag.GetTagSize(ansi), expected += 3);
    }
    tag.UnknownFrames = std::string(20, '\0');
    EXPECT_EQ(tag.GetTagSize(ansi), expected + 20);
}

}  // namespace
}  // namespace zefta::test
