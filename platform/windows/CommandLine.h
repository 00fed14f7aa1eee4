// The arguments of a program in the one text that Windows passes them in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

struct CommandLineWord {
    std::wstring text;
    bool hasQuotedWildcard = false; ///< A "*" or "?" in it is in quotes. No file has such a name.
};

/// The words after the program's name, as the C libraries of current compilers take them apart:
/// two quotes within quotes are one that is text. `CommandLineToArgvW` keeps to older rules.
std::vector<CommandLineWord> WordsOfCommandLine(std::wstring_view line);

} // namespace qrtVistrelClasses4
