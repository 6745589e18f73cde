#pragma once

#include <QColor>
#include <cstdint>

#include "library/ListColours.h"

namespace zefta {

// Colours of ours have three parts and no transparency.

inline QColor ToQt(const Colour& colour) {
    return QColor(colour.Red, colour.Green, colour.Blue);
}

inline Colour FromQt(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

}  // namespace zefta
