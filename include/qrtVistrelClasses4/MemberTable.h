// Each record has one table of its members: their names, in the order of its file, and what else is known
// about them. Files, JSON, typed values, clipboards and properties all use that table.
#pragma once

#include <qrtVistrelClasses4/Export.h>

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>
#include <utility>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// How a property of a public class reaches its member.
enum class Access : std::uint8_t {
    traced,   ///< On the call trace; errors are trapped.
    trapped,  ///< Not on the call trace; errors are trapped.
    untraced, ///< Not on the call trace; errors go to the caller.
    none,     ///< No property: only files hold the member.
};

/// Calls `visit(row)` for each row of a table, which is a tuple, in its order.
template <class Table, class Visit>
constexpr void ForEachRow(const Table& table, Visit&& visit) {
    std::apply([&](const auto&... row) { (visit(row), ...); }, table);
}

/// Index (from 0) of the row whose `member` is `sought`; the size of the table when it has no such row.
template <class Table, class Member>
constexpr std::size_t RowIndex(const Table& table, Member sought) {
    std::size_t index = 0;
    bool isFound = false;
    ForEachRow(table, [&]<class Row>(const Row& row) {
        if constexpr (std::is_same_v<std::remove_cv_t<decltype(row.member)>, Member>)
            isFound = isFound || row.member == sought;
        index += isFound ? 0 : 1;
    });
    return index;
}

/// The row of a member, found at compile time: `kRowOf<kDisplayMembers, &DisplayRecord::DisplayName>.name`.
template <const auto& table, auto member>
inline constexpr const auto& kRowOf = std::get<RowIndex(table, member)>(table);

/// The type of value that a row's member has.
template <class Row>
using ValueOfRow =
    std::remove_cvref_t<decltype(std::declval<typename Row::Record&>().*std::declval<const Row&>().member)>;

} // namespace qrtVistrelClasses4
