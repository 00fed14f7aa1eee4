#include "frame/DelimitedValues.h"

#include "frame/Text.h"
#include "platform/LetterCase.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <system_error>

namespace qrtVistrelClasses4 {
namespace {

constexpr char kQuote = '"';
constexpr char kSeparator = ',';

/// `text` without the line end, or the separator, that it starts with.
std::string_view behindSeparator(std::string_view text) {
    if (text.starts_with("\r\n"))
        return text.substr(2);
    const bool separates =
        !text.empty() && (text.front() == kSeparator || text.front() == '\r' || text.front() == '\n');
    return text.substr(separates ? 1 : 0);
}

} // namespace

std::string_view DelimitedReader::value() {
    skipBlanks();
    if (atEnd())
        throw RuntimeError(ErrorNumber::inputPastEnd);
    return rest_.front() == kQuote ? quotedValue() : plainValue();
}

void DelimitedReader::skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size()));
}

std::string_view DelimitedReader::quotedValue() {
    const std::size_t closing = rest_.find(kQuote, 1);
    if (closing == rest_.npos)
        throw RuntimeError(ErrorNumber::inputPastEnd);
    const std::string_view result = rest_.substr(1, closing - 1);
    rest_.remove_prefix(closing + 1);
    skipBlanks();
    rest_ = behindSeparator(rest_);
    return result;
}

std::string_view DelimitedReader::plainValue() {
    const std::size_t end = std::min(rest_.find_first_of(",\r\n"), rest_.size());
    const std::string_view result = rest_.substr(0, end);
    rest_ = behindSeparator(rest_.substr(end));
    return result;
}

/// Takes a line that holds an integer in its usual form; leaves any other to the conversions.
template <class Integer>
bool DelimitedReader::takePlainInteger(Integer& number) {
    Integer parsed{};
    const char* const end = rest_.data() + rest_.size();
    const auto [digitsEnd, error] = std::from_chars(rest_.data(), end, parsed);
    const std::string_view behind(digitsEnd, static_cast<std::size_t>(end - digitsEnd));
    if (error != std::errc() || !behind.starts_with("\r\n"))
        return false;
    number = parsed;
    rest_ = behind.substr(2);
    return true;
}

/// Takes the next line when it is this one, its end included.
template <std::size_t size>
bool DelimitedReader::takeLine(const char (&line)[size]) {
    constexpr std::size_t length = size - 1;
    if (rest_.size() < length || std::memcmp(rest_.data(), line, length) != 0)
        return false;
    rest_.remove_prefix(length);
    return true;
}

/// Takes a line that holds a quoted text and nothing else.
bool DelimitedReader::takeQuotedLine(std::string& text) {
    if (!rest_.starts_with(kQuote))
        return false;
    const std::size_t closing = rest_.find(kQuote, 1);
    if (closing == rest_.npos || !rest_.substr(closing + 1).starts_with("\r\n"))
        return false;
    text.assign(rest_, 1, closing - 1);
    rest_.remove_prefix(closing + 3);
    return true;
}

void DelimitedReader::get(std::string& text) {
    if (takeLine("\"\"\r\n"))
        text.clear();
    else if (!takeQuotedLine(text))
        text.assign(value());
}

void DelimitedReader::get(std::int16_t& number) {
    if (!takePlainInteger(number))
        number = TextToInt16(value());
}

void DelimitedReader::get(std::int32_t& number) {
    if (!takePlainInteger(number))
        number = TextToInt32(value());
}

void DelimitedReader::get(bool& flag) {
    if (takeLine("#FALSE#\r\n")) {
        flag = false;
    } else if (takeLine("#TRUE#\r\n")) {
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
