// Files of values that stand on lines of their own or between commas, texts in quotes.
#pragma once

#include "frame/BufferedText.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Takes values from a text, one by one. Blanks before a value are passed over. A value in quotes ends at the
/// next quote, wherever that is; any other at a comma or at the end of its line. What stands between a
/// closing quote and the next comma or line end begins the next value.
class DelimitedReader {
public:
    /// `text` must outlive the reader.
    explicit DelimitedReader(std::string_view text) : text_(text), rest_(text), refused_(text.data()) {}

    bool atEnd() const { return rest_.empty(); }

    /// The next value; a view of the text. Error 62 when the text ends before it does.
    std::string_view value();

    /// The next value as that type: error 13 when it does not convert, 6 when it does not fit.
    void get(std::string& text);
    void get(std::int16_t& number);
    void get(std::int32_t& number);
    /// "#TRUE#" or "#FALSE#" in any case, or a number: other than zero is true.
    void get(bool& flag);

    /// After an error: number (from 1) of the line in which the value begins that could not be read. One more
    /// than the last line if the text ends there.
    std::size_t errorLine() const;

private:
    void skipBlanks();
    std::string_view quotedValue();
    std::string_view plainValue();
    bool takeQuotedLine(std::string& text);

    std::string_view text_;
    std::string_view rest_;
    const char* refused_; ///< Where the value begins that could not be read.
};

/// Puts values on lines of their own, texts in quotes as they are: one that holds a quote or a line end does
/// not come back whole.
class DelimitedWriter {
public:
    /// `file` must outlive the writer. Nothing is written by destroying it; call `finish`.
    explicit DelimitedWriter(ByteSink& file) : text_(file) {}

    void put(std::string_view text);
    void put(std::int32_t number);
    /// Nothing but a flag itself, since a literal text would convert to one.
    void put(std::same_as<bool> auto flag) { putFlag(flag); }

    /// Hands on what is left.
    void finish() { text_.finish(); }

private:
    void putFlag(bool flag);

    BufferedText text_;
};

} // namespace qrtVistrelClasses4
