// Any text with placeholders of the older generation.
#include "Fuzz.h"
#include "commands/LegacyVariables.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

void RunFuzzed(FuzzedInput input) {
    const TestHost host;
    const std::string text = input.rest();
    std::vector<std::string> losses;
    const std::string converted = ConvertLegacyVariables(text, losses);
    // Braces in braces are replaced one kind after another, all others in one pass.
    const std::string nested = "{{}";
    std::vector<std::string> nestedLosses;
    Require(ConvertLegacyVariables(text + nested, nestedLosses) == converted + nested,
            "both ways give the same");
    for (std::vector<std::string>* each : {&losses, &nestedLosses}) {
        std::sort(each->begin(), each->end());
        each->erase(std::unique(each->begin(), each->end()), each->end());
    }
    Require(losses == nestedLosses, "and the same losses");
    Require(!losses.empty() || (text.find("{days}") == text.npos && converted.find("{days}") == text.npos),
            "what vanishes or stays is a loss");
    Require(text.find('}') != text.npos || converted == text, "a text without placeholders stays");
    Require(host.reports.all.empty(), "nothing of it is an error");
}

} // namespace qrtVistrelClasses4
