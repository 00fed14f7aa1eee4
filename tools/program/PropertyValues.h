// Values of the library's properties, as they are shown and as they are typed in.
#pragma once

#include "frame/Conversions.h"
#include "frame/RuntimeError.h"
#include "tools/program/Encoding.h"
#include "tools/program/ErrorLines.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace qrtVistrelClasses4 {

/// Texts are UTF-8 there, enumerations numbers.
template <class Value>
nlohmann::ordered_json JsonOf(const Value& value) {
    if constexpr (std::is_same_v<Value, std::string>)
        return Utf8FromAnsi(value);
    else if constexpr (std::is_enum_v<Value>)
        return static_cast<std::int32_t>(value);
    else
        return value;
}

/// A value as a cell of a table.
std::string CellText(const nlohmann::ordered_json& value);

/// What was typed, as the library takes it; none, after telling why, when its files could not hold it.
std::optional<std::string> AnsiFromTyped(std::string_view typed, ErrorLines& errors);

/// How a type of values is read from text, and what to call it.
template <class Value>
struct TypedIn;
template <>
struct TypedIn<std::string> {
    static constexpr std::string_view name = "a text";
    static std::string read(const std::string& text) { return text; }
};
template <>
struct TypedIn<std::int16_t> {
    static constexpr std::string_view name = "a whole number from -32768 to 32767";
    static std::int16_t read(const std::string& text) { return TextToInt16(text); }
};
template <>
struct TypedIn<std::int32_t> {
    static constexpr std::string_view name = "a whole number from -2147483648 to 2147483647";
    static std::int32_t read(const std::string& text) { return TextToInt32(text); }
};
template <>
struct TypedIn<double> {
    static constexpr std::string_view name = "a number";
    static double read(const std::string& text) { return TextToDouble(text); }
};
template <>
struct TypedIn<bool> {
    static constexpr std::string_view name = "True or False";
    static bool read(const std::string& text) { return TextToBoolean(text); }
};

/// The value that was typed; none, after telling what is wanted, when it is of another type.
template <class Value>
std::optional<Value> ValueFromTyped(std::string_view typed, ErrorLines& errors) {
    const std::optional<std::string> ansi = AnsiFromTyped(typed, errors);
    if (!ansi)
        return std::nullopt;
    try {
        return TypedIn<Value>::read(*ansi);
    } catch (const RuntimeError&) {
        errors.add("takes " + std::string(TypedIn<Value>::name) + ", not \"" + std::string(typed) + "\"");
        return std::nullopt;
    }
}

} // namespace qrtVistrelClasses4
