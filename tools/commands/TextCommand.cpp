// vistrel text: texts of signs, and the codes in them.
#include "commands/LegacyVariables.h"
#include "commands/PreviewText.h"
#include "tools/commands/StoredCommands.h"
#include "tools/program/Commands.h"
#include "tools/program/Decimal.h"
#include "tools/program/Encoding.h"
#include "tools/program/Moment.h"
#include "tools/program/PropertyValues.h"

#include <optional>

namespace qrtVistrelClasses4 {
namespace {

struct TextOptions {
    std::string text;
    std::optional<Moment> at;
    Decimal<std::int16_t> hours;
};

std::string previewOf(const std::string& text, const TextOptions& options, ErrorLines& errors) {
    const ScopedMoment momentScope(options.at);
    return WithStoredCommands(errors, [&](const CommandTable& commands) {
        return TextPreviews(commands, options.hours.value).of(text);
    });
}

std::string converted(const std::string& text, const TextOptions&, ErrorLines&) {
    return ConvertLegacyVariables(text);
}

} // namespace

void AddTextCommand(CLI::App& program, Session& session) {
    const auto options = std::make_shared<TextOptions>();
    CLI::App& text = AddCommand(program, "text", "Shows and converts the codes in texts",
                                "vistrel text preview \"It is |h:m|\"");
    text.require_subcommand(1);
    const auto add = [&](const char* name, auto make, const char* description, const char* example) {
        CLI::App& command = AddCommand(text, name, description, example);
        command.add_option("TEXT", options->text, "A text of a sign")->required();
        command.callback([make, options, &session] {
            session.command = [make, options, &session] {
                session.errors.about("TEXT");
                const std::optional<std::string> typed = AnsiFromTyped(options->text, session.errors);
                if (!typed)
                    return ExitCode::wrongUsage;
                session.out << Visible(Utf8FromAnsi(make(*typed, *options, session.errors))) << '\n';
                return ExitCode::done;
            };
        });
        return &command;
    };
    CLI::App* previewCommand = add(
        "preview", &previewOf, "Shows a text as the preview does, with times, dates and variables for codes",
        R"(vistrel text preview "It is |h:m|" --at "2026-11-21 14:30")");
    AddMomentOption(*previewCommand, options->at);
    previewCommand->add_option("--hours", options->hours, "Hours that times are ahead of the clock")
        ->type_name("NUMBER");
    add("convert", &converted, "Puts the codes for placeholders of older playfiles",
        "vistrel text convert \"It is {time}\"");
}

} // namespace qrtVistrelClasses4
