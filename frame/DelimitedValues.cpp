#include "frame/DelimitedValues.h"

#include "frame/Text.h"
#include "frame/TextLines.h"
#include "platform/LetterCase.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr char kValueQuote = '"';
constexpr char kSeparator = ',';
constexpr std::string_view kLineEnd = "\r\n";
constexpr char kEmptyText[] = "\"\"\r\n";

/// `text` without the line end, or the separator, that it starts with.
std::string_view afterSeparator(std::string_view text) {
    if (text.starts_with(kLineEnd))
        return text.substr(kLineEnd.size());
    const bool separates =
        !text.empty() && (text.front() == kSeparator || text.front() == '\r' || text.front() == '\n');
    return text.substr(separates ? 1 : 0);
}

} // namespace

std::string_view DelimitedReader::value() {
    refused_ = rest_.data(); // a value that is taken without this call has no error
    skipBlanks();
    if (atEnd())
        throw RuntimeError(ErrorNumber::inputPastEnd);
    return rest_.front() == kValueQuote ? quotedValue() : plainValue();
}

void DelimitedReader::skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
}

std::string_view DelimitedReader::quotedValue() {
    const std::size_t closing = rest_.find(kValueQuote, 1);
    if (closing == rest_.npos)
        throw RuntimeError(ErrorNumber::inputPastEnd);
    const std::string_view result = rest_.substr(1, closing - 1);
    rest_.remove_prefix(closing + 1);
    skipBlanks();
    rest_ = afterSeparator(rest_);
    return result;
}

std::string_view DelimitedReader::plainValue() {
    const std::size_t end = std::min(rest_.find_first_of(",\r\n"), rest_.size());
    const std::string_view result = rest_.substr(0, end);
    rest_ = afterSeparator(rest_.substr(end));
    return result;
}

/// Takes a line that holds a quoted text and nothing else.
bool DelimitedReader::takeQuotedLine(std::string_view& text) {
    if (!rest_.starts_with(kValueQuote))
        return false;
    const std::size_t closing = rest_.find(kValueQuote, 1);
    if (closing == rest_.npos || !rest_.substr(closing + 1).starts_with(kLineEnd))
        return false;
    text = rest_.substr(1, closing - 1);
    rest_.remove_prefix(closing + 1 + kLineEnd.size());
    return true;
}

std::size_t DelimitedReader::errorLine() const {
    std::size_t number = 1;
    for (const char* at = text_.data(); at != refused_; ++at)
        if (*at == '\n' || (*at == '\r' && (at + 1 == refused_ || at[1] != '\n')))
            ++number;
    return number;
}

void DelimitedReader::get(std::string& text) {
    std::string_view line;
    if (TakeLine(rest_, kEmptyText))
        text.clear();
    else
        text.assign(takeQuotedLine(line) ? line : value());
}

void DelimitedReader::skipText() {
    std::string_view line;
    if (!TakeLine(rest_, kEmptyText) && !takeQuotedLine(line))
        (void)value();
}

void DelimitedReader::get(std::int16_t& number) {
    if (!TakeIntegerLine(rest_, "", kLineEnd, number))
        number = TextToInt16(value());
}

void DelimitedReader::get(std::int32_t& number) {
    if (!TakeIntegerLine(rest_, "", kLineEnd, number))
        number = TextToInt32(value());
}

void DelimitedReader::get(bool& flag) {
    if (TakeLine(rest_, "#FALSE#\r\n")) {
        flag = false;
    } else if (TakeLine(rest_, "#TRUE#\r\n")) {
        flag = true;
    } else {
        const std::string_view text = Trim(value());
        if (EqualIgnoringAsciiCase(text, "#TRUE#") || EqualIgnoringAsciiCase(text, "#FALSE#"))
            flag = EqualIgnoringAsciiCase(text, "#TRUE#");
        else
            flag = TextToDouble(text) != 0;
    }
}

void DelimitedWriter::put(std::string_view text) {
    if (text.empty()) // as most are
        return text_.appendLiteral(kEmptyText);
    text_.appendLiteral("\"");
    text_.append(text);
    text_.appendLiteral("\"\r\n");
}

void DelimitedWriter::put(std::int32_t number) {
    text_.append(number);
    text_.appendLiteral("\r\n");
}

void DelimitedWriter::putFlag(bool flag) {
    if (flag)
        text_.appendLiteral("#TRUE#\r\n");
    else
        text_.appendLiteral("#FALSE#\r\n");
}

} // namespace qrtVistrelClasses4
