// The program's commands as data, for what is made of them: completion scripts, man pages and the pages of
// docs/commands.
#pragma once

#include "tools/program/Commands.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// An argument or an option.
struct ValueModel {
    std::vector<std::string> names; ///< "-r" and "--recursive"; of an argument only one, "FILES".
    std::string description;
    std::string value;                ///< What help calls the value. Empty for a flag, which takes none.
    std::string limits{};             ///< Of a number: "1 to 64".
    std::vector<std::string> words{}; ///< The only values that are taken. Empty: any that the kind may have.
    std::vector<std::string> excludes{}, needs{}; ///< Names of other options.
    std::string variable{}; ///< Of the environment, which has the value if the option is not typed.
    bool isRequired = false;
    bool isRepeated = false;
};

struct CommandModel {
    std::string name; ///< In full: "vistrel frames insert".
    std::string task; ///< The heading that it is listed under.
    std::string description;
    std::string example;
    std::string usage;
    std::string footer;
    std::vector<ValueModel> arguments;
    std::vector<ValueModel> options; ///< Its own; those of the commands above it are taken, too.
    std::vector<CommandModel> commands;
};

/// The program with all its commands, which are set up for that.
CommandModel ModelOf(CLI::App& program, Session& session);

} // namespace qrtVistrelClasses4
