// Files of values on lines of their own or between commas, with texts in quotes.
#pragma once

#include "frame/BufferedText.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Reads values from a text, one by one. Blanks before a value are skipped. A value in quotes ends at the
/// next quote, even on a later line; any other value ends at a comma or at the end of its line. Text between
/// a closing quote and the next comma or line end begins the next value.
class DelimitedReader {
public:
    /// `text` must outlive the reader.
    explicit DelimitedReader(std::string_view text) : text_(text), rest_(text), refused_(text.data()) {}

    bool atEnd() const { return rest_.empty(); }

    /// The next value, as a view of the text. Error 62 if the text ends before the value does.
    std::string_view value();

    /// The next value in the type of the argument. Error 13 if it cannot be converted, 6 if it does not fit.
    void get(std::string& text);
    void get(std::int16_t& number);
    void get(std::int32_t& number);
    /// "#TRUE#" or "#FALSE#" in any case, or a number, which is true unless it is 0.
    void get(bool& flag);
    /// Takes the next value as a text and drops it.
    void skipText();

    /// After an error: number (from 1) of the line in which the value begins that could not be read. One more
    /// than the last line if the text ends there.
    std::size_t errorLine() const;

private:
    void skipBlanks();
    std::string_view quotedValue();
    std::string_view plainValue();
    bool takeQuotedLine(std::string_view& text);

    std::string_view text_;
    std::string_view rest_;
    const char* refused_; ///< Where the value begins that could not be read.
};

/// Writes each value on a line of its own, and texts in quotes. Texts are not changed, so that one that
/// contains a quote or a line end is read back in pieces.
class DelimitedWriter {
public:
    /// `file` must outlive the writer. The destructor writes nothing; call `finish`.
    explicit DelimitedWriter(ByteSink& file) : text_(file) {}

    void put(std::string_view text);
    void put(std::int32_t number);
    /// Takes nothing but a flag, because a text literal would convert to one.
    void put(std::same_as<bool> auto flag) { putFlag(flag); }

    /// Writes the rest.
    void finish() { text_.finish(); }

private:
    void putFlag(bool flag);

    BufferedText text_;
};

} // namespace qrtVistrelClasses4
