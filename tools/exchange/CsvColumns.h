// Records as the lines of a table, with a column for each member that the member table names.
#pragma once

#include "tools/exchange/Csv.h"
#include "tools/program/PropertyValues.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// How cells are read.
struct CellRules {
    bool isUnchecked = false; ///< Any value of the right type is taken.
    /// The cell in Windows-1252. Returns nothing, and adds the reason to `errors`, if the library's file
    /// cannot hold it.
    std::function<std::optional<std::string>(std::string_view utf8, ErrorLines& errors)> toText;
};

/// One member of a record as a cell of a table.
template <class Record>
struct CsvColumn {
    std::string name; ///< "DisplayWidth" or "Schedule1.StartTime".
    std::function<std::string(const Record& record)> get;
    /// Returns false, after adding the reason to `errors`, if the member cannot have the value. An empty cell
    /// leaves a number or a flag as it is.
    std::function<bool(Record& record, const std::string& cell, const CellRules& rules, ErrorLines& errors)>
        set;
};

/// The text of a cell.
template <class Value>
std::string CsvCell(const Value& value) {
    if constexpr (std::is_same_v<Value, std::string>)
        return Utf8FromAnsi(value);
    else if constexpr (std::is_same_v<Value, bool>)
        return std::string(BooleanToText(value));
    else
        return NumberToText(value);
}

/// The value of a cell; nothing, after adding the reason, if the member of `row` cannot have it. It can
/// always have that of a new record.
template <class Row>
std::optional<ValueOfRow<Row>> ValueOfCell(const Row& row, const std::string& cell, const CellRules& rules,
                                           const ValueOfRow<Row>& present, ErrorLines& errors) {
    using Value = ValueOfRow<Row>;
    if constexpr (std::is_same_v<Value, std::string>) {
        std::optional<std::string> text = rules.toText(cell, errors);
        if (!text || rules.isUnchecked || text == present || Allows(AllowedValuesOf(row.name), *text))
            return text;
    }
    return ValueFromTyped<Value>({row.name, cell, rules.isUnchecked || cell == CsvCell(present)}, errors);
}

/// Adds the columns of all rows of `table`. `recordOf(line)` is the record with these members in a record of
/// the whole line, of which `sample` shows how many elements lists have. Members without a name are called
/// "SpareText1" and so on.
template <class Record, class Table, class RecordOf>
void AddCsvColumns(std::vector<CsvColumn<Record>>& columns, const Table& table, const Record& sample,
                   const RecordOf& recordOf, const std::string& prefix = "") {
    int spares = 0;
    ForEachRow(table, [&]<class Row>(const Row& row) {
        if constexpr (RowOfRecords<Row>) {
            for (int number = 1; number <= (recordOf(sample).*row.member).upperBound(); ++number) {
                const auto elementOf = [&row, recordOf, number ](auto& record) -> auto& {
                    return (recordOf(record).*row.member).at(number);
                };
                AddCsvColumns(columns, row.elements, sample, elementOf,
                              prefix + std::string(row.elementName) + std::to_string(number) + ".");
            }
        } else {
            const auto get = [&row, recordOf](const Record& record) {
                return CsvCell(recordOf(record).*row.member);
            };
            const auto set = [&row, recordOf](Record& record, const std::string& cell, const CellRules& rules,
                                              ErrorLines& errors) {
                if (cell.empty() && !std::is_same_v<ValueOfRow<Row>, std::string>)
                    return true;
                auto value = ValueOfCell(row, cell, rules, recordOf(record).*row.member, errors);
                if (!value)
                    return false;
                SetProperty(row, recordOf(record), *std::move(value));
                return true;
            };
            columns.push_back(
                {prefix + (row.name.empty() ? "SpareText" + std::to_string(++spares) : std::string(row.name)),
                 get, set});
        }
    });
}

/// All columns of the records of a table.
template <class Record, class Table>
std::vector<CsvColumn<Record>> CsvColumnsOf(const Table& table) {
    std::vector<CsvColumn<Record>> columns;
    AddCsvColumns(
        columns, table, Record(), [](auto& record) -> auto& { return record; });
    return columns;
}

} // namespace qrtVistrelClasses4
