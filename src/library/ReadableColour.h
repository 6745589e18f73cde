#pragma once

#include "library/ListColours.h"

namespace zefta {

/// Contrast of text that can be read without effort.
inline constexpr double ReadableContrast = 4.5;

/// The contrast of two colours, 1 to 21 (WCAG 2.1, "contrast ratio").
double ContrastOf(Colour one, Colour other);

/// The colour as text on that background. On a light one it stays as it is; on a dark one it is made as much
/// lighter, in its own hue, as ReadableContrast asks for.
Colour ReadableOn(Colour background, Colour colour);

}  // namespace zefta
