// The arguments of a program in the one text that Windows passes them in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

struct CommandLineWord {
    std::wstring text;
    bool isQuoted = false; ///< At least a part of it is in quotes.
};

/// The words after the program's name, as the system's `CommandLineToArgvW` takes them apart.
std::vector<CommandLineWord> WordsOfCommandLine(std::wstring_view line);

} // namespace qrtVistrelClasses4
