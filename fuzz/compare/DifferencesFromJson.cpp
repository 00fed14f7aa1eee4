#include "fuzz/compare/DifferencesFromJson.h"

#include <nlohmann/json.hpp>
#include <qrtVistrelClasses4/Utf8.h>

#include <stdexcept>

namespace qrtVistrelClasses4 {
namespace {

using nlohmann::json;

template <class Value>
Value valueFrom(const json& value) {
    if constexpr (std::is_same_v<Value, std::string>)
        return AnsiFromUtf8(value.get<std::string>()).value();
    else
        return value.get<Value>(); // true is 1
}

template <class Record>
Record recordFrom(const json& object) {
    Record record;
    ForEachStoredValue(
        [&]<class Row, class Value>(const Row& row, std::size_t index, Value& value) {
            const json& found = object.at(NameOfStored(row));
            value = valueFrom<Value>(kIsArrayOfValues<ValueOfRow<Row>> ? found.at(index) : found);
        },
        record);
    if constexpr (requires { record.lines; })
        for (const json& line : object.at("Lines")) {
            record.lines.resize(record.lines.upperBound() + 1);
            record.lines.at(record.lines.upperBound()) = recordFrom<LineRecord>(line);
        }
    return record;
}

template <class Record>
ValueDifference valueChangeFrom(const json& object) {
    ValueDifference change;
    change.index = object.value("index", std::size_t{0});
    Record record;
    ForEachStoredValue(
        [&]<class Value>(const auto& row, std::size_t index, Value&) {
            if (NameOfStored(row) != object.at("name").get<std::string>() || index != change.index)
                return;
            change.name = NameOfStored(row);
            change.before = valueFrom<Value>(object.at("before"));
            change.after = valueFrom<Value>(object.at("after"));
        },
        record);
    if (change.name.empty())
        throw std::logic_error("a change of a value that records do not have: " + object.dump());
    return change;
}

template <class Change, class Record>
Change changeFrom(const json& object, const char* recordKey, const OneBasedArray<Record>& records) {
    const auto numberAt = [&](const char* key) { return object.value(key, 0); };
    Change change;
    change.before = numberAt("before");
    change.after = numberAt("after");
    if (object.contains(recordKey)) {
        change.record = recordFrom<Record>(object.at(recordKey));
        return change;
    }
    change.record = records.at(change.before);
    change.isMoved = object.at("moved").get<bool>();
    for (const json& value : object.at("values"))
        change.values.push_back(valueChangeFrom<Record>(value));
    if constexpr (requires { change.lines; })
        for (const json& line : object.at("lines"))
            change.lines.push_back(changeFrom<LineDifference>(line, "line", change.record.lines));
    return change;
}

} // namespace

Differences DifferencesFromJson(const std::string& text, const OneBasedArray<FrameRecord>& before) {
    Differences differences;
    for (const json& object : json::parse(text))
        differences.push_back(changeFrom<FrameDifference>(object, "frame", before));
    return differences;
}

} // namespace qrtVistrelClasses4
