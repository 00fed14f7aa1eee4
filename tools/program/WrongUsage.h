// Why the program does not take what was typed.
#pragma once

#include "tools/program/ErrorLines.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// Adds why the parser refused what was typed.
void AddWrongUsage(CLI::App& program, const CLI::ParseError& error, const std::vector<std::string>& typed,
                   ErrorLines& errors);

/// "there is no command shwo; the nearest one is show". `words` are what may have been meant for a command
/// below `app`; with none of them, a command is missing.
std::string UnknownCommand(const CLI::App& app, const std::vector<std::string>& words);

} // namespace qrtVistrelClasses4
