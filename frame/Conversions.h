// Conversions between numbers or booleans and text, by the rules that users and files rely on.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// `text` without the blanks (tabs and line ends included) that a number may have around it.
std::string_view WithoutBlanks(std::string_view text);

/// Like `TextToDouble`, but without a value if the text is not a number.
std::optional<double> ParseNumber(std::string_view text);
/// Converts a number that may have blanks around it, a sign, an exponent, and "." or "," as decimal
/// separator. Any other text is error 13; a number that is too large is error 6.
double TextToDouble(std::string_view text);
/// Like `TextToDouble`, rounded to the nearest whole number, halves to the even one.
std::int16_t TextToInt16(std::string_view text);
std::int32_t TextToInt32(std::string_view text);
/// "True" or "False" in any case, or a number, which is true unless it is 0. Any other text is error 13.
bool TextToBoolean(std::string_view text);

/// The number at the start of the text, after blanks, up to the first character that does not belong to a
/// number; 0 if there is no number. Only "." is a decimal separator.
double LeadingNumber(std::string_view text);

/// The nearest whole number, halves to the even one. Error 6 if it does not fit.
std::int16_t RoundToInt16(double value);
std::int32_t RoundToInt32(double value);

/// `value` unchanged. Error 6 if it does not fit into 16 bits.
std::int16_t NarrowToInt16(std::int32_t value);

/// The text of any number fits into this many characters.
inline constexpr std::size_t kNumberTextSize = 32;
using NumberBuffer = std::array<char, kNumberTextSize>;
/// Like `NumberToText`, but the result is in `buffer`.
std::string_view FormatNumber(double value, NumberBuffer& buffer);
std::string_view FormatNumber(std::int32_t value, NumberBuffer& buffer);

/// The shortest decimal text with up to 15 significant digits, and with "." on every machine: "0.5", "-12",
/// "1E+15".
std::string NumberToText(double value);
std::string NumberToText(std::int32_t value);
/// "True" or "False".
std::string_view BooleanToText(bool value);

} // namespace qrtVistrelClasses4
