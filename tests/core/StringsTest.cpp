#include <gtest/gtest.h>

#include "core/FileKind.h"
#include "core/GenreTable.h"
#include "core/Strings.h"
#include "core/Version.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

TEST(Strings, Trim_TakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim("\ta "), "\ta");
}

TEST(Strings, ReplaceAll_GoesOnBehindWhatItPutIn) {
    EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReplaceAll("x", "", "y"), "x");
    EXPECT_EQ(ReplaceAllIgnoringCase("a.wav.WAV", ".wav", ".MP3"), "a.MP3.MP3");
}

TEST(FitString, Fits_WithNulBytesOrByCutting) {
    EXPECT_EQ(FitString("abc", 5), "abc\0\0"s);
    EXPECT_EQ(FitString("abcdef", 3), "abc");
    EXPECT_EQ(FitString("", 0), "");
}

TEST(MatchesMask, EveryKindOfMask) {
    struct Row {
        const char* name;
        const char* mask;
        bool matches;
    };
    const Row rows[] = {{"a.wav", "*.wav", true},
                        {"A.WAV", "*.wav", true},
                        {"a.wav", "*.WAV", true},
                        {"a.wave", "*.wav", false},
                        {"a", "*.*", false},
                        {"a.b", "*.*", true},
                        {"a", "*", true},
                        {"", "*", true},
                        {"", "", true},
                        {"abc", "a?c", true},
                        {"aДc", "a?c", true},
                        {"ac", "a?c", false},
                        {"[1] a.wav", "[1] a.wav", true},
                        {"1 a.wav", "[1] a.wav", false},
                        {"дом.wav", "ДОМ.*", true},
                        {"aXbXc", "a*b*c", true},
                        {"abcabd", "*abd", true},
                        {"a\xFF.wav", "a?.wav", true}};
    for (const Row& row : rows)
        EXPECT_EQ(MatchesMask(row.name, row.mask), row.matches) << row.name << " " << row.mask;
}

TEST(MatchesMask, ManyStars_DoNotExplode) {
    EXPECT_FALSE(MatchesMask(std::string(5000, 'a'), std::string("a*a*a*a*a*a*a*a*a*a*b")));
}

TEST(FileKind, LastThreeCharactersDecide_NoDotIsNeeded) {
    EXPECT_TRUE(IsWaveFile("WAV"));
    EXPECT_TRUE(IsMP3File("xmp3"));
    EXPECT_TRUE(IsMPEGplusFile("a.MP+"));
    EXPECT_TRUE(IsMPEGplusFile("a.mpc"));
    EXPECT_TRUE(IsOggFile("a.Ogg"));
    EXPECT_FALSE(IsMP3File("p3"));
    EXPECT_FALSE(IsWaveFile("a.wave"));
    for (const char* name : {"a.mp+", "a.mpc", "a.ogg", "a.mp3"}) EXPECT_TRUE(IsCompressedFile(name)) << name;
    for (const char* name : {"a.wav", "a.m3u", ""}) EXPECT_FALSE(IsCompressedFile(name)) << name;
}

TEST(GenreTable, Lookups_FollowTheTable) {
    EXPECT_EQ(GenreTable.size(), 126U);
    EXPECT_EQ(GenreIndexFromName("  ROCK "), 17);
    EXPECT_EQ(GenreIndexFromName("Nothing"), 0);
    EXPECT_EQ(GenreNameFromIndex(17), "Rock");
    EXPECT_EQ(GenreNameFromIndex(125), "Dance Hall");
    EXPECT_EQ(GenreNameFromIndex(126), "");
    EXPECT_EQ(GenreNameFromIndex(NoGenre), "");
}

TEST(GenreTable, FourOddSpellings_AreKept) {
    EXPECT_EQ(GenreTable[107], "Booty Brass");
    EXPECT_EQ(GenreTable[117], "Poweer Ballad");
    EXPECT_EQ(GenreTable[118], "Rhytmic Soul");
    EXPECT_EQ(GenreTable[123], "A Capela");
}

TEST(GenreTable, EveryName_LeadsBackToItsIndex) {
    for (std::size_t i = 0; i < GenreTable.size(); ++i)
        EXPECT_EQ(GenreIndexFromName(GenreTable[i]), i) << GenreTable[i];
}

TEST(VersionText, CommentsStandBeforeTheBuild) {
    VersionRecord version = ProgramVersion();
    version.Major = 3;
    version.Minor = 7;
    version.Revision = 42;
    EXPECT_EQ(VersionText(version), "3.07 (Build 42)");
    version.Comments = "beta";
    EXPECT_EQ(VersionText(version), "3.07 beta (Build 42)");
}

}  // namespace
}  // namespace zefta::test
