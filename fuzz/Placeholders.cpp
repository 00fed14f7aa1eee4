// Any text with placeholders of the older generation.
#include "Fuzz.h"
#include "bench/OlderTexts.h"
#include "commands/LegacyVariables.h"

#include <algorithm>
#include <regex>

namespace qrtVistrelClasses4 {
namespace {

std::string loss(const std::string& placeholder, const char* why) {
    return "placeholder \"" + placeholder + "\", " + why;
}

/// Replaces one kind of placeholder after another.
std::string replaceInPasses(std::string text, std::vector<std::string>& losses) {
    static const auto replacements = bench::MakeReplacements();
    static const std::regex unknown("\\{[ \x1f]*[A-Za-z][A-Za-z_0-9]*[ \x1f]*[+-]*[0-9]*[ \x1f]*\\}");
    for (const auto& [placeholder, code] : replacements)
        for (std::size_t at = text.find(placeholder); at != text.npos; at = text.find(placeholder, at)) {
            text.replace(at, placeholder.size(), code);
            at += code.size();
            if (code.empty())
                losses.push_back(loss(placeholder, "which has no code"));
        }
    for (std::sregex_iterator found(text.begin(), text.end(), unknown), end; found != end; ++found)
        losses.push_back(loss(found->str(), "which stays as text"));
    return text;
}

} // namespace

void RunFuzzed(FuzzedInput input) {
    const TestHost host;
    const std::string text = input.rest();
    std::vector<std::string> losses, lossesOfPasses;
    Require(ConvertLegacyVariables(text, losses) == replaceInPasses(text, lossesOfPasses),
            "one pass gives what one kind after another gives");
    std::ranges::sort(losses);
    std::ranges::sort(lossesOfPasses);
    Require(losses == lossesOfPasses, "and the same losses");
    Require(host.reports.all.empty(), "nothing of it is an error");
}

} // namespace qrtVistrelClasses4
