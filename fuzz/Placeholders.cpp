// Any text with placeholders of the older generation.
#include "Fuzz.h"
#include "commands/LegacyVariables.h"

namespace qrtVistrelClasses4 {

void RunFuzzed(FuzzedInput input) {
    const TestHost host;
    const std::string text = input.rest();
    const std::string converted = ConvertLegacyVariables(text);
    // Braces in braces are replaced one kind after another, all others in one pass.
    const std::string nested = "{{}";
    Require(ConvertLegacyVariables(text + nested) == converted + nested, "both ways give the same");
    Require(text.find('}') != text.npos || converted == text, "a text without placeholders stays");
    Require(host.reports.all.empty(), "nothing of it is an error");
}

} // namespace qrtVistrelClasses4
