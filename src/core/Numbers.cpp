#include "core/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "core/Strings.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

template <typename Target>
Target Narrow(std::int64_t value) {
    if (value < std::numeric_limits<Target>::min() || value > std::numeric_limits<Target>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Target>(value);
}

template <typename Target>
Target Round(double value) {
    // nearbyint rounds half to even in the default rounding mode, which nothing in the program changes.
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<Target>::min() && rounded <= std::numeric_limits<Target>::max()))
        throw RuntimeError(ErrorNumber::Overflow);
    return static_cast<Target>(rounded);
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Length of the number at the start of the text (sign, digits, fraction); 0 when there is no digit.
std::size_t NumberLength(std::string_view text) {
    std::size_t length = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    bool anyDigit = false;
    bool anyPoint = false;
    for (; length < text.size(); ++length) {
        if (IsDigit(text[length])) {
            anyDigit = true;
        } else if (text[length] == '.' && !anyPoint) {
            anyPoint = true;
        } else {
            break;
        }
    }
    return anyDigit ? length : 0;
}

/// Infinite for a number beyond all that can be told, 0 for one that is too small.
double ParseNumber(std::string_view number) {
    if (number.starts_with('+')) number.remove_prefix(1);
    double value = 0;
    const auto result =
        std::from_chars(number.data(), number.data() + number.size(), value, std::chars_format::fixed);
    if (result.ec != std::errc::result_out_of_range) return value;
    const bool isSmall = number.find_first_of("123456789") > number.find('.');
    const double magnitude = isSmall ? 0 : std::numeric_limits<double>::infinity();
    return number.starts_with('-') ? -magnitude : magnitude;
}

}  // namespace

std::int32_t ToI32(double value) {
    return Round<std::int32_t>(value);
}
std::int16_t ToI16(double value) {
    return Round<std::int16_t>(value);
}
std::uint8_t ToByte(double value) {
    return Round<std::uint8_t>(value);
}

std::int32_t ToI32(std::int64_t value) {
    return Narrow<std::int32_t>(value);
}
std::int16_t ToI16(std::int64_t value) {
    return Narrow<std::int16_t>(value);
}
std::uint8_t ToByte(std::int64_t value) {
    return Narrow<std::uint8_t>(value);
}

std::int32_t Add(std::int32_t a, std::int32_t b) {
    return ToI32(std::int64_t{a} + b);
}
std::int32_t Subtract(std::int32_t a, std::int32_t b) {
    return ToI32(std::int64_t{a} - b);
}
std::int32_t Multiply(std::int32_t a, std::int32_t b) {
    return ToI32(std::int64_t{a} * b);
}

double LeadingNumber(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return ParseNumber(text.substr(0, NumberLength(text)));
}

std::int32_t WholeNumber(std::string_view text) {
    const std::string number = Trim(text);
    if (number.empty() || NumberLength(number) != number.size())
        throw RuntimeError(ErrorNumber::TypeMismatch);
    return ToI32(ParseNumber(number));
}

std::string NumberText(double value) {
    // Room for the smallest number there is: sign, point, 323 zeros and all its digits.
    char digits[352];
    // The sum takes the sign away from a zero.
    const auto end = std::to_chars(digits, digits + sizeof digits, value + 0.0, std::chars_format::fixed);
    return {digits, end.ptr};
}

std::string GroupedText(std::int64_t value) {
    std::string text = std::to_string(value);
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    for (std::size_t at = text.size(); at > first + 3;) text.insert(at -= 3, 1, ' ');
    return text;
}

}  // namespace zefta
