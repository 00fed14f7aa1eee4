// Live values in the texts of the older generation's playfiles.
#pragma once

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// `text` with every placeholder ("{time}", "{vbl 7}", "{cnt 16}") rewritten as the code that stands for it
/// now ("|h:m|", "VBL007", "CR16"). A time span ("{days}") has no code and goes. Placeholders are known by
/// exact spelling and replaced one kind after another, so that one may arise from what another leaves behind;
/// what is no placeholder stays. "" after an error, which is trapped.
std::string ConvertLegacyVariables(const std::string& text);

} // namespace qrtVistrelClasses4
