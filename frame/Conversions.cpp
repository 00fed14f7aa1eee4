#include "frame/Conversions.h"

#include "platform/LetterCase.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kSignificantDigits = 15;
/// Beyond this a number is written with all its digits: rounded, it could be too large to be read back.
constexpr double kLargestRounded = 1.79769313486231e308;
constexpr int kAllDigits = 17;
constexpr std::string_view kBlanks = " \t\r\n\v\f";

std::string_view withoutLeadingBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text;
}

struct LeadingPart {
    double value = 0;      ///< Infinite when it is too large.
    std::string_view rest; ///< What follows the number; the whole text when there is none.
};

bool isDigit(char character) { return character >= '0' && character <= '9'; }

/// Whether a number that does not fit is too small rather than too large. `number` is unsigned.
bool isTooSmall(std::string_view number) {
    const std::size_t exponentMark = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, exponentMark);
    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const auto firstDigit = static_cast<std::int64_t>(digits.find_first_of("123456789"));
    std::int64_t exponent = 0;
    if (exponentMark < number.size()) {
        std::string_view text = number.substr(exponentMark + 1);
        text.remove_prefix(text.starts_with('+') ? 1 : 0);
        if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc())
            return text.starts_with('-');
    }
    constexpr std::int64_t farOut = std::int64_t{1} << 40; // beyond the length of any text
    return point - firstDigit + std::clamp(exponent, -farOut, farOut) < 0;
}

/// Reads sign, digits, "." and exponent. Too small a number is 0.
LeadingPart readLeadingNumber(std::string_view text) {
    const bool negative = text.starts_with('-');
    const std::string_view number = text.substr(negative || text.starts_with('+') ? 1 : 0);
    // Not every text that the standard reader takes for a number is one here ("inf", "--5").
    if (number.empty() || !(number[0] == '.' || isDigit(number[0])))
        return {0, text};
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::invalid_argument)
        return {0, text};
    const auto size = static_cast<std::size_t>(end - number.data());
    if (error == std::errc::result_out_of_range) {
        value = isTooSmall(number.substr(0, size)) ? 0 : std::numeric_limits<double>::infinity();
    }
    return {negative ? -value : value, number.substr(size)};
}

double finite(double value) {
    if (std::isinf(value))
        throw RuntimeError(ErrorNumber::overflow);
    return value;
}

template <class Integer>
Integer roundTo(double value) {
    const double rounded = std::nearbyint(value); // the default rounding mode takes halves to the even one
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<Integer>(rounded);
}

/// Whether a number lies in the middle of two numbers of 15 digits. Such a number has 16 digits, of which the
/// last is a 5.
bool isTie(double value) {
    constexpr std::size_t sizeOf16Digits = 17;
    constexpr int manyDigits = 50;
    std::array<char, 64> text;
    const auto format = [&](auto... precision) {
        const auto result = std::to_chars(text.data(), text.data() + text.size(), std::abs(value),
                                          std::chars_format::scientific, precision...);
        const std::string_view all(text.data(), result.ptr);
        return all.substr(0, all.find('e'));
    };
    const std::string_view shortest = format();
    if (shortest.size() != sizeOf16Digits || shortest.back() != '5')
        return false;
    const std::string_view exact = format(manyDigits);
    return exact[sizeOf16Digits - 1] == '5' && exact.find_first_not_of('0', sizeOf16Digits) == exact.npos;
}

} // namespace

std::string_view WithoutBlanks(std::string_view text) {
    text = withoutLeadingBlanks(text);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::optional<double> ParseNumber(std::string_view text) {
    std::string_view number = WithoutBlanks(text);
    std::string withPoint;
    if (const std::size_t comma = number.find(','); comma != number.npos && number.find('.') == number.npos) {
        withPoint = number;
        withPoint[comma] = '.';
        number = withPoint;
    }
    const LeadingPart parsed = readLeadingNumber(number);
    return number.empty() || !parsed.rest.empty() ? std::nullopt : std::optional(finite(parsed.value));
}

double TextToDouble(std::string_view text) {
    if (const auto number = ParseNumber(text))
        return *number;
    throw RuntimeError(ErrorNumber::typeMismatch);
}

std::int16_t TextToInt16(std::string_view text) { return RoundToInt16(TextToDouble(text)); }
std::int32_t TextToInt32(std::string_view text) { return RoundToInt32(TextToDouble(text)); }

bool TextToBoolean(std::string_view text) {
    if (EqualIgnoringAsciiCase(text, "true"))
        return true;
    if (EqualIgnoringAsciiCase(text, "false"))
        return false;
    return TextToDouble(text) != 0;
}

double LeadingNumber(std::string_view text) {
    return finite(readLeadingNumber(withoutLeadingBlanks(text)).value);
}

std::int16_t RoundToInt16(double value) { return roundTo<std::int16_t>(value); }
std::int32_t RoundToInt32(double value) { return roundTo<std::int32_t>(value); }

std::int16_t NarrowToInt16(std::int32_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max())
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<std::int16_t>(value);
}

std::string_view FormatNumber(std::int32_t value, NumberBuffer& buffer) {
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), result.ptr};
}

std::string_view FormatNumber(double value, NumberBuffer& buffer) {
    if (value == 0)
        value = 0;    // a negative zero has no sign in text
    if (isTie(value)) // halves are rounded away from zero
        value = std::nextafter(value, std::copysign(std::numeric_limits<double>::infinity(), value));
    const int digits = std::abs(value) > kLargestRounded ? kAllDigits : kSignificantDigits;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::general, digits);
    std::replace(buffer.data(), result.ptr, 'e', 'E');
    return {buffer.data(), result.ptr};
}

std::string NumberToText(double value) {
    NumberBuffer buffer;
    return std::string(FormatNumber(value, buffer));
}

std::string NumberToText(std::int32_t value) {
    NumberBuffer buffer;
    return std::string(FormatNumber(value, buffer));
}

std::string_view BooleanToText(bool value) { return value ? "True" : "False"; }

} // namespace qrtVistrelClasses4
