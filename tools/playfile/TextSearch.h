// A text in the lines of playfiles, as "find" and "replace" look for it.
#pragma once

#include "tools/program/Commands.h"
#include "tools/program/ErrorLines.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

struct TextSearchOptions {
    std::string text; ///< As typed.
    bool ignoresCase = false;
    bool wholeWords = false;
};

/// Adds "--ignore-case" and "--whole-word".
void AddTextSearchOptions(CLI::App& command, TextSearchOptions& options);

/// Whether a character of Windows-1252 is a letter, a digit or "_".
bool IsInWord(char character);

class TextSearch {
public:
    /// Returns nothing, and adds an error about `argument`, for a text that no line can hold.
    static std::optional<TextSearch> from(const TextSearchOptions& options, const char* argument,
                                          ErrorLines& errors);

    /// The places in `text`, from left to right, where the sought text begins. What is found at one place
    /// ends before the next one. An empty text is found once. A place for which `isTaken` is false is none,
    /// so the next one may begin in it.
    std::vector<std::size_t> placesIn(
        const std::string& text,
        const std::function<bool(std::size_t)>& isTaken = [](std::size_t) { return true; }) const;
    /// The size of the sought text.
    std::size_t size() const { return wanted_.size(); }

private:
    TextSearch(std::string wanted, const TextSearchOptions& options);
    bool isPartOfWord(std::string_view text, std::size_t at) const;

    std::string wanted_; ///< In capitals if case is ignored.
    bool ignoresCase_;
    bool wholeWords_;
};

} // namespace qrtVistrelClasses4
