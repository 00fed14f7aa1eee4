// Live values in the texts of the older generation's playfiles.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// `text` with every placeholder ("{time}", "{vbl 7}", "{cnt 16}") replaced by its code of today ("|h:m|",
/// "VBL007", "CR16"). A time span ("{days}") has no code and is removed. Placeholders are recognised by their
/// exact spelling. They are replaced one kind after another, so that removing one may create another.
/// Anything else stays. Returns "" after an error, which is trapped.
std::string ConvertLegacyVariables(const std::string& text);

} // namespace qrtVistrelClasses4
