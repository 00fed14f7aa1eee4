// Files with one quoted value on each line.
#pragma once

#include "frame/BufferedText.h"
#include "frame/Conversions.h"
#include "frame/TextLines.h"

#include <qrtVistrelClasses4/Export.h>

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace qrtVistrelClasses4 {

/// Written instead of a double quote inside a text, so that a value contains no quote before its end.
inline constexpr char kStoredQuote = '\x01';

/// The line of a value that is 0, empty or false.
template <class Value>
QRT_HIDDEN inline constexpr char kEmptyLine[] = "\"0\"\r\n";
template <>
QRT_HIDDEN inline constexpr char kEmptyLine<std::string>[] = "\"\"\r\n";
template <>
QRT_HIDDEN inline constexpr char kEmptyLine<bool>[] = "\"False\"\r\n";

/// Reads values from the lines of a text, one by one. Lines end in LF or CR LF; the last line may have no
/// end. A value is the text between the first and the last quote of its line, or the whole line if that does
/// not start with a quote; blanks and tabs before and after the quotes do not count. If a line does not close
/// its quote, the value goes on up to the line that does, so that texts with line breaks can be read back.
/// But if that line starts with a quote of its own, with more after it, a closing quote has been lost, and
/// the value ends with its first line.
class QuotedLineReader {
public:
    /// `text` must outlive the reader.
    explicit QuotedLineReader(std::string_view text) : text_(text), rest_(text), current_(text.data()) {}

    bool atEnd() const { return rest_.empty(); }

    /// The next value as it is in the file, as a view of the text. Error 62 at the end of the text.
    std::string_view value();

    /// The next value in the type of the argument. Error 13 if it cannot be converted, 6 if it does not fit.
    void get(std::string& text);
    void get(std::int16_t& number);
    void get(std::int32_t& number);
    void get(double& number);
    void get(bool& flag);
    /// The next values, which are mostly empty.
    template <class Value, std::size_t count>
    void get(std::array<Value, count>& values) {
        for (Value& value : values)
            getMostlyEmpty(value);
    }

    /// Number (from 1) of the line in which the value asked for last begins; one more than the last line when
    /// there was none left.
    std::size_t lineNumber() const;

private:
    template <class Value>
    void getMostlyEmpty(Value& value) {
        if (!TakeLine(rest_, kEmptyLine<Value>))
            get(value);
        else if constexpr (std::is_same_v<Value, std::string>)
            value.clear();
        else
            value = Value();
    }
    bool takeQuotedLine(std::string_view& text);

    std::string_view text_;
    std::string_view rest_;
    const char* current_; ///< Where the value asked for last begins.
};

/// Writes each value in quotes on a line of its own.
class QuotedLineWriter {
public:
    /// `file` must outlive the writer. The destructor writes nothing; call `finish`.
    explicit QuotedLineWriter(ByteSink& file) : text_(file) {}

    /// Writes a line as it is, without quotes.
    void putPlainLine(std::string_view line);
    /// Writes a text, an integer, a `double` or a flag.
    template <class Value>
    void put(const Value& value) {
        text_.appendLiteral("\"");
        putValue(value);
        text_.appendLiteral("\"\r\n");
    }
    /// Writes a text as it is, which includes line ends and the quotes of values before and after it.
    void putPiece(std::string_view piece) { text_.append(piece); }
    /// The same, and a value after it without quotes of its own.
    template <class Value>
    void putPiece(std::string_view piece, const Value& value) {
        text_.append(piece);
        putValue(value);
    }

    /// Writes the rest.
    void finish() { text_.finish(); }

private:
    void putValue(std::string_view text) { text_.appendReplacing(text, '"', kStoredQuote); }
    void putValue(std::int32_t number) { text_.append(number); }
    void putValue(double number) {
        NumberBuffer digits;
        putValue(FormatNumber(number, digits));
    }
    /// Takes nothing but a flag, because a text literal would convert to one.
    void putValue(std::same_as<bool> auto flag) { text_.append(flag ? "True" : "False"); }

    BufferedText text_;
};

} // namespace qrtVistrelClasses4
