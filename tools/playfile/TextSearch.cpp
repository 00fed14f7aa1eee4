#include "tools/playfile/TextSearch.h"

#include "platform/LetterCase.h"
#include "tools/program/PropertyValues.h"

#include <bitset>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// The characters of words. Letters are those that have two cases, and the letters of Windows-1252 that have
/// only a small one.
std::bitset<256> charactersOfWords() {
    std::bitset<256> all;
    const auto add = [&](char character) { all.set(static_cast<unsigned char>(character)); };
    for (const char character : std::string_view("0123456789_\xdf\x83\xaa\xb5\xba")) // ß, ƒ, ª, µ, º
        add(character);
    for (std::size_t code = 0; code < all.size(); ++code) {
        const std::string small(1, static_cast<char>(code));
        if (const std::string capital = AnsiUpperCase(small); capital != small) {
            add(small.front());
            add(capital.front());
        }
    }
    return all;
}

} // namespace

bool IsInWord(char character) {
    static const std::bitset<256> inWords = charactersOfWords();
    return inWords[static_cast<unsigned char>(character)];
}

void AddTextSearchOptions(CLI::App& command, TextSearchOptions& options) {
    command.add_flag("--ignore-case", options.ignoresCase, "Takes capital and small letters for the same");
    command.add_flag("--whole-word", options.wholeWords,
                     "Finds the text only where no letter, digit or _ is next to it");
}

std::optional<TextSearch> TextSearch::from(const TextSearchOptions& options, const char* argument,
                                           ErrorLines& errors) {
    errors.about(argument);
    std::optional<std::string> wanted = AnsiFromTyped(options.text, errors);
    return wanted ? std::optional(TextSearch(*std::move(wanted), options)) : std::nullopt;
}

TextSearch::TextSearch(std::string wanted, const TextSearchOptions& options)
    : wanted_(options.ignoresCase ? AnsiUpperCase(wanted) : std::move(wanted)),
      ignoresCase_(options.ignoresCase), wholeWords_(options.wholeWords) {}

bool TextSearch::isPartOfWord(std::string_view text, std::size_t at) const {
    const std::size_t end = at + wanted_.size();
    return (at > 0 && IsInWord(text[at - 1])) || (end < text.size() && IsInWord(text[end]));
}

std::vector<std::size_t> TextSearch::placesIn(const std::string& text,
                                              const std::function<bool(std::size_t)>& isTaken) const {
    if (wanted_.empty())
        return {0};
    const std::string capitals = ignoresCase_ ? AnsiUpperCase(text) : std::string();
    const std::string_view searched = ignoresCase_ ? capitals : text;
    std::vector<std::size_t> places;
    for (std::size_t at = 0; (at = searched.find(wanted_, at)) != searched.npos;) {
        if ((wholeWords_ && isPartOfWord(text, at)) || !isTaken(at)) {
            ++at;
            continue;
        }
        places.push_back(at);
        at += wanted_.size();
    }
    return places;
}

} // namespace qrtVistrelClasses4
