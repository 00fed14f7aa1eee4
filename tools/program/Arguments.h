// What was typed after the program's name.
#pragma once

#include "tools/program/Commands.h"

#include <string>
#include <string_view>
#include <vector>

namespace qrtVistrelClasses4 {

inline constexpr std::string_view kEndOfOptions = "--";

/// Whether a word is an option. A negative number is none, and neither is "--", which ends the options.
bool IsOption(const std::string& word);
/// "--out" of "--out=new".
std::string OptionName(const std::string& option);

/// Sets up the command that `typed` names. Returns the arguments in an order that the parser takes, which
/// wants an option after the command that it belongs to.
std::vector<std::string> InParserOrder(CLI::App& program, Session& session,
                                       const std::vector<std::string>& typed);

/// The command that somebody wants help about; null if `typed` does not ask for help with "--help". Words
/// that are no command are passed over, as in "frames harbour.playfile insert --help".
const CLI::App* CommandToExplain(CLI::App& program, Session& session, const std::vector<std::string>& typed);

} // namespace qrtVistrelClasses4
