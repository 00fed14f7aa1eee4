// The program's commands, each in a file of its own.
#pragma once

#include "tools/program/ErrorLines.h"
#include "tools/program/Help.h"

#include <CLI/CLI.hpp>

#include <concepts>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

enum class ExitCode {
    done = 0,
    failed = 1,
    wrongUsage = 2,
    faultsFound = 3, ///< In what was examined; nothing has failed.
    // Those of programs that compare files.
    different = 1,
    notCompared = 2
};

/// One run of the program.
struct Session {
    /// What the command shows. It is printed when the command has ended, or earlier if there is much of it.
    std::ostream& out;
    /// Printed after the output. A command with errors has failed.
    ErrorLines errors;
    /// The command that the arguments ask for.
    std::function<ExitCode()> command;
    /// What a command with errors ends with, unless its usage was wrong.
    ExitCode failure = ExitCode::failed;
};

/// The end of the help of a command that needs no other.
inline constexpr const char* kUsualFooter =
    "As with every command, --home DIR keeps it to the settings and files of that folder, and --wide and "
    "--color change what it prints on a terminal.";

/// Gives `command` what every command has: help that starts with `example`, and the program's options
/// anywhere.
inline void SetUpCommon(CLI::App& command, const std::string& example) {
    command.formatter(std::make_shared<HelpWithExample>(example));
    command.fallthrough(); // to "--home" and the other options of the program
    command.footer(kUsualFooter);
}

/// Makes `command` run `action`.
inline void SetAction(CLI::App& command, Session& session, std::function<ExitCode()> action) {
    command.callback([action = std::move(action), &session] { session.command = action; });
}

/// The same for `run(options, session)`.
template <class Options>
void SetAction(CLI::App& command, Session& session, std::shared_ptr<Options> options,
               ExitCode (*run)(const Options& options, Session& session)) {
    SetAction(command, session, [=, &session] { return run(*options, session); });
}

/// A new command below `parent`, for example "list" below "signs".
inline CLI::App& AddCommand(CLI::App& parent, const std::string& name, const std::string& description,
                            const std::string& example) {
    CLI::App* command =
        parent.add_subcommand(name, description)->group("Subcommands"); // not the parent's task
    SetUpCommon(*command, example);
    return *command;
}

/// The same for a command that runs `run(options, session)`.
template <class Options>
CLI::App& AddCommand(CLI::App& parent, const std::string& name, const std::string& description,
                     const std::string& example, Session& session, std::shared_ptr<Options> options,
                     ExitCode (*run)(const Options& options, Session& session)) {
    CLI::App& command = AddCommand(parent, name, description, example);
    SetAction(command, session, options, run);
    return command;
}

/// "1 frame", "2 frames".
inline std::string Counted(std::integral auto count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// A command of the program.
struct Command {
    const char* task; ///< What people want when they use it; the heading that it is listed under.
    const char* name;
    const char* description; ///< One line of the program's help.
    const char* example;     ///< The first line of the command's own help.
    /// Adds arguments, options and the commands below it.
    void (*setUp)(CLI::App& command, Session& session);
};

/// Adds the help flag and the names of all commands to `program`, in the order of its help.
void AddCommands(CLI::App& program);

std::vector<std::string> NamesOfCommands();

/// Gives the command `name` its arguments, options and subcommands, unless it has them. Options take most of
/// the time of a start, so only the command that runs is set up. Returns null if there is no such command.
CLI::App* SetUpCommand(CLI::App& program, const std::string& name, Session& session);

void SetUpShowCommand(CLI::App& command, Session& session);
void SetUpTimeCommand(CLI::App& command, Session& session);
void SetUpSaveCommand(CLI::App& command, Session& session);
void SetUpFindCommand(CLI::App& command, Session& session);
void SetUpDiffCommand(CLI::App& command, Session& session);
void SetUpExportCommand(CLI::App& command, Session& session);
void SetUpCheckCommand(CLI::App& command, Session& session);
void SetUpPreviewCommand(CLI::App& command, Session& session);
void SetUpFramesCommand(CLI::App& frames, Session& session);
void SetUpMakeCommand(CLI::App& command, Session& session);
void SetUpLinesCommand(CLI::App& lines, Session& session);
void SetUpReplaceCommand(CLI::App& command, Session& session);
void SetUpNewCommand(CLI::App& command, Session& session);
void SetUpConvertCommand(CLI::App& command, Session& session);
void SetUpInspectCommand(CLI::App& command, Session& session);
void SetUpSignsCommand(CLI::App& signs, Session& session);
void SetUpCommandsCommand(CLI::App& commands, Session& session);
void SetUpTextCommand(CLI::App& text, Session& session);
void SetUpRecentCommand(CLI::App& recent, Session& session);
void SetUpSettingsCommand(CLI::App& settings, Session& session);
void SetUpEffectsCommand(CLI::App& command, Session& session);
void SetUpFontCommand(CLI::App& font, Session& session);
void SetUpDoctorCommand(CLI::App& command, Session& session);
void SetUpCompletionCommand(CLI::App& command, Session& session);
void SetUpHelpCommand(CLI::App& command, Session& session);

} // namespace qrtVistrelClasses4
