#include "tools/exchange/Csv.h"

#include <algorithm>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

constexpr char kFieldQuote = '"';
// What no table has, but damaged files and other ones may.
constexpr std::size_t kMostFields = 1000;
constexpr std::size_t kLongestField = 1'000'000;
constexpr std::string_view kLineBreaks = "\r\n";

/// The separator of a table with this first line.
char separatorOf(std::string_view header) {
    return std::ranges::count(header, ';') > std::ranges::count(header, ',') ? ';' : ',';
}

bool needsQuotes(std::string_view field) {
    constexpr std::string_view special = "\",;\r\n";
    return field.find_first_of(special) != field.npos || field.starts_with(' ') || field.ends_with(' ');
}

} // namespace

CsvReader::CsvReader(std::string_view text) : rest_(text) {
    if (rest_.starts_with(kByteOrderMark))
        rest_.remove_prefix(kByteOrderMark.size());
    separator_ = separatorOf(rest_.substr(0, rest_.find_first_of(kLineBreaks)));
}

bool CsvReader::next() {
    while (!rest_.empty() && !error_)
        if (readRecord() &&
            std::ranges::any_of(fields_, [](const std::string& field) { return !field.empty(); }))
            return true;
    return false;
}

/// False after an error.
bool CsvReader::readRecord() {
    line_ = nextLine_;
    for (std::size_t count = 1;; ++count) {
        if (count > kMostFields)
            return fail(line_, "the line has more than " + std::to_string(kMostFields) + " values");
        fields_.resize(count);
        std::string& field = fields_.back();
        field.clear();
        if (!(rest_.starts_with(kFieldQuote) ? readQuoted(field) : readPlain(field)))
            return false;
        if (field.size() > kLongestField)
            return fail(line_, "a value has more than " + std::to_string(kLongestField) + " bytes");
        if (!atLineEnd()) {
            rest_.remove_prefix(1); // the separator
            continue;
        }
        takeLineEnd();
        return true;
    }
}

bool CsvReader::readQuoted(std::string& field) {
    const std::size_t first = nextLine_;
    for (;; field += kFieldQuote) {
        rest_.remove_prefix(1);
        const std::size_t closing = rest_.find(kFieldQuote);
        if (closing == rest_.npos)
            return fail(first, "a quote that opens a value is never closed");
        const std::string_view piece = rest_.substr(0, closing);
        field += piece;
        for (std::size_t at = 0; (at = piece.find_first_of(kLineBreaks, at)) != piece.npos; ++at)
            nextLine_ += piece[at] == '\r' && piece.substr(at + 1).starts_with('\n') ? 0 : 1;
        rest_.remove_prefix(closing + 1);
        if (!rest_.starts_with(kFieldQuote)) // a second one would be a quote of the value
            break;
    }
    return atLineEnd() || rest_.front() == separator_ ||
           fail(nextLine_, "a value goes on after the quote that closes it");
}

bool CsvReader::readPlain(std::string& field) {
    const std::size_t end =
        std::min(rest_.find_first_of(std::string(kLineBreaks) + separator_), rest_.size());
    field = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return field.find(kFieldQuote) == field.npos ||
           fail(line_, "a value with a quote in it needs quotes around it, and its own ones twice");
}

void CsvReader::takeLineEnd() {
    ++nextLine_;
    rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest_.size(), 1));
}

bool CsvReader::fail(std::size_t line, std::string text) {
    error_ = CsvError{line, std::move(text)};
    return false;
}

void AppendCsvRecord(std::string& text, std::span<const std::string> fields) {
    std::string_view separator;
    for (const std::string& field : fields) {
        text += std::exchange(separator, ",");
        if (!needsQuotes(field)) {
            text += field;
            continue;
        }
        text += kFieldQuote;
        for (const char character : field)
            text.append(character == kFieldQuote ? 2 : 1, character);
        text += kFieldQuote;
    }
    text += "\r\n";
}

} // namespace qrtVistrelClasses4
