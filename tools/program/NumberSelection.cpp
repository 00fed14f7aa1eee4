#include "tools/program/NumberSelection.h"

#include "platform/LetterCase.h"
#include "tools/program/AllowedValues.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// A decimal number without a sign.
std::optional<std::int32_t> plainNumber(std::string_view text) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end && text.front() != '-' ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<NumberSelection::Range> NumberSelection::rangeFrom(std::string_view text) {
    const std::size_t dash = text.find('-');
    const auto first = plainNumber(text.substr(0, dash));
    if (!first)
        return std::nullopt;
    if (dash == text.npos)
        return Range{*first, *first};
    if (dash + 1 == text.size())
        return Range{*first};
    const auto last = plainNumber(text.substr(dash + 1));
    return last ? std::optional(Range{*first, last}) : std::nullopt;
}

std::istream& operator>>(std::istream& in, NumberSelection& selection) {
    std::string typed;
    in >> typed;
    if (EqualIgnoringAsciiCase(typed, "all")) {
        selection = NumberSelection();
        return in;
    }
    selection.ranges_.clear();
    for (std::size_t at = 0; at <= typed.size();) {
        const std::size_t end = std::min(typed.find(',', at), typed.size());
        if (const auto range = NumberSelection::rangeFrom(std::string_view(typed).substr(at, end - at)))
            selection.ranges_.push_back(*range);
        else
            in.setstate(std::ios::failbit);
        at = end + 1;
    }
    return in;
}

std::optional<std::vector<std::int32_t>> NumberSelection::numbers(const char* argument, std::int32_t last,
                                                                  const std::string& thing,
                                                                  ErrorLines& errors) const {
    std::vector<bool> isChosen(static_cast<std::size_t>(std::max(last, 0)));
    for (const Range& range : ranges_) {
        if (last < 1 && range.first == 1 && !range.last)
            continue; // all of nothing
        const std::int32_t end = range.last.value_or(last);
        if (!IsWithin(argument, range.first, last, thing, errors) ||
            !IsWithin(argument, end, last, thing, errors))
            return std::nullopt;
        if (range.first > end) {
            errors.add(std::string(argument) + " ends before it begins");
            return std::nullopt;
        }
        std::fill(isChosen.begin() + (range.first - 1), isChosen.begin() + end, true);
    }
    std::vector<std::int32_t> chosen;
    for (std::int32_t number = 1; number <= last; ++number)
        if (isChosen[static_cast<std::size_t>(number) - 1])
            chosen.push_back(number);
    return chosen;
}

std::string SelectionText(const std::string& thing, const std::vector<std::int32_t>& numbers) {
    if (numbers.empty())
        return "no " + thing + "s";
    std::string text = thing + (numbers.size() == 1 ? "" : "s");
    const char* separator = " ";
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        text.append(std::exchange(separator, ", ")).append(std::to_string(numbers[at]));
        const std::size_t first = at;
        while (at + 1 < numbers.size() && numbers[at + 1] == numbers[at] + 1)
            ++at;
        if (at > first)
            text.append(" to ").append(std::to_string(numbers[at]));
    }
    return text;
}

} // namespace qrtVistrelClasses4
