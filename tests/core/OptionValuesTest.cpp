#include "core/OptionsFixture.h"
#include "core/Strings.h"
#include "support/ExpectRuntimeError.h"

namespace zefta::test {
namespace {

using OptionValuesTest = OptionsTest;

TEST_F(OptionValuesTest, TextValues_AreTrimmedAndEndInABlank) {
    Parse({"/change", "/a", " Artist ", "/t", "Title", "/l", "Album", "/y", "1999", "/m", "Mix", "/tn", "7",
           "/genre", "rock"});
    EXPECT_EQ(app.state.OptArtist, "Artist ");
    EXPECT_EQ(app.state.OptTitle, "Title ");
    EXPECT_EQ(app.state.OptAlbum, "Album ");
    EXPECT_EQ(app.state.OptYear, "1999 ");
    EXPECT_EQ(app.state.OptMix, "Mix ");
    EXPECT_EQ(app.state.OptTrack, "7");
    EXPECT_EQ(app.state.OptGenre, "rock ");
    EXPECT_EQ(app.state.OptGenreIndex, 17);
}

TEST_F(OptionValuesTest, EmptyTextValue_ArrivesAsOneBlank) {
    EXPECT_EQ(Parse({"/a", "", "/e"}).OptArtist, " ");
    EXPECT_EQ(app.state.JobCode, 6);
}

TEST_F(OptionValuesTest, Genre_UnknownOrEmpty_IsGivenWithTheFirstOfTheTable) {
    for (const char* name : {"No Such Genre", "", "   "}) {
        Parse({"/change", "/genre", name});
        EXPECT_EQ(app.state.OptGenre, Trim(name) + " ") << name;
        EXPECT_EQ(app.state.OptGenreIndex, 0) << name;
    }
    EXPECT_EQ(Parse({"/change", "/genre"}).OptGenreIndex, 255);
    EXPECT_EQ(app.state.OptGenre, "");
}

TEST_F(OptionValuesTest, Track_OutOfRange_IsIgnored) {
    EXPECT_EQ(Parse({"/tn", "256"}).OptTrack, "");
    EXPECT_EQ(Parse({"/tn", "-1"}).OptTrack, "");
    EXPECT_EQ(Parse({"/tn", "12abc"}).OptTrack, "12");
}

TEST_F(OptionValuesTest, Track_IsStoredAsTheTextOfItsNumber) {
    const std::pair<const char*, const char*> rows[] = {
        {"0", "0"}, {"-0", "0"}, {"007", "7"}, {"7.50", "7.5"}, {"0.0000001", "0.0000001"}, {"255", "255"}};
    for (const auto& [value, text] : rows) EXPECT_EQ(Parse({"/tn", value}).OptTrack, text) << value;
}

TEST_F(OptionValuesTest, PerCents_AreTakenFrom0To100Only) {
    Parse({"/norm_level", "0", "/norm_above", "100", "/norm_below", "55"});
    EXPECT_EQ(app.state.NormalizeLevel, 0);
    EXPECT_EQ(app.state.NormalizeAbove, 100);
    EXPECT_EQ(app.state.NormalizeBelow, 55);
    Parse({"/norm_level", "120", "/norm_above", "101", "/norm_below", "-1"});
    EXPECT_EQ(app.state.NormalizeLevel, 95);
    EXPECT_EQ(app.state.NormalizeAbove, 98);
    EXPECT_EQ(app.state.NormalizeBelow, 85);
}

TEST_F(OptionValuesTest, NumberBeyondAllNumbers_IsOutOfRangeToo) {
    const std::string nines(400, '9');
    for (const std::string& number : {nines, "-" + nines}) {
        Parse({"/norm_level", number, "/norm_above", number, "/norm_below", number, "/tn", number});
        EXPECT_EQ(app.state.NormalizeLevel, 95);
        EXPECT_EQ(app.state.NormalizeAbove, 98);
        EXPECT_EQ(app.state.NormalizeBelow, 85);
        EXPECT_EQ(app.state.OptTrack, "");
        for (const char* name : {"/offset", "/start", "/end", "/freq", "/before", "/after"})
            EXPECT_EQ(RuntimeErrorOf([&] { Parse({name, number}); }), 6) << name;
        EXPECT_EQ(Parse({"/e", "abr", number}).FileSpec, number);
        EXPECT_FALSE(app.state.UseVBR);
    }
}

TEST_F(OptionValuesTest, NumbersAndTarget) {
    Parse({"/before", "3", "/after", "-5", "/freq", "48000Hz", "/offset", "10", "/start", "20", "/end", "30",
           "/to", " out "});
    EXPECT_EQ(app.state.BeforeGap, 3);
    EXPECT_EQ(app.state.AfterGap, -5);
    EXPECT_EQ(app.state.Frequency, 48000);
    EXPECT_EQ(app.state.SplitOffset, 10);
    EXPECT_EQ(app.state.CropStart, 20);
    EXPECT_EQ(app.state.CropEnd, 30);
    EXPECT_EQ(app.state.TargetPath, "out");
    EXPECT_EQ(Parse({"/start_offset", "1", "/end_offset", "2"}).CropStart, 1);
    EXPECT_EQ(app.state.CropEnd, 2);
}

TEST_F(OptionValuesTest, WholeNumberThatIsNone_Fails13) {
    EXPECT_EQ(RuntimeErrorOf([&] { Parse({"/before", "abc"}); }), 13);
    EXPECT_EQ(RuntimeErrorOf([&] { Parse({"/offset", "99999999999"}); }), 6);
}

}  // namespace
}  // namespace zefta::test
