// Files of one quoted value a line.
#pragma once

#include "frame/BufferedText.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Stands for a double quote inside a stored text, so that a value never holds the quote that ends it.
inline constexpr char kStoredQuote = '\x01';

/// Takes values from the lines of a text, one by one. Lines end in LF or CR LF, the last one may lack its
/// end. A value is what stands between the first and the last quote of its line, or the line when it opens no
/// quote. A line that opens a quote and does not close it goes on up to the line that does, so that texts
/// with line breaks come back; but when that line opens a quoted value of its own, a closing quote has been
/// lost, and the value ends with its first line.
class QuotedLineReader {
public:
    /// `text` must outlive the reader.
    explicit QuotedLineReader(std::string_view text) : text_(text), rest_(text), current_(text.data()) {}

    bool atEnd() const { return rest_.empty(); }

    /// The next value as stored; a view of the text. Error 62 at the end of the text.
    std::string_view value();

    /// The next value as that type: error 13 when it does not convert, 6 when it does not fit.
    void get(std::string& text);
    void get(std::int16_t& number);
    void get(std::int32_t& number);
    void get(double& number);
    void get(bool& flag);

    /// Number (from 1) of the line in which the value asked for last begins; one more than the last line when
    /// there was none left.
    std::size_t lineNumber() const;

private:
    std::string_view text_;
    std::string_view rest_;
    const char* current_; ///< Where the value asked for last begins.
};

/// Puts values on lines of their own, in quotes.
class QuotedLineWriter {
public:
    /// `file` must outlive the writer. Nothing is written by destroying it; call `finish`.
    explicit QuotedLineWriter(ByteSink& file) : text_(file) {}

    /// A line as it is, without quotes around it.
    void putPlainLine(std::string_view line);
    void put(std::string_view text);
    void put(std::int32_t number);
    void put(double number);
    /// Nothing but a flag itself, since a literal text would convert to one.
    void put(std::same_as<bool> auto flag) { putFlag(flag); }

    /// Hands on what is left.
    void finish() { text_.finish(); }

private:
    void putFlag(bool flag);

    BufferedText text_;
};

} // namespace qrtVistrelClasses4
