// The words that messages of all subjects share, and findings as texts.
#include "frame/ErrorTrap.h"
#include "platform/Path.h"
#include "validation/Rules.h"

#include <algorithm>

namespace qrtVistrelClasses4 {

namespace {

constexpr std::size_t kLongestQuote = 60; ///< In characters.

} // namespace

bool IsOfKnownType(const FrameRecord& frame) {
    return frame.FrameType >= 0 && frame.FrameType <= static_cast<std::int16_t>(NEW_FRAME_TYPES::FRAME_CMD);
}

bool HasVisibleText(const LineRecord& line) {
    return std::ranges::any_of(line.CurrentLineText,
                               [](char character) { return static_cast<unsigned char>(character) > ' '; });
}

std::string Quoted(std::string_view text) {
    return text.size() <= kLongestQuote ? '"' + std::string(text) + '"'
                                        : '"' + std::string(text.substr(0, kLongestQuote)) + "...\"";
}

std::string QuotedPath(std::string_view path) {
    if (path.size() <= kLongestQuote)
        return Quoted(path);
    const std::size_t name =
        std::min({SplitPath(path).name.size() + 1, 2 * kLongestQuote, path.size()}); // and what separates it
    const std::size_t start = std::min(kLongestQuote - std::min(name, kLongestQuote / 2), path.size() - name);
    return '"' + std::string(path.substr(0, start)) + (start + name < path.size() ? "..." : "") +
           std::string(path.substr(path.size() - name)) + '"';
}

std::string SizeText(DotSize size) {
    return std::to_string(size.width) + " x " + std::to_string(size.height);
}

std::string CountText(std::int64_t count, std::string_view one, std::string_view many) {
    return std::to_string(count) + ' ' + std::string(count == 1 ? one : many);
}

std::string PlaceText(const Finding& finding) try {
    std::string place = finding.frame > 0 ? "frame " + std::to_string(finding.frame) : "playfile";
    if (finding.line > 0)
        place += ", line " + std::to_string(finding.line);
    if (!finding.property.empty())
        (place += ", ") += finding.property;
    if (finding.fileLine > 0)
        place += " (line " + std::to_string(finding.fileLine) + " of the file)";
    return place;
} catch (...) {
    RethrowAsRuntimeError();
}

std::string TextOf(const Finding& finding) try {
    std::string text(SeverityName(finding.rule->severity));
    text.append(" ").append(PlaceText(finding)).append(": ").append(finding.message);
    text.append(" [").append(finding.rule->name).append("]");
    std::ranges::replace_if(
        text, [](char character) { return static_cast<unsigned char>(character) < ' '; }, ' ');
    return text;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
