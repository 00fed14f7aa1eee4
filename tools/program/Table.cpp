#include "tools/program/Table.h"

#include "tools/program/Screen.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kGap = "  ";
constexpr std::string_view kNarrowGap = " ";

/// Cells beyond this stick out of their column, so that one long text does not widen every line of a file.
constexpr std::size_t kWidestColumn = 80;
/// A column of texts that has to be narrower than this gets some room from the gaps.
constexpr std::size_t kEasyToRead = 8;
/// Columns of texts are never narrower, even if the table is too wide then.
constexpr std::size_t kNarrowestColumn = 3;

/// Whether a byte starts a character of UTF-8.
bool startsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xc0) != 0x80; }

/// The cell, or as much of it as fits before the ellipsis.
std::string cut(const std::string& cell, std::size_t width, std::string_view ellipsis) {
    if (ellipsis.empty() || WidthOf(cell) <= width)
        return cell;
    std::size_t left = width - WidthOf(ellipsis);
    const auto end = std::ranges::find_if(
        cell, [&](char byte) { return startsCharacter(byte) && std::exchange(left, left - 1) == 0; });
    const std::string kept(cell.begin(), end);
    return kept.substr(0, kept.find_last_not_of(' ') + 1).append(ellipsis);
}

} // namespace

std::size_t WidthOf(std::string_view utf8) {
    return static_cast<std::size_t>(std::ranges::count_if(utf8, startsCharacter));
}

std::vector<std::size_t> Table::widths(std::size_t widest) const {
    std::vector<std::size_t> result;
    for (const Column& column : columns_)
        result.push_back(WidthOf(column.heading));
    forEachRow([&](const Cells& cells) {
        for (std::size_t i = 0; i < cells.size(); ++i)
            result[i] = std::max(result[i], std::min(WidthOf(cells[i]), widest));
    });
    return result;
}

/// Narrows the columns that may be cut, the widest first, so that all columns together take no more than
/// `room`. Returns the width of the widest one then.
std::size_t Table::narrow(std::vector<std::size_t>& widths, std::size_t room) const {
    const auto together = [&](std::size_t widest) {
        std::size_t sum = 0;
        for (std::size_t i = 0; i < widths.size(); ++i)
            sum += columns_[i].isWhole ? widths[i] : std::min(widths[i], widest);
        return sum;
    };
    std::size_t widest = std::max(room, kNarrowestColumn);
    while (widest > kNarrowestColumn && together(widest) > room)
        --widest;
    std::size_t spare = room - std::min(room, together(widest));
    for (std::size_t i = 0; i < widths.size(); ++i)
        if (!columns_[i].isWhole && widths[i] > widest) {
            widths[i] = widest + (spare > 0 ? 1 : 0);
            spare -= std::min<std::size_t>(spare, 1);
        }
    return widest;
}

Table::Layout Table::layoutFor(const Screen& screen) const {
    if (!screen.columns)
        return {widths(kWidestColumn), kGap};
    const std::string_view ellipsis = screen.hasSymbols ? "\u2026" : "...";
    Layout layout;
    for (const std::string_view gap : {kGap, kNarrowGap}) {
        const std::size_t gaps = gap.size() * (columns_.size() - 1);
        layout = {widths(std::max(*screen.columns, kNarrowestColumn)), gap, ellipsis};
        if (narrow(layout.widths, *screen.columns - std::min(gaps, *screen.columns)) >= kEasyToRead)
            break;
    }
    return layout;
}

std::ostream& operator<<(std::ostream& out, const Table& table) {
    const Table::Layout layout = table.layoutFor(ScreenOf(out));
    const std::vector<std::size_t>& widths = layout.widths;
    const auto printLine = [&](const auto& cellOf) {
        std::string line;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const Table::Column& column = table.columns_[i];
            const std::string cell = column.isWhole ? cellOf(i) : cut(cellOf(i), widths[i], layout.ellipsis);
            const std::string padding(widths[i] - std::min(WidthOf(cell), widths[i]), ' ');
            line += i > 0 ? layout.gap : "";
            line += column.align == Table::Align::right ? padding + cell : cell + padding;
        }
        out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    };
    printLine([&](std::size_t i) { return table.columns_[i].heading; });
    printLine([&](std::size_t i) { return std::string(widths[i], '-'); });
    table.forEachRow([&](const Table::Cells& cells) { printLine([&](std::size_t i) { return cells[i]; }); });
    return out;
}

} // namespace qrtVistrelClasses4
