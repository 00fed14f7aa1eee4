// Reading a text line by line.
#pragma once

#include <charconv>
#include <cstring>
#include <string_view>
#include <system_error>

namespace qrtVistrelClasses4 {

struct TextLine {
    std::string_view text; ///< Without its end.
    std::size_t size;      ///< With its end.
};

/// The first line of `text`. Lines end in LF or CR LF; the last line may have no end.
inline TextLine FirstLine(std::string_view text) {
    const std::size_t feed = text.find('\n');
    if (feed == text.npos)
        return {text, text.size()};
    const std::size_t end = feed > 0 && text[feed - 1] == '\r' ? feed - 1 : feed;
    return {text.substr(0, end), feed + 1};
}

/// Removes the first line of `text` if it is `line`, which includes the line end.
template <std::size_t size>
bool TakeLine(std::string_view& text, const char (&line)[size]) {
    constexpr std::size_t length = size - 1;
    if (text.size() < length || std::memcmp(text.data(), line, length) != 0)
        return false;
    text.remove_prefix(length);
    return true;
}

/// Removes the first line of `text` if it is an integer in its usual form between `opening` and `ending`,
/// which includes the line end.
template <class Integer>
bool TakeIntegerLine(std::string_view& text, std::string_view opening, std::string_view ending,
                     Integer& number) {
    if (!text.starts_with(opening))
        return false;
    Integer parsed{};
    const char* const end = text.data() + text.size();
    const auto [digitsEnd, error] = std::from_chars(text.data() + opening.size(), end, parsed);
    const std::string_view rest(digitsEnd, static_cast<std::size_t>(end - digitsEnd));
    if (error != std::errc() || !rest.starts_with(ending))
        return false;
    number = parsed;
    text = rest.substr(ending.size());
    return true;
}

} // namespace qrtVistrelClasses4
