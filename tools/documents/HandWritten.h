// What people write in the page of a command, in docs/commands: examples and remarks, between the parts that
// are made from the program's options.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

inline constexpr std::string_view kExampleHeading = "Example";
inline constexpr std::string_view kRemarksHeading = "Remarks";
inline constexpr std::string_view kUsageHeading = "Usage"; ///< Of the first part that is made again.

struct HandSection {
    std::string heading;
    std::vector<std::string> lines; ///< Markdown, without blank lines around it.
};

struct HandWritten {
    std::string text; ///< All sections, as they are written.
    std::vector<HandSection> sections;
};

/// Takes a page apart.
HandWritten HandWrittenIn(std::string_view page);

/// Whether a session is shown, with a command and what it prints.
bool HasSession(const HandWritten& page);

/// The lines of the section; none if the page lacks it.
std::vector<std::string> LinesOf(const HandWritten& page, std::string_view heading);

std::vector<std::string> LinesOf(std::string_view text);

} // namespace qrtVistrelClasses4
