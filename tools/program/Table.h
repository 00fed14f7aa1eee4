// Columns of text for the terminal.
#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <utility>
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

    using Cells = std::vector<std::string>; ///< One a column.

    void addRow(Cells cells) { rows_.push_back(std::move(cells)); }
    /// The same for rows of which there may be more than fit into memory. They follow all others, and are
    /// made by `cellsOf(index)` whenever they are needed.
    void setMoreRows(std::size_t count, std::function<Cells(std::size_t)> cellsOf) {
        moreRows_ = count;
        moreCells_ = std::move(cellsOf);
    }

    friend std::ostream& operator<<(std::ostream& out, const Table& table);

private:
    /// What all lines have in common.
    struct Layout {
        std::vector<std::size_t> widths;
        std::string_view gap;           ///< Between two columns.
        std::string_view ellipsis = {}; ///< Ends a cell that is cut. If empty, it sticks out of its column.
    };
    /// Calls `visit(cells)` for every row.
    template <class Visit>
    void forEachRow(Visit visit) const {
        for (const Cells& row : rows_)
            visit(row);
        for (std::size_t index = 0; index < moreRows_; ++index)
            visit(moreCells_(index));
    }
    Layout layoutFor(const Screen& screen) const;
    std::vector<std::size_t> widths(std::size_t widest) const;
    std::size_t narrow(std::vector<std::size_t>& widths, std::size_t room) const;

    std::vector<Column> columns_;
    std::vector<Cells> rows_;
    std::size_t moreRows_ = 0;
    std::function<Cells(std::size_t)> moreCells_;
};

} // namespace qrtVistrelClasses4
