#include "platform/windows/CommandLine.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::wstring_view kBlanks = L" \t";

void skip(std::wstring_view& line, std::size_t count) { line.remove_prefix(std::min(count, line.size())); }

void skipBlanks(std::wstring_view& line) { skip(line, line.find_first_not_of(kBlanks)); }

/// The name is in quotes or ends at a blank; nothing else counts in it.
void skipProgram(std::wstring_view& line) {
    if (line.starts_with(L'"')) {
        skip(line, 1);
        skip(line, line.find(L'"'));
        skip(line, 1);
    } else {
        skip(line, line.find_first_of(kBlanks));
    }
}

std::size_t takeRun(std::wstring_view& line, wchar_t character) {
    const std::size_t count = std::min(line.find_first_not_of(character), line.size());
    line.remove_prefix(count);
    return count;
}

/// Takes quotes. Of three in a row, the third one is text; `isOpen` is whether text in quotes begins or goes
/// on before them, and then after them.
void takeQuotes(std::wstring_view& line, bool& isOpen, std::wstring& text) {
    std::size_t count = takeRun(line, L'"') + (isOpen ? 1 : 0);
    text.append(count / 3, L'"');
    isOpen = count % 3 == 1;
}

CommandLineWord takeWord(std::wstring_view& line) {
    CommandLineWord word;
    bool isOpen = false;
    while (!line.empty() && (isOpen || kBlanks.find(line.front()) == kBlanks.npos)) {
        const std::size_t backslashes = takeRun(line, L'\\');
        const bool areBeforeQuote = line.starts_with(L'"');
        word.text.append(areBeforeQuote ? backslashes / 2 : backslashes, L'\\');
        if (!areBeforeQuote) {
            if (backslashes == 0) {
                word.text += line.front();
                line.remove_prefix(1);
            }
            continue;
        }
        if (backslashes % 2 == 1) { // the quote is text
            word.text += L'"';
            line.remove_prefix(1);
            if (!line.starts_with(L'"'))
                continue;
        }
        word.isQuoted = true;
        takeQuotes(line, isOpen, word.text);
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
