#include "frame/Conversions.h"

#include "frame/RuntimeError.h"
#include "frame/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace qrtVistrelClasses4 {
namespace {

constexpr int kSignificantDigits = 15;
constexpr std::string_view kBlanks = " \t\r\n\v\f";

std::string_view withoutLeadingBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text;
}

std::string_view trimmed(std::string_view text) {
    text = withoutLeadingBlanks(text);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

struct ParsedNumber {
    double value = 0;
    std::string_view rest; ///< What follows the number; the whole text when there is none.
};

/// Reads sign, digits, "." and exponent. Too large a number is error 6, too small a one 0.
ParsedNumber parseNumber(std::string_view text) {
    std::string_view digits = text;
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    const bool negative = digits.starts_with('-');
    const std::string_view magnitude = digits.substr(negative ? 1 : 0);
    // Not every text that the standard reader takes for a number is one here ("inf", "+-5").
    if (magnitude.empty() || !(magnitude[0] == '.' || (magnitude[0] >= '0' && magnitude[0] <= '9')) ||
        (negative && digits.data() != text.data()))
        return {0, text};
    ParsedNumber result;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), result.value);
    if (error == std::errc::invalid_argument)
        return {0, text};
    result.rest = digits.substr(static_cast<std::size_t>(end - digits.data()));
    if (error == std::errc::result_out_of_range) {
        const std::string_view number = digits.substr(0, digits.size() - result.rest.size());
        const std::size_t exponent = number.find_first_of("eE");
        const bool tiny = exponent == number.npos ? number.find_first_of("123456789") > number.find('.')
                                                  : number.substr(exponent + 1).starts_with('-');
        if (!tiny)
            throw RuntimeError(ErrorNumber::overflow);
        result.value = 0;
    }
    return result;
}

template <class Integer>
Integer roundTo(double value) {
    const double rounded = std::nearbyint(value); // the default rounding mode takes halves to the even one
    if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
        throw RuntimeError(ErrorNumber::overflow);
    return static_cast<Integer>(rounded);
}

} // namespace

double TextToDouble(std::string_view text) {
    const std::string_view number = trimmed(text);
    std::string withPoint;
    ParsedNumber parsed = parseNumber(number);
    if (parsed.rest.starts_with(',') || number.starts_with(',')) {
        withPoint = number;
        withPoint[withPoint.find(',')] = '.';
        parsed = parseNumber(withPoint);
    }
    if (number.empty() || !parsed.rest.empty())
        throw RuntimeError(ErrorNumber::typeMismatch);
    return parsed.value;
}

std::int16_t TextToInt16(std::string_view text) { return RoundToInt16(TextToDouble(text)); }
std::int32_t TextToInt32(std::string_view text) { return RoundToInt32(TextToDouble(text)); }

bool TextToBoolean(std::string_view text) {
    if (EqualIgnoringCase(text, "true"))
        return true;
    if (EqualIgnoringCase(text, "false"))
        return false;
    return TextToDouble(text) != 0;
}

double LeadingNumber(std::string_view text) { return parseNumber(withoutLeadingBlanks(text)).value; }

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
        value = 0; // a negative zero has no sign in text
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::general, kSignificantDigits);
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
