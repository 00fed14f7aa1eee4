#include "frame/QuotedLines.h"

#include "frame/Conversions.h"
#include "frame/TextLines.h"
#include <qrtVistrelClasses4/RuntimeError.h>

#include <algorithm>
#include <optional>

namespace qrtVistrelClasses4 {
namespace {

constexpr char kQuote = '"';
constexpr std::string_view kQuotedLineEnd = "\"\r\n";
constexpr std::string_view kIndents = " \t"; ///< Ignored before the quote that opens a line.

/// Whether nothing but blanks is between the start of a line and `quote`, which is not in the first line.
bool opensLine(std::string_view text, std::size_t quote) {
    return text[text.find_last_not_of(kIndents, quote - 1)] == '\n';
}

/// A value of several lines. `size` includes its last line end.
struct LongValue {
    std::string_view value;
    std::size_t size = 0;
};
/// `text` starts after a quote that its first line does not close. Returns the value that a later line
/// closes, if one does.
std::optional<LongValue> findLongValue(std::string_view text, std::size_t firstLineSize) {
    const std::size_t quote = text.find(kQuote, firstLineSize);
    if (quote == text.npos)
        return std::nullopt;
    const TextLine rest = FirstLine(text.substr(quote));
    const bool isAlone = rest.text.find_first_not_of(kIndents, 1) == rest.text.npos;
    if (opensLine(text, quote) && !isAlone)
        return std::nullopt;
    const std::size_t closing = quote + rest.text.rfind(kQuote);
    return LongValue{text.substr(0, closing), quote + rest.size};
}

} // namespace

std::string_view QuotedLineReader::value() {
    current_ = rest_.data();
    if (atEnd())
        throw RuntimeError(ErrorNumber::inputPastEnd);
    const TextLine line = FirstLine(rest_);
    const std::size_t start = line.text.find_first_not_of(kIndents);
    std::string_view result = line.text;
    std::size_t size = line.size;
    if (start != line.text.npos && line.text[start] == kQuote) {
        result.remove_prefix(start + 1);
        const std::size_t closing = result.rfind(kQuote);
        if (closing != result.npos) {
            result = result.substr(0, closing);
        } else if (const auto longer = findLongValue(rest_.substr(start + 1), line.size - start - 1)) {
            result = longer->value;
            size = start + 1 + longer->size;
        }
    }
    rest_.remove_prefix(size);
    return result;
}

/// Takes a line that starts and ends with a quote. `text` is what `value` would return.
bool QuotedLineReader::takeQuotedLine(std::string_view& text) {
    constexpr std::size_t shortest = 1 + kQuotedLineEnd.size();
    const std::size_t size = rest_.find('\n') + 1;
    if (size < shortest || rest_.front() != kQuote || !rest_.substr(0, size).ends_with(kQuotedLineEnd))
        return false;
    text = rest_.substr(1, size - shortest);
    rest_.remove_prefix(size);
    return true;
}

void QuotedLineReader::get(std::string& text) {
    current_ = rest_.data();
    if (TakeLine(rest_, kEmptyLine<std::string>)) {
        text.clear();
        return;
    }
    std::string_view line;
    text.assign(takeQuotedLine(line) ? line : value());
    if (text.find(kStoredQuote) != text.npos)
        std::replace(text.begin(), text.end(), kStoredQuote, kQuote);
}

void QuotedLineReader::get(std::int16_t& number) {
    current_ = rest_.data();
    if (!TakeIntegerLine(rest_, "\"", kQuotedLineEnd, number))
        number = TextToInt16(value());
}

void QuotedLineReader::get(std::int32_t& number) {
    current_ = rest_.data();
    if (!TakeIntegerLine(rest_, "\"", kQuotedLineEnd, number))
        number = TextToInt32(value());
}

void QuotedLineReader::get(double& number) {
    current_ = rest_.data();
    std::int32_t whole = 0;
    number = TakeIntegerLine(rest_, "\"", kQuotedLineEnd, whole) ? whole : TextToDouble(value());
}

void QuotedLineReader::get(bool& flag) {
    current_ = rest_.data();
    if (TakeLine(rest_, kEmptyLine<bool>))
        flag = false;
    else if (TakeLine(rest_, "\"True\"\r\n"))
        flag = true;
    else
        flag = TextToBoolean(WithoutBlanks(value()));
}

std::size_t QuotedLineReader::lineNumber() const {
    const std::string_view before = text_.substr(0, static_cast<std::size_t>(current_ - text_.data()));
    const auto ends = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    const bool isPastUnendedLine = before.size() == text_.size() && !before.empty() && before.back() != '\n';
    return ends + (isPastUnendedLine ? 2 : 1);
}

void QuotedLineWriter::putPlainLine(std::string_view line) {
    text_.append(line);
    text_.appendLiteral("\r\n");
}

} // namespace qrtVistrelClasses4
