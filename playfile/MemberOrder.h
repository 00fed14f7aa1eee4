// Rows of a member table in another order than that of the file.
#pragma once

#include <qrtVistrelClasses4/FrameRecord.h>

#include <array>
#include <cstddef>
#include <tuple>
#include <utility>

namespace qrtVistrelClasses4 {

struct ExportOrder {
    static constexpr int placeOf(const auto& row) { return row.exportPlace; }
};
struct ClipboardOrder {
    static constexpr int placeOf(const auto& row) { return row.clipboardPlace; }
};

template <const auto& table, class Order>
constexpr std::size_t CountPlaces() {
    std::size_t count = 0;
    ForEachRow(table, [&](const auto& row) { count += Order::placeOf(row) > 0 ? 1 : 0; });
    return count;
}

/// Indices of the rows with a place, by their places. Places that are not 1, 2, 3, ... do not compile.
template <const auto& table, class Order>
inline constexpr auto kRowOrder = [] {
    constexpr std::size_t count = CountPlaces<table, Order>();
    std::array<std::size_t, count> indices{};
    std::array<bool, count> isTaken{};
    std::size_t index = 0;
    ForEachRow(table, [&](const auto& row) {
        if (const int place = Order::placeOf(row); place > 0) {
            const auto at = static_cast<std::size_t>(place) - 1;
            if (isTaken.at(at))
                throw "two rows have the same place";
            isTaken.at(at) = true;
            indices.at(at) = index;
        }
        ++index;
    });
    return indices;
}();

/// Calls `visit(row)` for each row with a place, in the order of the places.
template <const auto& table, class Order, class Visit>
constexpr void ForEachPlacedRow(Visit&& visit) {
    constexpr const auto& order = kRowOrder<table, Order>;
    [&]<std::size_t... place>(std::index_sequence<place...>) { (visit(std::get<order[place]>(table)), ...); }
    (std::make_index_sequence<order.size()>());
}

} // namespace qrtVistrelClasses4
