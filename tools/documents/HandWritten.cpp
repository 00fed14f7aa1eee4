#include "tools/documents/HandWritten.h"

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kMark = "## ";

void removeBlankEnds(std::vector<std::string>& lines) {
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    while (!lines.empty() && lines.front().empty())
        lines.erase(lines.begin());
}

} // namespace

std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t size = std::min(text.find('\n'), text.size());
        lines.emplace_back(text.substr(0, size));
        text.remove_prefix(std::min(size + 1, text.size()));
    }
    return lines;
}

HandWritten HandWrittenIn(std::string_view page) {
    HandWritten written;
    for (const std::string& line : LinesOf(page)) {
        if (line == std::string(kMark) + std::string(kUsageHeading))
            break;
        if (line.starts_with(kMark))
            written.sections.push_back({line.substr(kMark.size()), {}});
        else if (!written.sections.empty())
            written.sections.back().lines.push_back(line);
        if (!written.sections.empty())
            written.text += line + '\n';
    }
    for (HandSection& section : written.sections)
        removeBlankEnds(section.lines);
    return written;
}

bool HasSession(const HandWritten& page) {
    const std::vector<std::string> lines = LinesOf(page, kExampleHeading);
    const auto start = std::ranges::find(lines, "```console");
    return std::any_of(start, lines.end(), [](const std::string& line) { return line.starts_with("$ "); });
}

std::vector<std::string> LinesOf(const HandWritten& page, std::string_view heading) {
    const auto found = std::ranges::find(page.sections, heading, &HandSection::heading);
    return found == page.sections.end() ? std::vector<std::string>() : found->lines;
}

} // namespace qrtVistrelClasses4
