#pragma once

#include <cstdint>
#include <optional>

#include "library/ListRow.h"
#include "tags/ID3Tag.h"

namespace zefta {

struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    bool operator==(const Colour&) const = default;
};

// What the colours of the cells stand for; words for those who don't see them.

/// How good a bitrate is; None for what has none.
enum class RateClass : std::uint8_t { None, Low, Usual, Middle, High, Highest };
enum class YearClass : std::uint8_t { Other, ThisYear, LastYear };

/// Colours of a row and of the cells that differ from it; empty means the default of the list, and for a
/// cell the colour of its row.
struct RowColours {
    std::optional<Colour> Row;
    std::optional<Colour> Size;
    std::optional<Colour> Bitrate;
    bool BitrateIsBold = false;
    std::optional<Colour> Year;
    RateClass RateIs = RateClass::None;
    YearClass YearIs = YearClass::Other;
};

/// `currentYear` is the calendar year of today: a file of this year and one of the year before stand out.
RowColours ColoursOf(const ListEntry& entry, const ListRow& row, const ID3Tag& tag, int currentYear);

}  // namespace zefta
