#include "tools/program/Table.h"

#include <algorithm>
#include <ostream>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kGap = "  ";

} // namespace

std::size_t WidthOf(std::string_view utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(
        utf8, [](char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; }));
}

/// Cells beyond this stick out of their column, so that one long text does not widen every line.
constexpr std::size_t kWidestColumn = 80;

std::vector<std::size_t> Table::widths() const {
    std::vector<std::size_t> result;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        result.push_back(WidthOf(columns_[i].heading));
        for (const auto& row : rows_)
            result[i] = std::max(result[i], std::min(WidthOf(row[i]), kWidestColumn));
    }
    return result;
}

std::ostream& operator<<(std::ostream& out, const Table& table) {
    const std::vector<std::size_t> widths = table.widths();
    const auto printLine = [&](const auto& cellOf) {
        std::string line;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const std::string cell = cellOf(i);
            const std::string padding(widths[i] - std::min(WidthOf(cell), widths[i]), ' ');
            line += i > 0 ? kGap : "";
            line += table.columns_[i].align == Table::Align::right ? padding + cell : cell + padding;
        }
        out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    };
    printLine([&](std::size_t i) { return table.columns_[i].heading; });
    printLine([&](std::size_t i) { return std::string(widths[i], '-'); });
    for (const auto& row : table.rows_)
        printLine([&](std::size_t i) { return row[i]; });
    return out;
}

} // namespace qrtVistrelClasses4
