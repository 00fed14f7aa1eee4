// Values of the library's properties, as they are shown and typed in. A whole record is handled by its member
// table.
#pragma once

#include "frame/Conversions.h"
#include "platform/LetterCase.h"
#include "tools/program/AllowedValues.h"
#include "tools/program/Encoding.h"
#include "tools/program/ErrorLines.h"
#include "tools/program/NameDistance.h"
#include <qrtVistrelClasses4/MemberTable.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// A value as JSON: a text in UTF-8, an enumeration as its number.
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

/// The typed text in Windows-1252. Returns nothing, and adds the reason to `errors`, if the library's files
/// could not hold it.
std::optional<std::string> AnsiFromTyped(std::string_view typed, ErrorLines& errors);

/// Whether a text begins with a letter, as no number does.
bool LooksLikeName(std::string_view text);

/// Whether a number may have been typed with a comma between its thousands, which would be read as a decimal
/// one. A whole number has neither.
bool HasDoubtfulComma(std::string_view text, bool isWhole);

/// How a value of a type is read from text, and what an error message calls the type.
template <class Value>
struct TypedIn;
template <>
struct TypedIn<std::string> {
    static std::string read(const std::string& text) { return text; }
};
template <>
struct TypedIn<std::int16_t> {
    static constexpr std::string_view name = "a whole number";
    static std::int16_t read(const std::string& text) { return TextToInt16(text); }
};
template <>
struct TypedIn<std::int32_t> {
    static constexpr std::string_view name = "a whole number";
    static std::int32_t read(const std::string& text) { return TextToInt32(text); }
};
template <>
struct TypedIn<double> {
    static constexpr std::string_view name = "a number";
    static double read(const std::string& text) { return TextToDouble(text); }
};
template <>
struct TypedIn<bool> {
    static bool read(const std::string& text);
};

/// A value that was typed for a property.
struct TypedValue {
    std::string_view property; ///< By its name in the member table.
    std::string_view text;
    bool isUnchecked = false; ///< Any value of the right type is taken.
};

/// The name and the value of "NAME=VALUE". Returns nothing, and adds an error, for any other text.
std::optional<std::pair<std::string_view, std::string_view>> SplitAssignment(std::string_view typed,
                                                                             ErrorLines& errors);

/// What error messages call the values that a property takes.
template <class Value>
std::string ExpectedOf(const AllowedValues& allowed) {
    using Limits = std::numeric_limits<Value>;
    if constexpr (std::is_same_v<Value, std::string>)
        return DescriptionOf(allowed);
    else if constexpr (std::is_same_v<Value, bool>)
        return "yes or no";
    else if constexpr (std::is_integral_v<Value>)
        return DescriptionOf(allowed, TypedIn<Value>::name, Limits::min(), Limits::max());
    else
        return DescriptionOf(allowed, TypedIn<Value>::name, -Limits::infinity(), Limits::infinity());
}

/// False if `value` was rounded, or is not one of the allowed values.
template <class Value>
bool IsAllowed(const AllowedValues& allowed, const std::string& ansi, const Value& value) {
    if constexpr (std::is_same_v<Value, bool>)
        return true;
    else if constexpr (std::is_same_v<Value, std::string>)
        return Allows(allowed, value);
    else
        return Allows(allowed, value) && TextToDouble(ansi) == value;
}

/// The value that was typed. Returns nothing, and adds what is expected to `errors`, if it is of another type
/// or not one that the property can have.
template <class Value>
std::optional<Value> ValueFromTyped(const TypedValue& typed, ErrorLines& errors) {
    const std::optional<std::string> ansi = AnsiFromTyped(typed.text, errors);
    if (!ansi)
        return std::nullopt;
    const AllowedValues& allowed = AllowedValuesOf(typed.property);
    if constexpr (std::is_same_v<Value, std::int16_t>)
        if (allowed.names && LooksLikeName(*ansi))
            return NumberOfName(*allowed.names, typed.text, errors);
    const auto refusal = [&] {
        return "takes " + ExpectedOf<Value>(allowed) + ", not \"" + std::string(typed.text) + "\"";
    };
    if constexpr (std::is_arithmetic_v<Value> && !std::is_same_v<Value, bool>)
        if (HasDoubtfulComma(*ansi, std::is_integral_v<Value>)) {
            errors.add(refusal() + "; a comma does not divide thousands");
            return std::nullopt;
        }
    try {
        Value value = TypedIn<Value>::read(*ansi);
        if (typed.isUnchecked || IsAllowed(allowed, *ansi, value))
            return value;
        errors.add(refusal() + "; --unchecked stores it all the same");
    } catch (const RuntimeError&) {
        errors.add(refusal());
    }
    return std::nullopt;
}

/// Whether a row's property is the name of a file. Its encoding may be that of the disk.
template <class Row>
bool NamesFile(const Row& row) {
    if constexpr (requires { row.quirk; })
        return row.quirk == decltype(row.quirk)::namesFile;
    else
        return false;
}

/// The value of a row's property: the result of the row's own `get` if it has one, else the member.
template <class Row>
auto ValueOfProperty(const Row& row, const typename Row::Record& record) {
    if constexpr (requires { row.get(record); })
        return row.get(record);
    else
        return record.*row.member;
}

/// The same as JSON: null if the property cannot be read.
template <class Row>
nlohmann::ordered_json JsonOfProperty(const Row& row, const typename Row::Record& record) {
    try {
        const auto value = ValueOfProperty(row, record);
        if constexpr (std::is_same_v<decltype(value), const std::string>)
            if (NamesFile(row))
                return Utf8FromName(value);
        return JsonOf(value);
    } catch (const RuntimeError&) {
        return nullptr;
    }
}

/// The counterpart of `ValueOfProperty`, with the row's own `set`.
template <class Row>
void SetProperty(const Row& row, typename Row::Record& record, ValueOfRow<Row> value) {
    if constexpr (requires { row.set(record, std::move(value)); })
        row.set(record, std::move(value));
    else
        record.*row.member = std::move(value);
}

/// A row whose member is a list of records with a table of their own, `elements`. `elementName` is what one
/// of them is called.
template <class Row>
concept RowOfRecords = requires(const Row& row) {
    row.elements;
    row.elementName;
};

/// Calls `visit(name, row, record)` for each row with a name, in the order of the table. The name of a value
/// in a list of records is "Schedule2.StartTime", counted from 1.
template <class Record, class Table, class Visit>
void ForEachProperty(Record& record, const Table& table, const Visit& visit, const std::string& prefix = "") {
    ForEachRow(table, [&]<class Row>(const Row& row) {
        if (row.name.empty())
            return;
        if constexpr (RowOfRecords<Row>) {
            int number = 0;
            for (auto& element : record.*row.member)
                ForEachProperty(element, row.elements, visit,
                                prefix + std::string(row.elementName) + std::to_string(++number) + ".");
        } else {
            visit(prefix + std::string(row.name), row, record);
        }
    });
}

/// An object with the properties of a record under their names. Rows without a name are left out.
template <class Record, class Table>
nlohmann::ordered_json JsonOf(const Record& record, const Table& table) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    ForEachRow(table, [&]<class Row>(const Row& row) {
        if (row.name.empty())
            return;
        nlohmann::ordered_json& value = object[std::string(row.name)];
        if constexpr (RowOfRecords<Row>) {
            value = nlohmann::ordered_json::array();
            for (const auto& element : record.*row.member)
                value.push_back(JsonOf(element, row.elements));
        } else {
            value = JsonOfProperty(row, record);
        }
    });
    return object;
}

/// The property that `name` may have been meant for.
template <class Record, class Table>
NearestName NearestProperty(const Record& record, const Table& table, std::string_view name) {
    NearestName nearest(name);
    ForEachProperty(record, table, [&](const std::string& candidate, const auto&, const auto&) {
        nearest.offer(candidate);
    });
    return nearest;
}

/// Sets a property of a record, named as by `ForEachProperty` but in any case, to what was typed. Returns
/// false, and adds the reason to `errors`, if there is no such property or it cannot have the value.
template <class Record, class Table>
bool SetByName(Record& record, const Table& table, TypedValue typed, ErrorLines& errors) {
    std::optional<bool> done; // empty until the property is found
    ForEachProperty(
        record, table,
        [&]<class Row>(const std::string& fullName, const Row& row, typename Row::Record& holder) {
            if (!EqualIgnoringAsciiCase(fullName, typed.property))
                return;
            errors.about(fullName);
            auto value = ValueFromTyped<ValueOfRow<Row>>({row.name, typed.text, typed.isUnchecked}, errors);
            done = value.has_value();
            if (value)
                SetProperty(row, holder, *std::move(value));
        });
    if (!done) {
        errors.about(typed.property);
        errors.add("there is no such property" + NearestProperty(record, table, typed.property).hint());
    }
    return done.value_or(false);
}

/// A property whose value has changed, named as by `ForEachProperty`.
struct ChangedProperty {
    std::string name;
    nlohmann::ordered_json before, after;
};

/// The differences between two records of the same kind.
template <class Record, class Table>
std::vector<ChangedProperty> ChangesBetween(const Record& before, const Record& after, const Table& table) {
    std::vector<ChangedProperty> properties;
    ForEachProperty(before, table, [&](const std::string& name, const auto& row, const auto& record) {
        properties.push_back({name, JsonOfProperty(row, record), nullptr});
    });
    std::size_t index = 0;
    ForEachProperty(after, table, [&](const std::string&, const auto& row, const auto& record) {
        properties.at(index++).after = JsonOfProperty(row, record);
    });
    std::erase_if(properties, [](const ChangedProperty& it) { return it.before == it.after; });
    return properties;
}

/// "DisplayWidth: 128 -> 192". Numbers that have a name are followed by it.
std::string ChangeText(const ChangedProperty& change);
/// A property's value as a cell of a table, followed by its meaning: "16 (Kestrel)".
std::string CellText(std::string_view property, const nlohmann::ordered_json& value);

} // namespace qrtVistrelClasses4
