// Numbers and booleans as text, by the rules that the application's users and files rely on.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Text as a number, none when it is not one. Otherwise as `TextToDouble`.
std::optional<double> ParseNumber(std::string_view text);
/// Text as a number. Blanks around it, a sign, "." or "," as decimal separator and an exponent are
/// understood; anything else is error 13, too large a number error 6.
double TextToDouble(std::string_view text);
/// As `TextToDouble`, rounded to the nearest whole number, halves to the even one.
std::int16_t TextToInt16(std::string_view text);
std::int32_t TextToInt32(std::string_view text);
/// "True" or "False" in any case, or a number: other than zero is true. Anything else is error 13.
bool TextToBoolean(std::string_view text);

/// The number at the start of the text: blanks are passed over, reading stops at the first character that
/// does not belong to a number, none gives 0. Only "." is a decimal separator.
double LeadingNumber(std::string_view text);

/// Nearest whole number, halves to the even one; error 6 when it does not fit.
std::int16_t RoundToInt16(double value);
std::int32_t RoundToInt32(double value);

/// `value` unchanged; error 6 when it does not fit into 16 bits.
std::int16_t NarrowToInt16(std::int32_t value);

/// Room for the text of any number.
inline constexpr std::size_t kNumberTextSize = 32;
using NumberBuffer = std::array<char, kNumberTextSize>;
/// As `NumberToText`, without a string of its own: the result lies in `buffer`.
std::string_view FormatNumber(double value, NumberBuffer& buffer);
std::string_view FormatNumber(std::int32_t value, NumberBuffer& buffer);

/// Shortest decimal text of up to 15 significant digits, with "." on every machine: "0.5", "-12", "1E+15".
std::string NumberToText(double value);
std::string NumberToText(std::int32_t value);
/// "True" or "False".
std::string_view BooleanToText(bool value);

} // namespace qrtVistrelClasses4
