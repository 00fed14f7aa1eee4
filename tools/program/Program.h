// The program as the option parser sees it, before one of its commands is set up.
#pragma once

#include "tools/program/Screen.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <optional>
#include <string>

namespace qrtVistrelClasses4 {

/// The options of every command.
struct ProgramOptions {
    std::optional<std::string> home;
    ScreenOptions screen;
};

/// A parser that knows these options and the names of all commands. `options` must outlive it.
std::unique_ptr<CLI::App> MakeProgram(ProgramOptions& options);

} // namespace qrtVistrelClasses4
