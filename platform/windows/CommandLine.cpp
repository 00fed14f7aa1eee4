#include "platform/windows/CommandLine.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::wstring_view kBlanks = L" \t";
constexpr std::wstring_view kWildcardLetters = L"*?";

void skip(std::wstring_view& line, std::size_t count) { line.remove_prefix(std::min(count, line.size())); }

void skipBlanks(std::wstring_view& line) { skip(line, line.find_first_not_of(kBlanks)); }

bool isBlank(wchar_t character) { return kBlanks.find(character) != kBlanks.npos; }

/// The name ends at a blank that is not in quotes. Backslashes mean nothing in it.
void skipProgram(std::wstring_view& line) {
    for (bool isOpen = false; !line.empty() && (isOpen || !isBlank(line.front())); line.remove_prefix(1))
        isOpen ^= line.front() == L'"';
}

std::size_t takeRun(std::wstring_view& line, wchar_t character) {
    const std::size_t count = std::min(line.find_first_not_of(character), line.size());
    line.remove_prefix(count);
    return count;
}

CommandLineWord takeWord(std::wstring_view& line) {
    CommandLineWord word;
    bool isOpen = false;
    while (!line.empty() && (isOpen || !isBlank(line.front()))) {
        const std::size_t backslashes = takeRun(line, L'\\');
        const bool areBeforeQuote = line.starts_with(L'"');
        word.text.append(areBeforeQuote ? backslashes / 2 : backslashes, L'\\');
        if (areBeforeQuote && backslashes % 2 == 0) {
            const bool isDoubled = isOpen && line.starts_with(L"\"\"");
            line.remove_prefix(1);
            if (!isDoubled) {
                isOpen = !isOpen;
                continue;
            }
        } else if (!areBeforeQuote && backslashes > 0) {
            continue; // what comes next may end the word
        }
        word.hasQuotedWildcard |= isOpen && kWildcardLetters.find(line.front()) != kWildcardLetters.npos;
        word.text += line.front();
        line.remove_prefix(1);
    }
    return word;
}

} // namespace

std::vector<CommandLineWord> WordsOfCommandLine(std::wstring_view line) {
    std::vector<CommandLineWord> words;
    skipProgram(line);
    for (skipBlanks(line); !line.empty(); skipBlanks(line))
        words.push_back(takeWord(line));
    return words;
}

} // namespace qrtVistrelClasses4
