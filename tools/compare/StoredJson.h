// Stored values and records as JSON, under the names and in the form that "vistrel show --json" has them in.
#pragma once

#include "tools/compare/StoredValues.h"
#include "tools/program/PropertyValues.h"

#include <string>

namespace qrtVistrelClasses4 {

/// A flag that is kept in a number is true for 1 and false for 0; other numbers are themselves.
template <class Row, class Value>
nlohmann::ordered_json JsonOfStored(const Row&, const Value& value) {
    if constexpr (std::is_same_v<typename Row::Value, bool> && !std::is_same_v<Value, bool>)
        return value == 0 || value == 1 ? nlohmann::ordered_json(value == 1) : nlohmann::ordered_json(value);
    else
        return JsonOf(value);
}

template <class Record>
nlohmann::ordered_json JsonOfRecord(const Record& record) {
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    ForEachStoredValue(
        [&]<class Row>(const Row& row, std::size_t, const auto& value) {
            nlohmann::ordered_json& place = object[std::string(NameOfStored(row))];
            if constexpr (kIsArrayOfValues<ValueOfRow<Row>>)
                place.push_back(JsonOf(value));
            else
                place = JsonOfStored(row, value);
        },
        record);
    if constexpr (requires { record.lines; }) {
        nlohmann::ordered_json& lines = object["Lines"] = nlohmann::ordered_json::array();
        for (const LineRecord& line : record.lines)
            lines.push_back(JsonOfRecord(line));
    }
    return object;
}

/// The value of the row of that name.
template <class Record>
nlohmann::ordered_json JsonOfNamed(std::string_view name, const StoredValue& value) {
    nlohmann::ordered_json json;
    ForEachRow(kMembersOf<Record>, [&]<class Row>(const Row& row) {
        if (NameOfStored(row) != name)
            return;
        if constexpr (kIsArrayOfValues<ValueOfRow<Row>>)
            json = JsonOf(std::get<typename ValueOfRow<Row>::value_type>(value));
        else
            json = JsonOfStored(row, std::get<ValueOfRow<Row>>(value));
    });
    return json;
}

} // namespace qrtVistrelClasses4
