#include <algorithm>
#include <array>
#include <tuple>

#include <gtest/gtest.h>

#include "library/ReadableColour.h"

namespace zefta::test {
namespace {

constexpr Colour White = {255, 255, 255};
constexpr Colour Black = {0, 0, 0};
/// All that the list shows.
constexpr std::array<Colour, 6> ListColours = {
    {{128, 128, 128}, {255, 0, 0}, {0, 0, 255}, {0, 128, 0}, {0, 0, 128}, {0, 80, 80}}};
constexpr std::array<Colour, 4> DarkBackgrounds = {{{0, 0, 0}, {35, 38, 41}, {30, 30, 60}, {70, 70, 70}}};

/// Which parts are the greatest and the smallest, and how far the middle one lies between them.
std::tuple<int, int, int> HueOf(Colour colour) {
    const std::array<int, 3> parts = {colour.Red, colour.Green, colour.Blue};
    const auto smallest = std::min_element(parts.begin(), parts.end());
    const auto greatest = std::max_element(parts.begin(), parts.end());
    if (*smallest == *greatest) return {-1, -1, 0};
    const int middle = parts[0] + parts[1] + parts[2] - *smallest - *greatest;
    return {greatest - parts.begin(), smallest - parts.begin(),
            (middle - *smallest) * 100 / (*greatest - *smallest)};
}

TEST(ContrastOf, KnownPairs) {
    EXPECT_NEAR(ContrastOf(White, Black), 21, 0.001);
    EXPECT_NEAR(ContrastOf(Black, White), 21, 0.001);
    EXPECT_NEAR(ContrastOf(White, White), 1, 0.001);
    EXPECT_NEAR(ContrastOf({118, 118, 118}, White), 4.54, 0.01);
}

TEST(ReadableOn, LightBackground_KeepsTheColour) {
    for (const Colour colour : ListColours) {
        EXPECT_EQ(ReadableOn(White, colour), colour);
        EXPECT_EQ(ReadableOn({239, 240, 241}, colour), colour);
    }
}

TEST(ReadableOn, DarkBackground_GivesContrastInTheSameHue) {
    for (const Colour background : DarkBackgrounds) {
        for (const Colour colour : ListColours) {
            const Colour shown = ReadableOn(background, colour);
            EXPECT_GE(ContrastOf(shown, background), ReadableContrast);
            EXPECT_EQ(std::get<0>(HueOf(shown)), std::get<0>(HueOf(colour)));
            EXPECT_NEAR(std::get<2>(HueOf(shown)), std::get<2>(HueOf(colour)), 2);
        }
    }
}

TEST(ReadableOn, WhatIsReadableAlready_StaysAsItIs) {
    EXPECT_EQ(ReadableOn(Black, {255, 0, 0}), (Colour{255, 0, 0}));
    EXPECT_EQ(ReadableOn(Black, White), White);
}

}  // namespace
}  // namespace zefta::test
