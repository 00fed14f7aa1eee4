// Lists of signs such as sites have, in any size.
#pragma once

#include "displays/DisplayFormat.h"

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

namespace qrtVistrelClasses4::bench {

using Displays = std::vector<DisplayRecord>;

/// Signs in the network, on lines and behind modems, some with schedules; no value is one that reading mends.
/// The same at every call.
Displays MakeDisplays(std::int16_t count);

/// The file of these signs, written with {fmt}.
void SaveWithFmt(const Displays& displays, const std::string& path);

template <class Record, class Value>
const Value& ValueOf(const Record& record, Value Record::*member) {
    return record.*member;
}
template <class Value>
const Value& ValueOf(const DisplayRecord& display, MendedField<Value> field) {
    return display.*field.member;
}
/// Calls `visit` with each of these values, in file order.
template <class Record, class Fields, class Visit>
void ForEachValue(const Record& record, const Fields& fields, Visit visit) {
    std::apply([&](auto... field) { (visit(ValueOf(record, field)), ...); }, fields);
}

} // namespace qrtVistrelClasses4::bench
