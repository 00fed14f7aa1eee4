// Text files read and written by hand, for the contestants that do only what their job takes.
#pragma once

#include "bench/Ratio.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

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
    /// Whether the next line is this one, which is then passed. It includes the line end.
    template <std::size_t size>
    bool take(const char (&line)[size]) {
        const bool isTaken =
            static_cast<std::size_t>(end_ - at_) >= size - 1 && std::memcmp(at_, line, size - 1) == 0;
        at_ += isTaken ? size - 1 : 0;
        return isTaken;
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
    explicit CarefulText(std::size_t expected) { grow(expected); }

    std::string_view text() const { return {bytes_.get(), size_}; }
    void append(std::string_view more) {
        std::memcpy(room(more.size()), more.data(), more.size());
        size_ += more.size();
    }
    /// With another character in place of each `character`.
    void appendReplacing(std::string_view more, char character, char replacement) {
        std::replace_copy(more.begin(), more.end(), room(more.size()), character, replacement);
        size_ += more.size();
    }
    void appendNumber(std::int32_t number) { appendDigits(number); }
    void appendNumber(double number) {
        if (const auto whole = static_cast<std::int32_t>(number); whole == number)
            appendDigits(whole);
        else
            appendDigits(number);
    }

private:
    template <class Number>
    void appendDigits(Number number) {
        constexpr std::size_t most = 32;
        char* const start = room(most);
        size_ += static_cast<std::size_t>(std::to_chars(start, start + most, number).ptr - start);
    }
    char* room(std::size_t size) {
        if (size > capacity_ - size_) [[unlikely]]
            grow(2 * capacity_ + size);
        return bytes_.get() + size_;
    }
    void grow(std::size_t capacity) {
        auto larger = std::make_unique_for_overwrite<char[]>(capacity);
        if (size_ > 0)
            std::memcpy(larger.get(), bytes_.get(), size_);
        bytes_ = std::move(larger);
        capacity_ = capacity;
    }

    std::unique_ptr<char[]> bytes_;
    std::size_t capacity_ = 0;
    std::size_t size_ = 0;
};

} // namespace qrtVistrelClasses4::bench
