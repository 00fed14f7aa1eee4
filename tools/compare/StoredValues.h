// The values that a record holds, one by one, as its member table lists them.
//
// These are the values of the file, not what properties read: a flag that is kept in a number is that number.
#pragma once

#include "tools/exchange/RecordKinds.h"
#include <qrtVistrelClasses4/FrameRecord.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

namespace qrtVistrelClasses4 {

/// A value of any member, or an element of one that is an array.
using StoredValue = std::variant<bool, std::int16_t, std::int32_t, double, std::string>;

template <class Value>
inline constexpr bool kIsArrayOfValues = false;
template <class Value, std::size_t count>
inline constexpr bool kIsArrayOfValues<std::array<Value, count>> = true;

/// The type of the values that the member of a row has, or that are in it if it is an array.
template <class Value>
struct ElementOf {
    using Type = Value;
};
template <class Value, std::size_t count>
struct ElementOf<std::array<Value, count>> {
    using Type = Value;
};
template <class Row>
using StoredIn = typename ElementOf<ValueOfRow<Row>>::Type;

/// What the values of a row are called, which is their key in JSON.
template <class Row>
std::string NameOfStored(const Row& row) {
    return row.name.empty() ? MemberKind<typename Row::Record, ValueOfRow<Row>>::spareKey(0)
                            : std::string(row.name);
}

/// Calls `visit(row)` with the row whose values have a name.
template <class Record, class Visit>
void VisitRowNamed(std::string_view name, const Visit& visit) {
    ForEachRow(kMembersOf<Record>, [&](const auto& row) {
        if (NameOfStored(row) == name)
            visit(row);
    });
}

/// Calls `visit(row, index, values...)` with each value that the records, all of one kind, have in the same
/// place. `index` is that of the value in an array, from 0.
template <class Visit, class Record, class... Records>
void ForEachStoredValue(const Visit& visit, Record& first, Records&... others) {
    ForEachRow(kMembersOf<std::remove_const_t<Record>>, [&]<class Row>(const Row& row) {
        if constexpr (kIsArrayOfValues<ValueOfRow<Row>>)
            for (std::size_t index = 0; index < (first.*Row::member).size(); ++index)
                visit(row, index, (first.*Row::member)[index], (others.*Row::member)[index]...);
        else
            visit(row, std::size_t{0}, first.*Row::member, others.*Row::member...);
    });
}

} // namespace qrtVistrelClasses4
