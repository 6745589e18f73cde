// Steps of a preview.

#include <sstream>

#include "library/ChangeTagsStage.h"
#include "support/ApeBuilder.h"
#include "support/ExpectRuntimeError.h"
#include "support/Mp3Builder.h"
#include "support/MpcBuilder.h"
#include "support/OggBuilder.h"
#include "support/TagBuilders.h"

namespace zefta::test {
namespace {

TEST_F(ChangeTagsTest, Steps_TellTheFieldsThatChange) {
    const Id3v1 old = {"Title", "Artist", "", "", "", 3, 17};
    app.folder.Write("a.mp3", Mp3().Size(2000).Bytes() + old.Bytes());
    EXPECT_EQ(
        StepsOf("a.mp3", {.Artist = "New ", .Title = "Title ", .Year = "1999 "}),
        "tags: a.mp3: Artist \"Artist\" -> \"New\", Year \"\" -> \"1999\", Title in ID3v2 \"\" -> \"Title\", "
        "Track in ID3v2 \"\" -> \"3\", Genre in ID3v2 \"\" -> \"Rock\"\n");
    EXPECT_EQ(StepsOf("a.mp3", {.Mix = "M ", .Album = "L ", .Track = "4", .Genre = "Jazz ", .GenreIndex = 8}),
              "tags: a.mp3: Mix \"\" -> \"M\", Album \"\" -> \"L\", Track \"3\" -> \"4\", Genre \"Rock\" -> "
              "\"Jazz\"\n");
    EXPECT_EQ(StepsOf("a.mp3", {.Artist = " "}), "tags: a.mp3: Artist \"New\" -> \"\"\n");
    app.folder.Write("b.mp3", Mp3().Size(2000).Bytes());
    EXPECT_EQ(StepsOf("b.mp3", {}), "tags: b.mp3: the same values\n");
}

TEST_F(ChangeTagsTest, Steps_FieldsThatID3v2TakesOver_AreTold) {
    const Id3v1 old = {.title = "Title", .artist = "Artist"};
    const std::string frames = TextFrame("TPE1", "A longer artist");
    app.folder.Write("a.mp3", Id3v2(frames, 400) + Mp3().Size(2000).Bytes() + old.Bytes());
    EXPECT_EQ(StepsOf("a.mp3", {.Year = "1999 "}),
              "tags: a.mp3: Year \"\" -> \"1999\", Title in ID3v2 \"\" -> \"Title\"\n");
    EXPECT_EQ(Mp3Now("a.mp3").ID3v2Extension.TrackTitle, "Title");
    EXPECT_EQ(StepsOf("a.mp3", {.Year = "2000 "}), "tags: a.mp3: Year \"1999\" -> \"2000\"\n");
}

TEST_F(ChangeTagsTest, Steps_OfOtherKinds_TellNoTakeOver) {
    app.folder.Write("a.ogg", Ogg().Comment("artist=A").Comment("title=T").Bytes());
    EXPECT_EQ(StepsOf("a.ogg", {.Year = "1999 "}), "tags: a.ogg: Year \"\" -> \"1999\"\n");
    app.folder.Write("a.mpc", Mpc8() + Ape().Item("Artist", "A").Item("Title", "T").Bytes());
    EXPECT_EQ(StepsOf("a.mpc", {.Year = "1999 "}), "tags: a.mpc: Year \"\" -> \"1999\"\n");
}

TEST_F(ChangeTagsTest, Steps_MixThatTheCommentFills_IsTold) {
    app.folder.Write("a.mp3", Mp3().Size(2000).Bytes() + Id3v1{.title = "T", .comment = "Note"}.Bytes());
    EXPECT_EQ(StepsOf("a.mp3", {.Year = "1999 "}),
              "tags: a.mp3: Mix \"\" -> \"Note\", Year \"\" -> \"1999\", Title in ID3v2 \"\" -> \"T\"\n");
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

}  // namespace
}  // namespace zefta::test
