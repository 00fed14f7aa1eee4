// Text files read and written by hand, for the contestants that do only what their job takes.
#pragma once

#include "bench/Ratio.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4::bench {

/// Goes through the lines of a text. All of them end in CR LF.
class CarefulLines {
public:
    explicit CarefulLines(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

    bool atEnd() const { return at_ == end_; }
    /// The next line without its end.
    std::string_view line() {
        const void* const feed = std::memchr(at_, '\n', static_cast<std::size_t>(end_ - at_));
        check(feed);
        const std::string_view text(at_, static_cast<std::size_t>(static_cast<const char*>(feed) - at_ - 1));
        at_ += text.size() + 2;
        return text;
    }
    /// A number after `skipped` characters, with `ending` after it, which includes the line end.
    template <class Number>
    void number(Number& number, std::size_t skipped, std::string_view ending) {
        const auto [digitsEnd, error] = std::from_chars(at_ + skipped, end_, number);
        check(error == std::errc() &&
              std::string_view(digitsEnd, static_cast<std::size_t>(end_ - digitsEnd)).starts_with(ending));
        at_ = digitsEnd + ending.size();
    }

private:
    static void check(bool holds) {
        if (!holds) [[unlikely]]
            Require(false, "the file is not whole");
    }

    const char* at_;
    const char* end_;
};

/// A text that grows, in one piece of memory.
class CarefulText {
public:
    explicit CarefulText(std::size_t expected) { text_.reserve(expected); }

    std::string_view text() const { return text_; }
    void append(std::string_view more) { text_.append(more); }
    /// With another character in place of each `character`.
    void appendReplacing(std::string_view more, char character, char replacement) {
        const std::size_t start = text_.size();
        text_.append(more);
        if (std::memchr(more.data(), character, more.size()))
            std::replace(text_.begin() + static_cast<std::ptrdiff_t>(start), text_.end(), character,
                         replacement);
    }
    template <class Number>
    void appendNumber(Number number) {
        char digits[32];
        text_.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
    }

private:
    std::string text_;
};

} // namespace qrtVistrelClasses4::bench
