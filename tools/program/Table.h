// Columns of text for the terminal.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

struct Screen;

/// Number of characters in a UTF-8 text.
std::size_t WidthOf(std::string_view utf8);

/// Rows under headings, each column as wide as its widest cell, unless the screen of the stream is narrower.
/// Cells are UTF-8 without control characters.
class Table {
public:
    enum class Align { left, right };
    struct Column {
        std::string heading;
        Align align = Align::left;
        bool isWhole = align == Align::right; ///< Its cells are never cut, as those of numbers.
    };

    explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

    /// One cell a column.
    void addRow(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    friend std::ostream& operator<<(std::ostream& out, const Table& table);

private:
    /// What all lines have in common.
    struct Layout {
        std::vector<std::size_t> widths;
        std::string_view gap;           ///< Between two columns.
        std::string_view ellipsis = {}; ///< Ends a cell that is cut. If empty, it sticks out of its column.
    };
    Layout layoutFor(const Screen& screen) const;
    std::vector<std::size_t> widths(std::size_t widest) const;
    std::size_t narrow(std::vector<std::size_t>& widths, std::size_t room) const;

    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

} // namespace qrtVistrelClasses4
