#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zefta {

// The only narrowing in the program. Each fails with RuntimeError 6 when the value does not fit; a fraction
// is rounded half to even.

std::int32_t ToI32(double value);
std::int16_t ToI16(double value);
std::uint8_t ToByte(double value);

std::int32_t ToI32(std::int64_t value);
std::int16_t ToI16(std::int64_t value);
std::uint8_t ToByte(std::int64_t value);

// 32-bit arithmetic that fails with RuntimeError 6 where the result does not fit.

std::int32_t Add(std::int32_t a, std::int32_t b);
std::int32_t Subtract(std::int32_t a, std::int32_t b);
std::int32_t Multiply(std::int32_t a, std::int32_t b);

/// The number at the beginning of a text: blanks are skipped, then an optional sign and digits with an
/// optional fraction are taken up to the first character that does not fit. 0 when there is none.
/// "12abc" gives 12, ".5x" gives 0.5, "abc" gives 0. Infinite when it is larger than any number.
double LeadingNumber(std::string_view text);

/// The whole text as a number, blanks around it allowed, a fraction rounded half to even. RuntimeError 13
/// when it is no number, 6 when it does not fit.
std::int32_t WholeNumber(std::string_view text);

/// Shortest decimal form, which LeadingNumber reads back as the same number: "7", "7.5", never "1e-07" or
/// "-0".
std::string NumberText(double value);

/// Digits in groups of three: "44 100".
std::string GroupedText(std::int64_t value);

}  // namespace zefta
