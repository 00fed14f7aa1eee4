// What has changed in a text, word by word.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// A part of two texts, or of one of them only.
struct TextPart {
    std::string before, after; ///< Both are the same for a part of both texts.
};

/// Both texts from start to end. Words, blanks and other characters stay whole. Returns nothing if the texts
/// have no word in common.
std::vector<TextPart> WordChanges(std::string_view before, std::string_view after);

} // namespace qrtVistrelClasses4
