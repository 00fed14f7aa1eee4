// The program's commands, each in a file of its own.
#pragma once

#include "tools/program/ErrorLines.h"

#include <CLI/CLI.hpp>

#include <concepts>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

namespace qrtVistrelClasses4 {

enum class ExitCode { done = 0, failed = 1, wrongUsage = 2 };

/// One run of the program.
struct Session {
    /// What the command shows. It is printed when the command has ended, or earlier if there is much of it.
    std::ostream& out;
    /// Printed after the output. A command with errors has failed, even if it returns `done`.
    ErrorLines errors;
    /// The command that the arguments ask for.
    std::function<ExitCode()> command;
};

/// Help that starts with an example of use.
class ExampleFirst final : public CLI::Formatter {
public:
    explicit ExampleFirst(std::string example) : example_(std::move(example)) {}
    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override {
        return "Example: " + example_ + "\n\n" + CLI::Formatter::make_help(app, std::move(name), mode);
    }

private:
    std::string example_;
};

/// A new command below `parent`, which may itself be one.
inline CLI::App& AddCommand(CLI::App& parent, const std::string& name, const std::string& description,
                            const std::string& example) {
    CLI::App* command = parent.add_subcommand(name, description);
    command->formatter(std::make_shared<ExampleFirst>(example));
    command->fallthrough(); // so that "--home" may be anywhere
    command->footer("As with every command, --home DIR keeps it to the settings and files of that folder.");
    return *command;
}

/// The same for a command that runs `run(options, session)`.
template <class Options>
CLI::App& AddCommand(CLI::App& parent, const std::string& name, const std::string& description,
                     const std::string& example, Session& session, std::shared_ptr<Options> options,
                     ExitCode (*run)(const Options& options, Session& session)) {
    CLI::App& command = AddCommand(parent, name, description, example);
    command.callback([=, &session] { session.command = [=, &session] { return run(*options, session); }; });
    return command;
}

/// "1 frame", "2 frames".
inline std::string Counted(std::integral auto count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

void AddShowCommand(CLI::App& program, Session& session);
void AddSaveCommand(CLI::App& program, Session& session);
void AddExportCommand(CLI::App& program, Session& session);
void AddPreviewCommand(CLI::App& program, Session& session);
void AddFramesCommand(CLI::App& program, Session& session);
void AddConvertCommand(CLI::App& program, Session& session);
void AddInspectCommand(CLI::App& program, Session& session);
void AddSignsCommand(CLI::App& program, Session& session);
void AddCommandsCommand(CLI::App& program, Session& session);
void AddTextCommand(CLI::App& program, Session& session);
void AddRecentCommand(CLI::App& program, Session& session);
void AddSettingsCommand(CLI::App& program, Session& session);
void AddEffectsCommand(CLI::App& program, Session& session);
void AddFontCommand(CLI::App& program, Session& session);

} // namespace qrtVistrelClasses4
