#include "library/ReadableColour.h"

#include <algorithm>
#include <cmath>

namespace zefta {

namespace {

/// Below this white text is readable on it.
constexpr double DarkLuminance = 0.18;
constexpr int Full = 255;

double LinearPart(std::uint8_t part) {
    const double value = part / static_cast<double>(Full);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// WCAG 2.1, "relative luminance".
double LuminanceOf(Colour colour) {
    return 0.2126 * LinearPart(colour.Red) + 0.7152 * LinearPart(colour.Green) +
           0.0722 * LinearPart(colour.Blue);
}

std::uint8_t Lighter(std::uint8_t part, int white) {
    return static_cast<std::uint8_t>(part + (Full - part) * white / Full);
}

/// With so much white of 255 in it; white does not change the hue.
Colour WithWhite(Colour colour, int white) {
    return {Lighter(colour.Red, white), Lighter(colour.Green, white), Lighter(colour.Blue, white)};
}

}  // namespace

double ContrastOf(Colour one, Colour other) {
    const auto [darker, lighter] = std::minmax({LuminanceOf(one), LuminanceOf(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

Colour ReadableOn(Colour background, Colour colour) {
    if (LuminanceOf(background) > DarkLuminance) return colour;
    for (int white = 0; white < Full; ++white) {
        const Colour lighter = WithWhite(colour, white);
        if (ContrastOf(lighter, background) >= ReadableContrast) return lighter;
    }
    return WithWhite(colour, Full);
}

}  // namespace zefta
