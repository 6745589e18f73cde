#include <gtest/gtest.h>

#include "library/ListColours.h"

namespace zefta::test {
namespace {

constexpr int ThisYear = 2026;
constexpr Colour Grey = {128, 128, 128};
constexpr Colour Green = {0, 128, 0};
constexpr Colour Blue = {0, 0, 255};
constexpr Colour Red = {255, 0, 0};

RowColours Colours(ListKind kind, const ID3Tag& tag = {}) {
    const ListEntry entry = {"name.ext", kind};
    return ColoursOf(entry, RowOf(entry, 1, tag, LoadCodePage(1252)), tag, ThisYear);
}

TEST(ColoursOf, Rows_HaveTheColourOfTheirKind) {
    EXPECT_EQ(Colours(ListKind::Folder).Row, std::nullopt);
    EXPECT_EQ(Colours(ListKind::Playlist).Row, Green);
    EXPECT_EQ(Colours(ListKind::Wave).Row, Red);
    EXPECT_EQ(Colours(ListKind::Lqt).Row, (Colour{0, 80, 80}));
    for (const ListKind kind : {ListKind::MP3, ListKind::Ogg, ListKind::MPEGplus})
        EXPECT_EQ(Colours(kind).Row, (Colour{0, 0, 128}));
}

TEST(ColoursOf, SizeOfFiles_IsGrey) {
    EXPECT_EQ(Colours(ListKind::Folder).Size, std::nullopt);
    for (const ListKind kind : {ListKind::Playlist, ListKind::Wave, ListKind::Lqt, ListKind::MP3})
        EXPECT_EQ(Colours(kind).Size, Grey);
}

TEST(ColoursOf, RawWave_IsGreyInItsBitrate) {
    EXPECT_EQ(Colours(ListKind::Wave).Bitrate, Grey);
    ID3Tag tag;
    tag.SampleRate = 8000;
    EXPECT_EQ(Colours(ListKind::Wave, tag).Bitrate, std::nullopt);
}

TEST(ColoursOf, Bitrates_HaveTheirRanges) {
    const struct {
        std::int16_t bitrate;
        std::optional<Colour> colour;
        bool isBold;
    } rows[] = {{320, Red, true},           {300, Red, true},           {299, Blue, false},
                {211, Blue, false},         {210, Green, false},        {151, Green, false},
                {150, std::nullopt, false}, {128, std::nullopt, false}, {113, std::nullopt, false},
                {112, Grey, false},         {96, Grey, false},          {0, Grey, false},
                {-1, Grey, false}};
    for (const auto& row : rows) {
        ID3Tag tag;
        tag.Bitrate = row.bitrate;
        EXPECT_EQ(Colours(ListKind::MP3, tag).Bitrate, row.colour) << row.bitrate;
        EXPECT_EQ(Colours(ListKind::Ogg, tag).BitrateIsBold, row.isBold) << row.bitrate;
    }
}

TEST(ColoursOf, Years_OfNowStandOut) {
    ID3Tag tag;
    for (const auto& [year, colour] : {std::pair<const char*, std::optional<Colour>>{"2026", Blue},
                                       {"2025", Green},
                                       {"2024", std::nullopt},
                                       {"", std::nullopt},
                                       {"2026-01", std::nullopt}}) {
        tag.Year = year;
        EXPECT_EQ(Colours(ListKind::MPEGplus, tag).Year, colour) << year;
    }
}

TEST(ColoursOf, Classes_SayWhatTheColoursSay) {
    const struct {
        std::int16_t bitrate;
        RateClass rate;
    } rows[] = {{320, RateClass::Highest}, {300, RateClass::Highest}, {299, RateClass::High},
                {211, RateClass::High},    {210, RateClass::Middle},  {151, RateClass::Middle},
                {150, RateClass::Usual},   {113, RateClass::Usual},   {112, RateClass::Low},
                {0, RateClass::Low}};
    for (const auto& row : rows) {
        ID3Tag tag;
        tag.Bitrate = row.bitrate;
        EXPECT_EQ(Colours(ListKind::MP3, tag).RateIs, row.rate) << row.bitrate;
        EXPECT_EQ(Colours(ListKind::Wave, tag).RateIs, RateClass::None);
    }
    ID3Tag tag;
    for (const auto& [year, expected] : {std::pair{"2026", YearClass::ThisYear},
                                         {"2025", YearClass::LastYear},
                                         {"2024", YearClass::Other}}) {
        tag.Year = year;
        EXPECT_EQ(Colours(ListKind::Ogg, tag).YearIs, expected) << year;
    }
}

}  // namespace
}  // namespace zefta::test
