// Text for man pages, in the language of troff.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

/// What an item of a list starts with. It ends the paragraph in front of it.
inline constexpr std::string_view kItemMark = ".IP \\(bu 2\n";

/// Plain UTF-8 text, in ASCII, as it may be anywhere in a line.
std::string RoffText(std::string_view text);

/// The Markdown that the pages of docs/commands are written in: paragraphs, lists, sessions, bold text, code
/// and links, of which only the text is left. Text in front of it must end its paragraph.
std::string RoffOf(const std::vector<std::string>& markdown);

} // namespace qrtVistrelClasses4
