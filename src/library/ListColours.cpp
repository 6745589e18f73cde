#include "library/ListColours.h"

#include <algorithm>
#include <array>
#include <string>

namespace zefta {

namespace {

constexpr Colour Grey = {128, 128, 128};
constexpr Colour Red = {255, 0, 0};
constexpr Colour Blue = {0, 0, 255};
constexpr Colour Green = {0, 128, 0};
constexpr Colour DarkBlue = {0, 0, 128};
constexpr Colour DarkTeal = {0, 80, 80};

/// Rates from a number of kbps on.
struct RateColour {
    std::int16_t from;
    RateClass rate;
    std::optional<Colour> colour;
    bool isBold;
};

constexpr std::int16_t LowestRate = -32768;
constexpr std::array<RateColour, 5> RateColours = {{
    {300, RateClass::Highest, Red, true},
    {211, RateClass::High, Blue, false},
    {151, RateClass::Middle, Green, false},
    {113, RateClass::Usual, std::nullopt, false},
    {LowestRate, RateClass::Low, Grey, false},
}};

std::optional<Colour> RowColour(ListKind kind) {
    switch (kind) {
        case ListKind::Folder:
            return std::nullopt;
        case ListKind::Playlist:
            return Green;
        case ListKind::Wave:
            return Red;
        case ListKind::Lqt:
            return DarkTeal;
        default:
            return DarkBlue;
    }
}

bool IsCompressed(ListKind kind) {
    return kind == ListKind::MP3 || kind == ListKind::Ogg || kind == ListKind::MPEGplus;
}

YearClass YearClassOf(const std::string& year, int currentYear) {
    if (year == std::to_string(currentYear)) return YearClass::ThisYear;
    return year == std::to_string(currentYear - 1) ? YearClass::LastYear : YearClass::Other;
}

std::optional<Colour> YearColour(YearClass year) {
    switch (year) {
        case YearClass::ThisYear:
            return Blue;
        case YearClass::LastYear:
            return Green;
        default:
            return std::nullopt;
    }
}

}  // namespace

RowColours ColoursOf(const ListEntry& entry, const ListRow& row, const ID3Tag& tag, int currentYear) {
    RowColours colours;
    colours.Row = RowColour(entry.kind);
    if (entry.kind != ListKind::Folder) colours.Size = Grey;
    if (entry.kind == ListKind::Wave && tag.SampleRate < 1) colours.Bitrate = Grey;
    if (!IsCompressed(entry.kind)) return colours;
    const auto rate = std::find_if(RateColours.begin(), RateColours.end(),
                                   [&](const RateColour& range) { return tag.Bitrate >= range.from; });
    colours.Bitrate = rate->colour;
    colours.BitrateIsBold = rate->isBold;
    colours.RateIs = rate->rate;
    colours.YearIs = YearClassOf(row.Year, currentYear);
    colours.Year = YearColour(colours.YearIs);
    return colours;
}

}  // namespace zefta
