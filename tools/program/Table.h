// Columns of text for the terminal.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Number of characters in a UTF-8 text.
std::size_t WidthOf(std::string_view utf8);

/// Rows under headings, each column as wide as its widest cell. Cells are UTF-8 without control characters.
class Table {
public:
    enum class Align { left, right };
    struct Column {
        std::string heading;
        Align align = Align::left;
    };

    explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

    /// One cell a column.
    void addRow(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

    friend std::ostream& operator<<(std::ostream& out, const Table& table);

private:
    std::vector<std::size_t> widths() const;

    std::vector<Column> columns_;
    std::vector<std::vector<std::string>> rows_;
};

} // namespace qrtVistrelClasses4
