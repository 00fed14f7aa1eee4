// Live values in the texts of the older generation's playfiles.
#pragma once

#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// `text` with every placeholder ("{time}", "{vbl 7}", "{cnt 16}") replaced by its code of today ("|h:m|",
/// "VBL007", "CR16"). A time span ("{days}") has no code and is removed. Placeholders are recognised by their
/// exact spelling. They are replaced one kind after another, so that removing one may create another.
/// Anything else stays. Returns "" after an error, which is trapped.
std::string ConvertLegacyVariables(const std::string& text);

/// The same. Adds to `losses`, in words, the time spans that were removed, and what stays but looks like a
/// placeholder: in braces a word of ASCII letters, digits and "_" that starts with a letter, and perhaps a
/// number, with blanks or line ends around both. "{TIME}" and "{vbl 417}" do, "{}" and "{see below}" do not.
std::string ConvertLegacyVariables(const std::string& text, std::vector<std::string>& losses);

} // namespace qrtVistrelClasses4
