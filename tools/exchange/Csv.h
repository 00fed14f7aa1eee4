// Tables as comma-separated values (RFC 4180), the form that spreadsheets read and write.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// Why a text is no such table.
struct CsvError {
    std::size_t line = 0; ///< From 1.
    std::string text;
};

/// Reads one record after the other. The separator is a comma, or a semicolon if the first line has more of
/// these. Lines end in LF, CR LF or CR. A byte order mark at the start is skipped, and so are lines without a
/// value.
class CsvReader {
public:
    /// `text` must outlive the reader.
    explicit CsvReader(std::string_view text);

    /// Reads the next record. False at the end of the text, or if there is an error.
    bool next();

    /// The values of the record that was read last, without quotes around them.
    const std::vector<std::string>& fields() const { return fields_; }
    /// The line in which that record begins, from 1.
    std::size_t line() const { return line_; }
    const std::optional<CsvError>& error() const { return error_; }

private:
    bool readRecord();
    bool readQuoted(std::string& field);
    bool readPlain(std::string& field);
    bool atLineEnd() const { return rest_.empty() || rest_.front() == '\n' || rest_.front() == '\r'; }
    void takeLineEnd();
    bool fail(std::size_t line, std::string text);

    std::string_view rest_;
    char separator_ = ',';
    std::vector<std::string> fields_;
    std::size_t line_ = 1;
    std::size_t nextLine_ = 1;
    std::optional<CsvError> error_;
};

/// Adds a record with commas and CR LF. Values that need quotes get them.
void AppendCsvRecord(std::string& text, std::span<const std::string> fields);

/// What a table begins with, so that spreadsheets take it for UTF-8.
inline constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

} // namespace qrtVistrelClasses4
