// Lists of signs such as sites have, in any size.
#pragma once

#include <qrtVistrelClasses4/DisplayRecord.h>

#include <cstdint>
#include <string>
#include <vector>

namespace qrtVistrelClasses4::bench {

using Displays = std::vector<DisplayRecord>;

/// Signs in the network, on lines and on modems, some with schedules. Reading mends none of the values. Every
/// call makes the same signs.
Displays MakeDisplays(std::int16_t count);

/// The file of these signs, written with {fmt}.
void SaveWithFmt(const Displays& displays, const std::string& path);

/// Calls `visit(name, value)` with each member of a record that has no table of its own, in file order.
/// Members without a property have an empty name.
template <class Record, class Table, class Visit>
void ForEachValue(const Record& record, const Table& table, Visit visit) {
    ForEachRow(table, [&](const auto& row) {
        if constexpr (!requires { row.elements; })
            visit(row.name, record.*row.member);
    });
}

} // namespace qrtVistrelClasses4::bench
