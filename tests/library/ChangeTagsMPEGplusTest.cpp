// MPEGplus files.

#include "library/ChangeTagsStage.h"
#include "support/ApeBuilder.h"
#include "support/MpcBuilder.h"
#include "support/TagBuilders.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

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

TEST_F(ChangeTagsTest, ItemsOfMPEGplus_AreNoTrack) {
    app.folder.Write("a.mpc", Mpc8() + Ape().Item("X", "1").Item("Y", "2").Bytes());
    EXPECT_EQ(StepsOf("a.mpc", {.Artist = "New "}), "tags: a.mpc: Artist \"\" -> \"New\"\n");
    EXPECT_EQ(app.folder.Read("a.mpc").find("Track\0"s), std::string::npos);
    EXPECT_EQ(MpcNow("a.mpc").TrackNumber, 2);
}

}  // namespace
}  // namespace zefta::test
