// The letters of the system's code page, as the system folds them.
#include "platform/LetterCase.h"

#include <algorithm>
#include <array>
#include <climits>

#include <windows.h>

namespace qrtVistrelClasses4 {
namespace {

/// What `CharUpperA` does, also with texts that hold NUL.
void makeUpper(char* text, std::size_t size) { ::CharUpperBuffA(text, static_cast<DWORD>(size)); }

/// The code page of this process, which never changes.
class CodePage {
public:
    CodePage() {
        CPINFO info{};
        isSingleByte_ = ::GetCPInfo(CP_ACP, &info) != FALSE && info.MaxCharSize == 1;
        for (std::size_t code = 0; code < upper_.size(); ++code) {
            upper_[code] = static_cast<char>(code);
            makeUpper(&upper_[code], 1);
        }
    }

    /// True if every byte is a character, so that `upper` is enough.
    bool isSingleByte() const { return isSingleByte_; }
    char upper(char character) const { return upper_[static_cast<unsigned char>(character)]; }

private:
    std::array<char, UCHAR_MAX + 1> upper_{};
    bool isSingleByte_ = false;
};

const CodePage& codePage() {
    static const CodePage page;
    return page;
}

/// A text in upper case. Needs no memory for a text as short as names are.
class UpperText {
public:
    explicit UpperText(std::string_view text) : size_(text.size()) {
        if (size_ > short_.size())
            long_.resize(size_);
        std::ranges::copy(text, data());
        makeUpper(data(), size_);
    }
    std::string_view text() { return {data(), size_}; }

private:
    char* data() { return size_ > short_.size() ? long_.data() : short_.data(); }

    std::size_t size_;
    std::array<char, 256> short_{};
    std::string long_;
};

/// Before the first other character of a text, a byte of ASCII is never a part of a longer character.
bool isSameAsciiLetter(char a, char b) { return IsAscii(a) && IsAscii(b) && AsciiUpper(a) == AsciiUpper(b); }

} // namespace

std::string AnsiUpperCase(std::string_view text) {
    std::string result(text);
    makeUpper(result.data(), result.size());
    return result;
}

bool EqualIgnoringAnsiCase(std::string_view left, std::string_view right) {
    if (left.size() != right.size())
        return false;
    const CodePage& page = codePage();
    if (page.isSingleByte())
        return std::ranges::equal(left, right,
                                  [&](char a, char b) { return a == b || page.upper(a) == page.upper(b); });
    const auto [a, b] = std::ranges::mismatch(left, right, isSameAsciiLetter);
    const std::string_view leftRest(a, left.end()), rightRest(b, right.end());
    if (leftRest.empty() || (IsAscii(leftRest.front()) && IsAscii(rightRest.front())))
        return leftRest.empty();
    return UpperText(leftRest).text() == UpperText(rightRest).text();
}

} // namespace qrtVistrelClasses4
