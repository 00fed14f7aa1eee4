#include "tools/compare/Words.h"

#include "tools/compare/Sequences.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>

namespace qrtVistrelClasses4 {
namespace {

enum class WordKind { word, blank, other };

WordKind kindOfWord(char letter) {
    if (letter == ' ')
        return WordKind::blank;
    const bool isWord = (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
                        (letter >= 'a' && letter <= 'z') || static_cast<unsigned char>(letter) >= 0x80;
    return isWord ? WordKind::word : WordKind::other;
}

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const WordKind kind = kindOfWord(text.front());
        std::size_t size = 1;
        while (kind != WordKind::other && size < text.size() && kindOfWord(text[size]) == kind)
            ++size;
        words.push_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return words;
}

using WordNumbers = std::unordered_map<std::string_view, std::uint32_t>;

Symbols symbolsOf(const std::vector<std::string_view>& words, WordNumbers& numbers) {
    Symbols symbols;
    symbols.reserve(words.size());
    for (const std::string_view word : words)
        symbols.push_back(
            numbers.try_emplace(word, static_cast<std::uint32_t>(numbers.size())).first->second);
    return symbols;
}

/// The words from `first` up to `end` as one text.
std::string joined(const std::vector<std::string_view>& words, std::size_t first, std::size_t end) {
    std::string text;
    for (; first < end; ++first)
        text.append(words[first]);
    return text;
}

} // namespace

std::vector<TextPart> WordChanges(std::string_view before, std::string_view after) {
    const std::vector<std::string_view> first = wordsOf(before), second = wordsOf(after);
    WordNumbers numbers;
    const Symbols firstSymbols = symbolsOf(first, numbers);
    std::vector<PlacePair> common = CommonElements(firstSymbols, symbolsOf(second, numbers));
    if (std::ranges::none_of(common, [&](const PlacePair& pair) {
            return kindOfWord(first[pair.before].front()) == WordKind::word;
        }))
        return {};
    common.push_back({first.size(), second.size()});
    std::vector<TextPart> parts;
    PlacePair next;
    for (const PlacePair& pair : common) {
        if (pair.before > next.before || pair.after > next.after)
            parts.push_back(
                {joined(first, next.before, pair.before), joined(second, next.after, pair.after)});
        if (pair.before < first.size()) {
            const std::string word(first[pair.before]);
            parts.push_back({word, word});
        }
        next = {pair.before + 1, pair.after + 1};
    }
    return parts;
}

} // namespace qrtVistrelClasses4
