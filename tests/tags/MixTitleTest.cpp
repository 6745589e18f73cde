#include <gtest/gtest.h>

#include "tags/MixTitle.h"

namespace zefta::test {
namespace {

std::string Split(std::string_view text) {
    const auto split = SplitMix(text);
    return split ? split->title + "|" + split->mix : "none";
}

TEST(MixTitle, SplitMix_TextThatEndsInBrackets_GivesTheLastPair) {
    EXPECT_EQ(Split("Song (Live)"), "Song|Live");
    EXPECT_EQ(Split("A (B) (C)"), "A (B)|C");
    EXPECT_EQ(Split("  Song  (  Live  )"), "Song|Live");
    EXPECT_EQ(Split("(Live)"), "|Live");
    EXPECT_EQ(Split("Song ()"), "Song|");
    EXPECT_EQ(Split("()"), "|");
    EXPECT_EQ(Split("Song (a(b))"), "Song (a|b)");
}

TEST(MixTitle, SplitMix_OtherText_IsNotSplit) {
    for (const char* text : {"", "Song", "Song (Live", "Song Live)", "Song (Live) ", "(Live) Song"})
        EXPECT_EQ(Split(text), "none") << text;
}

TEST(MixTitle, JoinMix_Parts_AreTrimmedAndBracketed) {
    EXPECT_EQ(JoinMix(" Song ", " Live "), "Song (Live)");
    EXPECT_EQ(JoinMix("Song ", ""), "Song");
    EXPECT_EQ(JoinMix("Song", " "), "Song");
    EXPECT_EQ(JoinMix("", "Live"), "(Live)");
    EXPECT_EQ(JoinMix(" ", " "), "");
}

TEST(MixTitle, JoinMix_ThenSplit_GivesTheParts) {
    EXPECT_EQ(Split(JoinMix("A (B)", "C")), "A (B)|C");
    EXPECT_EQ(Split(JoinMix("", "C")), "|C");
}

}  // namespace
}  // namespace zefta::test
