// A value changed and found in any INI file: section, key and value, each up to a NUL, then the text.
#include "Fuzz.h"
#include "platform/IniText.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(text.size(), end + (text.substr(end).starts_with("\r\n") ? 2 : 1)));
    }
    return lines;
}

/// Whether the lines differ in one place only: one line there before at the most, and `most` after.
bool changesOnePlace(const std::vector<std::string>& before, const std::vector<std::string>& after,
                     std::ptrdiff_t most) {
    const auto [left, right] = std::ranges::mismatch(before, after);
    const auto [leftEnd, rightEnd] = std::mismatch(before.rbegin(), std::make_reverse_iterator(left),
                                                   after.rbegin(), std::make_reverse_iterator(right));
    return leftEnd.base() - left <= 1 && rightEnd.base() - right <= most;
}

std::string inOtherCase(std::string text) {
    for (char& letter : text)
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
        else if (letter >= 'A' && letter <= 'Z')
            letter = static_cast<char>(letter - 'A' + 'a');
    return text;
}

bool isPlain(const std::string& name) {
    return !name.empty() && name.find_first_of("[]=\r\n") == name.npos && name.front() != '\xef';
}

std::string trimmed(const std::string& text) {
    constexpr std::string_view blanks = " \t\v\f\x1a";
    const std::size_t start = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(start, text.find_last_not_of(blanks) + 1 - start);
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    const std::string section = input.text(), key = input.text(), value = input.text();
    const IniChange change{section, key, value};
    const std::string text = input.rest();
    const IniValues values(text);
    const auto found = values.find(section, key);
    Require(values.find(inOtherCase(section), inOtherCase(key)) == found,
            "ASCII letters are taken without case");
    IniValues::Cursor cursor;
    for (const std::string& line : linesOf(text)) {
        const std::string name = line.substr(0, line.find('='));
        Require(values.find(section, name, cursor) == values.find(section, name),
                "searches in order find what single ones find");
    }
    const std::string more = text + "\r\n[a section, behind]\r\n" + key;
    if (trimmed(section) != "a section, behind")
        Require(IniValues(more).find(section, key) == found, "the first of its name counts");

    const auto changed = ApplyIniChanges(text, std::span(&change, 1));
    if (!isPlain(trimmed(section)) || !isPlain(trimmed(key)) ||
        value.find_first_of("\r\n") != std::string::npos)
        return;
    const IniChange removal{section, key, std::nullopt};
    Require(!IniValues(ApplyIniChanges(text, std::span(&removal, 1)).value_or(text)).find(section, key),
            "what is removed is gone");
    Require(changed || found == trimmed(value), "no change is none");
    const std::string after = changed.value_or(text);
    Require(IniValues(after).find(section, key) == trimmed(value), "a value comes back");
    Require(changesOnePlace(linesOf(text), linesOf(after), 2), "no other line is touched");
    if (trimmed(value) == value)
        Require(!ApplyIniChanges(after, std::span(&change, 1)), "what is there needs no change");
}

} // namespace qrtVistrelClasses4
