// What the properties of signs, frames and lines, and the settings for new signs, can be. The library stores
// any value of the right type, so a mistyped one would only be noticed at the sign.
#pragma once

#include "tools/program/ErrorLines.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

struct NamedNumber {
    std::string_view name;
    std::int16_t number = 0;
};

/// Names that may be typed for the numbers of a property.
struct NumberNames {
    std::vector<NamedNumber> (*all)();
    std::string_view (*nameOf)(std::int16_t number); ///< "" if it has none.
    std::string_view listing; ///< The command that lists them. Without one, messages have all names.
};

struct AllowedValues {
    std::string_view property;
    // For numbers. The type of the property may narrow them.
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    const NumberNames* names = nullptr;
    bool areNamed = false; ///< Only numbers that have names are allowed.
    // For texts, which may always be empty: the pattern, ignoring case, and what it means. Any text if there
    // is no pattern.
    std::string_view pattern{};
    std::string_view meaning{};
};

/// By the name that the property has in its member table. Everything is allowed for most properties.
const AllowedValues& AllowedValuesOf(std::string_view property);

/// Texts that have a pattern are not longer: matching would take much of the stack.
inline constexpr std::size_t kLongestMatched = 254;
/// The pattern as a regular expression for all of a text, in which the case of letters does not matter.
std::string ExpressionOf(const AllowedValues& allowed);

bool Allows(const AllowedValues& allowed, double number);
bool Allows(const AllowedValues& allowed, const std::string& text);

/// What error messages call the allowed values: "a whole number from 1 to 32767".
std::string DescriptionOf(const AllowedValues& allowed, std::string_view type, double least, double most);
/// The same for texts.
std::string DescriptionOf(const AllowedValues& allowed);

/// What may be typed, if it is one of a few names; else nothing.
std::vector<std::string> NamesOf(const AllowedValues& allowed);

/// False, after adding an error, if the number of `thing` in a list is not one from 1 to `last`.
bool IsWithin(const char* argument, std::int32_t number, std::int32_t last, const std::string& thing,
              ErrorLines& errors);

/// The number that was typed as a name or as the beginning of one of its words, in any case. Adds an error
/// and returns nothing if it could be several or none.
std::optional<std::int16_t> NumberOfName(const NumberNames& names, std::string_view typed,
                                         ErrorLines& errors);

/// Name of a property's number; "" if it has none, or if the property's numbers have no names.
std::string_view NameOfNumber(std::string_view property, std::int16_t number);

} // namespace qrtVistrelClasses4
